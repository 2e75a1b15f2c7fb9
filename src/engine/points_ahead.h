#pragma once

#include <cstdint>

#include "engine/instruction_sets.h"
#include "engine/sweep_plan.h"

namespace halvorne {

/// The points of a sweep that are worked on several at a time, ahead of the named procedures.
///
/// The procedures have to come by where a step fails, since only they show the box and leave what
/// such a point leaves; at the point before it, so that they find what they would have found; and
/// at the last point, so that the working matrices hold what a sweep leaves.
class PointsAhead {
 public:
  /// @param step  distance of the points, Hz
  explicit PointsAhead(double step);

  /// The next point for the named procedures, `point` or one behind it; the curves of those between
  /// are filled.
  std::int32_t Next(std::int32_t point);

 private:
  const InstructionSet* set_;  ///< nullptr: each point is for the named procedures
  SweepPlan plan_;
  std::int32_t stop_ = -1;  ///< the points before it are done, it isn't
};

}  // namespace halvorne
