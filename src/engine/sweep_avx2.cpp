#include "engine/sweep_packs.h"

// Compiled for AVX2.

namespace halvorne {

extern const InstructionSet kAvx2;
constexpr InstructionSet kAvx2 = packs::SetOf<4>("AVX2");

}  // namespace halvorne
