#include "engine/sweep_packs.h"

// Compiled for AVX-512.

namespace halvorne {

extern const InstructionSet kAvx512;
constexpr InstructionSet kAvx512 = packs::SetOf<8>("AVX-512");

}  // namespace halvorne
