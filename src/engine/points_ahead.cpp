#include "engine/points_ahead.h"

#include <algorithm>

#include "platform/vector_registers.h"

namespace halvorne {

PointsAhead::PointsAhead(double step) : set_(SweepInstructions()) {
  if (set_ != nullptr && !PlanSweep(step, plan_)) {
    set_ = nullptr;
  }
}

std::int32_t PointsAhead::Next(std::int32_t point) {
  if (set_ == nullptr) {
    return point;
  }
  if (point > stop_) {
    stop_ = set_->sweep(plan_, point);
    CleanVectorRegisters();  // the compiler leaves it to us where it doesn't optimise
  }
  return std::max(point, stop_ - 1);
}

}  // namespace halvorne
