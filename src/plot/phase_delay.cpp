#include "platform/failure.h"
#include "plot/conversions.h"

namespace halvorne {
namespace {

/// Adds `degrees` to the phases from point `first` on.
void TurnTail(std::int32_t first, double degrees) {
  const PlotPoint* const last = &points.RawData(design.NoFreqPts);
  for (PlotPoint* point = &points.RawData(first); point <= last; ++point) {
    point->Y2 += degrees;
  }
}

/// The value one step beyond `near` on the straight line from `far`.
double Beyond(std::int32_t near, std::int32_t far) {
  return Finite(2 * points.RawData(near).Y2 - points.RawData(far).Y2);
}

/// Takes out the turns by which each phase departs from the forecast of the two before it.
void Unwrap() {
  for (std::int32_t i = 2; i <= design.NoFreqPts; ++i) {
    const double forecast = Beyond(i - 1, i - 2);
    const double& phase = points.RawData(i).Y2;
    if (phase - forecast > 180) {
      TurnTail(i, -360);
    }
    if (phase - forecast < -180) {
      TurnTail(i, 360);
    }
  }
  // Kept: the first point is an extrapolation, not the phase that was gathered.
  points.RawData(0).Y2 = Beyond(1, 2);
}

/// Turns degrees into the group delay in seconds by central differences.
void Differentiate() {
  const std::int32_t last = design.NoFreqPts;
  const double degreesPerSecond =
      Finite(Quotient((design.FreqStop - design.FreqStart) * -360.0, last));
  double previous = points.RawData(0).Y2;
  for (std::int32_t i = 1; i < last; ++i) {
    const double difference = (points.RawData(i + 1).Y2 - previous) / 2;
    double& value = points.RawData(i).Y2;
    previous = value;
    value = Finite(Quotient(difference, degreesPerSecond));
  }
  points.RawData(0).Y2 = Beyond(1, 2);
  double& end = points.RawData(last).Y2;  // a count that has no point ends here
  end = Beyond(last - 1, last - 2);
  for (std::int32_t i = 0; i <= last; ++i) {
    double& delay = points.RawData(i).Y2;
    if (delay < 0) {
      delay = 0;
    }
  }
}

}  // namespace

void PhaseDelay() try {
  if (setup.PhaseDisplayOption == 1 || setup.PhaseDisplayOption == 2) {
    Unwrap();
  }
  if (setup.PhaseDisplayOption == 2) {
    Differentiate();
  }
} catch (...) {
  ReportFailure("PhaseDelay", "PLOTIT");
}

}  // namespace halvorne
