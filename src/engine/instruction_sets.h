#pragma once

#include <cstdint>
#include <span>

namespace halvorne {

struct SweepPlan;

/// The sweep's formulas on packs of frequency points, compiled for one instruction set.
struct InstructionSet {
  const char* name;
  int lanes;  ///< points that are worked on at a time

  /// Fills the curves from point `from` on.
  /// @return the first point that has to go through the named procedures, since a step of it fails;
  ///         plan.last + 1 when there is none
  std::int32_t (*sweep)(const SweepPlan& plan, std::int32_t from);

  // The functions that the formulas call, of `lanes` numbers at a time.
  void (*cos)(const double* x, double* result);
  void (*sin)(const double* x, double* result);
  void (*exp)(const double* x, double* result);
  void (*pow)(const double* x, double n, double* result);
};

/// Those that this processor has, the widest one last; none on processors for which there is no
/// code.
std::span<const InstructionSet* const> InstructionSets();

/// The one that sweeps use; nullptr: every point goes through the named procedures.
const InstructionSet* SweepInstructions();
/// Chooses another one, for measurements and tests; the widest one is in use from the start.
void SetSweepInstructions(const InstructionSet* set);

}  // namespace halvorne
