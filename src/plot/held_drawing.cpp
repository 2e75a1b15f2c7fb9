#include "plot/held_drawing.h"

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

#include "plot/held_curves.h"
#include "plot/held_legend.h"
#include "plot/trace_colours.h"

namespace halvorne {
namespace {

constexpr double kBoxEnd = 10;
/// Values beyond are as good as there: the way into the box is then upright to any eye.
constexpr double kFar = 1e6;

/// The values of a channel and how they lie in the box.
struct HeldTrace {
  const std::vector<PlotPoint>& values;
  double PlotPoint::*channel;
  std::size_t count;  ///< of the values that belong to it
  Steps axis;
  double left, right;  ///< x at the edges of the box
  float bottom, top;   ///< value there
};

void DrawHeldTrace(Surface& surface, const HeldTrace& trace) {
  const double width = trace.right - trace.left;
  const double height = double{trace.top} - trace.bottom;
  if (trace.count == 0 || !(trace.axis.step > 0) || !(width > 0) || height == 0) {
    return;
  }
  // One point beyond each edge, so that the curve reaches it.
  const double end = static_cast<double>(trace.count) - 1;
  const auto first =
      static_cast<std::size_t>(std::clamp(std::floor(trace.axis.Point(trace.left)), 0.0, end));
  const auto last =
      static_cast<std::size_t>(std::clamp(std::ceil(trace.axis.Point(trace.right)), 0.0, end));
  static std::vector<Point> curve;  // one buffer for all, as drawing the present traces has
  curve.clear();
  for (std::size_t i = first; i <= last; ++i) {
    const double value = trace.values[i].*trace.channel;
    const double y = (value - trace.bottom) * kBoxEnd / height;
    const double x = trace.axis.X(static_cast<double>(i));
    curve.push_back({(x - trace.left) * kBoxEnd / width, std::clamp(y, -kFar, kFar)});
  }
  DrawWithinBox(surface, curve);
}

/// The part of a line within the box.
struct Piece {
  Point from, to;
  double start = 0, end = 1;  ///< shares of the line at which it lies

  /// Cuts off what lies beyond an edge: p is how fast the line goes outward, q how far inward of
  /// the edge it starts. (Y.-D. Liang and B. A. Barsky, ACM Trans. Graphics 3 (1984) 1.)
  void Cut(double p, double q) {
    if (p == 0) {
      end = q < 0 ? -1 : end;
    } else if (p < 0) {
      start = std::max(start, q / p);
    } else {
      end = std::min(end, q / p);
    }
  }
  Point At(double share) const {
    return {from.x + share * (to.x - from.x), from.y + share * (to.y - from.y)};
  }
};

Piece WithinBox(Point from, Point to) {
  Piece piece{from, to};
  const double dx = to.x - from.x;
  const double dy = to.y - from.y;
  piece.Cut(-dx, from.x);
  piece.Cut(dx, kBoxEnd - from.x);
  piece.Cut(-dy, from.y);
  piece.Cut(dy, kBoxEnd - from.y);
  return piece;
}

void DrawCurves(Surface& surface, const HeldCurves& made, std::int32_t first, std::int32_t last,
                const TimePoints& array) {
  const std::vector<PlotPoint>& values = made.ValuesBeside(array);
  const Steps axis = PresentAxis();
  const HeldTrace trace{values,        &PlotPoint::Y1, values.size(), made.axis,
                        axis.X(first), axis.X(last),   scale.LeftMin, scale.LeftMax};
  DrawHeldTrace(surface, trace);
  if (!plot.DualTrace || !made.dualTrace) {
    return;
  }
  surface.SetDrawStyle(kDots);
  if (plot.SpectrumShown) {
    const Steps sweep = PresentSpectrumAxis();
    DrawHeldTrace(surface, {values, &PlotPoint::Y2, made.spectrumPoints, made.spectrumAxis,
                            sweep.X(0), sweep.X(design.NoFreqPts), scale.RightMin, scale.RightMax});
  } else {
    DrawHeldTrace(surface, {values, &PlotPoint::Y2, values.size(), made.axis, trace.left,
                            trace.right, scale.RightMin, scale.RightMax});
  }
  surface.SetDrawStyle(kSolid);
}

}  // namespace

void DrawWithinBox(Surface& surface, std::span<const Point> curve) {
  static std::vector<Point> drawn;
  drawn.clear();
  for (std::size_t i = 1; i < curve.size(); ++i) {
    const Piece piece = WithinBox(curve[i - 1], curve[i]);
    if (piece.start > piece.end) {
      continue;
    }
    if (drawn.empty() || piece.start > 0) {
      surface.Polyline(drawn);
      drawn.assign(1, piece.At(piece.start));
    }
    drawn.push_back(piece.end == 1 ? curve[i] : piece.At(piece.end));
    if (piece.end < 1) {
      surface.Polyline(drawn);
      drawn.clear();
    }
  }
  surface.Polyline(drawn);
}

void DrawHeldDesigns(Surface& surface, std::int32_t first, std::int32_t last, std::int16_t pane,
                     const TimePoints& array) {
  const std::vector<int> slots = HeldSlots();
  if (slots.empty() || surface.Kind() != SurfaceKind::kMainPicture) {
    return;
  }
  MakeHeldCurves();
  surface.SetDrawWidth(1);
  for (const int slot : slots) {
    const HeldCurves& made = *Held(slot)->curves;
    if (made.shown) {
      surface.SetForeColor(kHeldColours.at(static_cast<std::size_t>(slot)));
      DrawCurves(surface, made, first, last, array);
    }
  }
  if (pane == 1 || pane == 4) {
    DrawLegend(surface, pane);
  }
  surface.SetForeColor(kBlack);
}

}  // namespace halvorne
