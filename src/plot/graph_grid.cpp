#include "plot/graph_grid.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "platform/failure.h"
#include "platform/number_text.h"
#include "plot/extent.h"
#include "plot/graph.h"
#include "plot/plot_state.h"

namespace halvorne {
namespace {

constexpr Colour kGridColour{220, 220, 220};
/// Quieter than the axes' own texts.
constexpr Colour kValueColour{96, 96, 96};
/// From an axis to the values of its ticks, box units.
constexpr double kValueGap = 0.15;
/// Edges of the picture, box units.
constexpr double kPictureLeft = -2;
constexpr double kPictureRight = 12;

bool GridShownOn(const Surface& surface) {
  return reading.GridOn && surface.Kind() == SurfaceKind::kMainPicture;
}

std::string TickText(double from, double to, int tick) {
  return Format(from + (to - from) * tick / 10, "##0.##0");
}

/// Ticks from one value to the next: 1, 2 or 5, the first that is as long as `needed`; none is 10.
int StepFor(double needed) {
  for (const int step : {1, 2, 5}) {
    if (needed <= step) {
      return step;
    }
  }
  return 10;
}

double WidthOfWidest(const Surface& surface, double from, double to) {
  double widest = 0;
  for (int tick = 0; tick <= 10; ++tick) {
    widest = std::max(widest, surface.TextWidth(TickText(from, to, tick)));
  }
  return widest;
}

double LineHeight(const Surface& surface) {
  return std::abs(surface.TextHeight("0"));
}

/// One vertical axis.
struct YAxis {
  double from, to;  ///< in the unit of its texts
  std::string label, unit;
  double centre;  ///< of its label
  bool left;
};

void YTickValues(Surface& surface, const YAxis& axis) {
  const double height = LineHeight(surface);
  const auto caption = [&](const std::string& text, double top) {
    const double half = (surface.TextWidth(text) + surface.TextWidth("0")) / 2;
    return Extent{axis.centre - half, axis.centre + half, top - height, top};
  };
  const std::vector<Extent> taken{caption(axis.label, kLabelY), caption(axis.unit, kUnitY)};
  const int step = StepFor(height);
  for (int tick = step; tick < 10; tick += step) {
    const std::string text = TickText(axis.from, axis.to, tick);
    const double width = surface.TextWidth(text);
    const double start = axis.left ? -kValueGap - width : 10 + kValueGap;
    const Extent extent{start, start + width, tick - height / 2, tick + height / 2};
    if (!MeetsAny(extent, taken) && start >= kPictureLeft && start + width <= kPictureRight) {
      PrintAt(surface, start, extent.top, text);
    }
  }
}

}  // namespace

void GridLinesOn(Surface& surface) {
  if (!GridShownOn(surface)) {
    return;
  }
  surface.SetForeColor(kGridColour);
  for (int i = 1; i <= 9; ++i) {
    surface.Line(i, 0.13, i, 9.87);
    surface.Line(0.1, i, 9.9, i);
  }
  surface.SetForeColor(kBlack);
}

void XTickValuesOn(Surface& surface, const XAxis& axis, double y) {
  if (!GridShownOn(surface)) {
    return;
  }
  const double gap = surface.TextWidth("0");
  const auto centred = [&](const std::string& text, double centre) {
    const double half = (surface.TextWidth(text) + gap) / 2;
    return Extent{centre - half, centre + half, 0, 1};
  };
  const std::vector<Extent> taken{centred(axis.caption, 5), centred(axis.lower, 0),
                                  centred(axis.upper, 10)};
  const double from = Quotient(axis.from, axis.unit);
  const double to = Quotient(axis.to, axis.unit);
  const int step = StepFor(WidthOfWidest(surface, from, to) + gap);
  surface.SetForeColor(kValueColour);
  for (int tick = step; tick < 10; tick += step) {
    const std::string text = TickText(from, to, tick);
    if (!MeetsAny(centred(text, tick), taken)) {
      PrintCentred(surface, text, static_cast<float>(tick), y);
    }
  }
  surface.SetForeColor(kBlack);
}

void YTickValuesOn(Surface& surface) {
  if (!GridShownOn(surface)) {
    return;
  }
  surface.SetForeColor(kValueColour);
  YTickValues(surface, {.from = Quotient(scale.LeftMin, scale.LeftMag),
                        .to = Quotient(scale.LeftMax, scale.LeftMag),
                        .label = scale.LeftLabel,
                        .unit = scale.LeftPrefix + scale.LeftUnit,
                        .centre = -1,
                        .left = true});
  if (plot.DualTrace) {
    YTickValues(surface, {.from = Quotient(scale.RightMin, scale.RightMag),
                          .to = Quotient(scale.RightMax, scale.RightMag),
                          .label = scale.RightLabel,
                          .unit = scale.RightPrefix + scale.RightUnit,
                          .centre = 11,
                          .left = false});
  }
  surface.SetForeColor(kBlack);
}

}  // namespace halvorne
