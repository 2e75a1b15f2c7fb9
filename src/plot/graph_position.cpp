#include "plot/graph_position.h"

#include <algorithm>

#include "platform/failure.h"
#include "platform/numbers.h"
#include "plot/graph.h"
#include "plot/plot_state.h"

namespace halvorne {

Point GraphPlace(double across, double down) {
  const Corners& corners = CursorPaneCorners();
  return {corners.x1 + across * (corners.x2 - corners.x1),
          corners.y1 + down * (corners.y2 - corners.y1)};
}

Point PictureShares(const Point& place) {
  const Corners& corners = CursorPaneCorners();
  return {(place.x - corners.x1) / (corners.x2 - corners.x1),
          (place.y - corners.y1) / (corners.y2 - corners.y1)};
}

bool InBox(const Point& place) {
  return 0 <= place.x && place.x <= 10 && 0 <= place.y && place.y <= 10;
}

double BoxX(double point) {
  return Quotient((point - scale.FirstPlotPt) * 10.0,
                  Difference(scale.LastPlotPt, scale.FirstPlotPt));
}

std::int32_t PointAt(double x) {
  const double point = scale.FirstPlotPt + x * Difference(scale.LastPlotPt, scale.FirstPlotPt) / 10;
  return std::clamp(ToInt32(Int(point + 0.5)), scale.FirstPlotPt, scale.LastPlotPt);
}

double DisplayPosition(std::int32_t point) {
  if (IsTimePlot(view.CurrentPlot)) {
    return Quotient(Quotient(point, design.SampleRateHz), view.TimeScale);
  }
  const double span = double{scale.PlotFreqUpper} - scale.PlotFreqLower;
  const double frequency = Quotient(span * Difference(point, scale.FirstPlotPt),
                                    Difference(scale.LastPlotPt, scale.FirstPlotPt)) +
                           scale.PlotFreqLower;
  return Quotient(frequency, design.FreqScale);
}

const std::string& PositionUnit() {
  return IsTimePlot(view.CurrentPlot) ? view.TimeUnit : design.FreqUnit;
}

}  // namespace halvorne
