#include "plot/manual_scales.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <utility>

#include "persistence/setup_file.h"
#include "platform/failure.h"
#include "platform/number_text.h"
#include "platform/numbers.h"
#include "plot/cursor.h"
#include "plot/graph_position.h"
#include "plot/plot_select.h"
#include "plot/plot_state.h"

namespace halvorne {
namespace {

constexpr const char* kModule = "PLOTIT";
constexpr const char* kEndPattern = "##0.##0";
/// The last digit of the axis texts.
constexpr double kThousandth = 0.001;

bool CutsAmplitude(const BoxRectangle& rectangle) {
  return rectangle.bottom > 0 || rectangle.top < 10;
}

bool CutsWindow(const BoxRectangle& rectangle) {
  return rectangle.left > 0 || rectangle.right < 10;
}

/// Bottom and top of one axis within the rectangle, in the unit of its texts.
std::pair<double, double> EndsWithin(const BoxRectangle& rectangle, double min, double max,
                                     double magnitude) {
  const auto at = [=](double y) {
    const double value = Quotient(min + (max - min) * y / 10, magnitude);
    return std::round(value / kThousandth) * kThousandth;
  };
  const double bottom = at(rectangle.bottom);
  const double top = at(rectangle.top);
  // Equal ends would be parted by a whole unit.
  return {bottom, top == bottom ? bottom + kThousandth : top};
}

AmplitudeEnds AmplitudeWithin(const BoxRectangle& rectangle) {
  const auto [leftMin, leftMax] =
      EndsWithin(rectangle, scale.LeftMin, scale.LeftMax, scale.LeftMag);
  const auto [rightMin, rightMax] =
      EndsWithin(rectangle, scale.RightMin, scale.RightMax, scale.RightMag);
  return {.leftMax = leftMax, .leftMin = leftMin, .rightMax = rightMax, .rightMin = rightMin};
}

/// First and last point within the rectangle, at least one interval.
std::pair<std::int32_t, std::int32_t> PointsWithin(const BoxRectangle& rectangle) {
  std::int32_t first = PointAt(rectangle.left);
  std::int32_t last = PointAt(rectangle.right);
  if (first == last && last < scale.LastPlotPt) {
    ++last;
  } else if (first == last && first > scale.FirstPlotPt) {
    --first;
  }
  return {first, last};
}

void TakeWindowWithin(const BoxRectangle& rectangle) {
  const auto [first, last] = PointsWithin(rectangle);
  const double lower = DisplayPosition(first);
  const double upper = DisplayPosition(last);
  if (IsTimePlot(view.CurrentPlot)) {
    view.TimeAuto = false;
    TakeManualTimeWindow(lower, upper);
  } else {
    view.FreqAuto = false;
    TakeManualFrequencyWindow(lower, upper);
  }
}

/// What ends every entry of scales.
void ShowScales() {
  writeHalvorneSetup();
  ClearCursor();
  PlotSelect(view.CurrentPlot);
}

std::string RangeText(double from, double to, const std::string& unit) {
  return Format(from, kEndPattern) + " to " + Format(to, kEndPattern) + " " + unit;
}

}  // namespace

void TakeManualAmplitude(const AmplitudeEnds& ends) {
  scale.LeftMax = ToSingle(ends.leftMax * scale.LeftMag);
  scale.LeftMin = ToSingle(ends.leftMin * scale.LeftMag);
  if (scale.LeftMax == scale.LeftMin) {
    scale.LeftMax = ToSingle(static_cast<double>(scale.LeftMax) + 1);
  }
  scale.RightMax = ToSingle(ends.rightMax * scale.RightMag);
  scale.RightMin = ToSingle(ends.rightMin * scale.RightMag);
  if (scale.RightMax == scale.RightMin) {
    scale.RightMax = ToSingle(static_cast<double>(scale.RightMax) + 1);
  }
}

void TakeManualTimeWindow(double lower, double upper) {
  scale.TimeLower = Finite(std::fabs(lower) * view.TimeScale);
  scale.TimeUpper = Finite(std::fabs(upper) * view.TimeScale);
  if (scale.TimeUpper < scale.TimeLower) {
    std::swap(scale.TimeUpper, scale.TimeLower);
  }
  scale.TimeLower = std::min(std::max(scale.TimeLower, 0.0), 0.95 * design.TimeWindow);
  scale.TimeUpper = std::min(scale.TimeUpper, design.TimeWindow);
  scale.FirstPlotPt = ToInt32(Int(design.SampleRateHz * scale.TimeLower + 0.5));
  scale.TimeLower = Quotient(scale.FirstPlotPt, design.SampleRateHz);
  scale.LastPlotPt = ToInt32(Int(design.SampleRateHz * scale.TimeUpper + 0.5));
  scale.TimeUpper = Quotient(scale.LastPlotPt, design.SampleRateHz);
}

void TakeManualFrequencyWindow(double lower, double upper) {
  scale.PlotFreqLower = ToSingle(std::fabs(lower) * design.FreqScale);
  scale.PlotFreqUpper = ToSingle(std::fabs(upper) * design.FreqScale);
  if (scale.PlotFreqUpper < scale.PlotFreqLower) {
    std::swap(scale.PlotFreqUpper, scale.PlotFreqLower);
  }
  if (scale.PlotFreqLower < design.FreqStart) {
    scale.PlotFreqLower = ToSingle(design.FreqStart);
  }
  if (scale.PlotFreqLower > 0.95 * design.FreqStop) {
    scale.PlotFreqLower = ToSingle(0.95 * design.FreqStop);
  }
  if (scale.PlotFreqUpper > design.FreqStop) {
    scale.PlotFreqUpper = ToSingle(design.FreqStop);
  }
  // Kept: the guard is 5 % of the start frequency, not a point above the lower limit.
  if (scale.PlotFreqUpper < 0.05 * design.FreqStart) {
    scale.PlotFreqUpper = ToSingle(0.05 * design.FreqStart);
  }
  const auto snap = [](std::int32_t& point, float& frequency) {
    point = ToInt32(Int(Quotient(frequency - design.FreqStart, design.FreqStep) + 0.5));
    frequency = ToSingle(point * design.FreqStep + design.FreqStart);
  };
  snap(scale.FirstPlotPt, scale.PlotFreqLower);
  snap(scale.LastPlotPt, scale.PlotFreqUpper);
}

void ZoomTo(const BoxRectangle& rectangle) try {
  if (CutsAmplitude(rectangle)) {
    view.AmplAuto = false;
    TakeManualAmplitude(AmplitudeWithin(rectangle));
  }
  if (CutsWindow(rectangle)) {
    TakeWindowWithin(rectangle);
  }
  ShowScales();
} catch (...) {
  ReportFailure("ZoomTo", kModule);
}

std::string RectangleText(const BoxRectangle& rectangle) {
  const auto [first, last] = PointsWithin(rectangle);
  const AmplitudeEnds ends = AmplitudeWithin(rectangle);
  std::string words = RangeText(DisplayPosition(first), DisplayPosition(last), PositionUnit()) +
                      ", " +
                      RangeText(ends.leftMin, ends.leftMax, scale.LeftPrefix + scale.LeftUnit);
  if (plot.DualTrace) {
    words += ", " + RangeText(ends.rightMin, ends.rightMax, scale.RightPrefix + scale.RightUnit);
  }
  return words;
}

void AutomaticScales() try {
  view.AmplAuto = true;
  if (IsTimePlot(view.CurrentPlot)) {
    view.TimeAuto = true;
  }
  if (!IsTimePlot(view.CurrentPlot) || plot.SpectrumShown) {
    view.FreqAuto = true;
  }
  ShowScales();
} catch (...) {
  ReportFailure("AutomaticScales", kModule);
}

bool ScaledByHand() {
  const bool time = IsTimePlot(view.CurrentPlot);
  return !view.AmplAuto || (time && !view.TimeAuto) ||
         ((!time || plot.SpectrumShown) && !view.FreqAuto);
}

}  // namespace halvorne
