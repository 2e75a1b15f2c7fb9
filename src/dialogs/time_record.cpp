#include "dialogs/time_record.h"

#include <cmath>

#include "engine/design_model.h"
#include "platform/failure.h"
#include "platform/numbers.h"

namespace halvorne {

double NeededTimePoints() {
  const double span = design.FreqStop - design.FreqStart;
  return Finite(Quotient(2.0 * design.NoFreqPts * design.FreqStop, span));
}

double PowerOfTwoAbove(double points) {
  if (points <= 0) {
    throw Failure(failure_number::kInvalidCall);
  }
  return std::pow(2.0, Int(std::log(points) / std::log(2.0)) + 1);
}

}  // namespace halvorne
