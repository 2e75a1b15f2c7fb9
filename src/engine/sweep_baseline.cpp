#include "engine/sweep_packs.h"

// Compiled for x86-64.

namespace halvorne {

extern const InstructionSet kBaseline;
constexpr InstructionSet kBaseline = packs::SetOf<2>("x86-64");

}  // namespace halvorne
