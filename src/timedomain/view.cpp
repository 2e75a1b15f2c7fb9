#include "timedomain/view.h"

#include <array>

#include "platform/failure.h"
#include "platform/numbers.h"

namespace halvorne {

View view;

namespace {

/// Decades of a time in seconds that read in one unit.
struct TimeBand {
  int from;
  int to;
  const char* unit;
  double scale;
};

constexpr std::array<TimeBand, 5> kTimeBands = {{{-100, -10, "psec", 1e-12},
                                                 {-9, -7, "nsec", 1e-9},
                                                 {-6, -4, "usec", 1e-6},
                                                 {-3, -1, "msec", 1e-3},
                                                 {0, 100, "sec", 1}}};

}  // namespace

bool IsTimePlot(int plot) {
  return plot == 16 || plot == 26 || plot == 33 || IsExcitationPlot(plot);
}

bool IsExcitationPlot(int plot) {
  return plot == 17 || plot == 27 || plot == 34;
}

void GetTimeScale(double seconds) try {
  const double decade = Int(log10(seconds));
  for (const TimeBand& band : kTimeBands) {
    if (decade >= band.from && decade <= band.to) {
      view.TimeUnit = band.unit;
      view.TimeScale = band.scale;
    }
  }
} catch (...) {
  ReportFailure("GetTimeScale", "PLOTIT");
}

}  // namespace halvorne
