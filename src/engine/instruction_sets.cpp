#include "engine/instruction_sets.h"

#include <cstddef>

namespace halvorne {

#ifdef HALVORNE_WIDE_SWEEPS

extern const InstructionSet kBaseline, kAvx2, kAvx512;

namespace {

/// The widest set comes last, so those that the processor has are a number of first ones.
constexpr const InstructionSet* kAll[] = {&kBaseline, &kAvx2, &kAvx512};

std::size_t Available() {
  // Asks words in memory; the check of the system's own support is in them.
  if (__builtin_cpu_supports("avx2") == 0) {
    return 1;
  }
  return __builtin_cpu_supports("avx512f") == 0 ? 2 : 3;
}

}  // namespace

std::span<const InstructionSet* const> InstructionSets() {
  return {kAll, Available()};
}

#else

std::span<const InstructionSet* const> InstructionSets() {
  return {};
}

#endif

namespace {

const InstructionSet*& Chosen() {
  static const InstructionSet* chosen =
      InstructionSets().empty() ? nullptr : InstructionSets().back();
  return chosen;
}

}  // namespace

const InstructionSet* SweepInstructions() {
  return Chosen();
}

void SetSweepInstructions(const InstructionSet* set) {
  Chosen() = set;
}

}  // namespace halvorne
