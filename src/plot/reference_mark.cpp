#include "plot/reference_mark.h"

#include "platform/failure.h"
#include "platform/main_window.h"
#include "platform/numbers.h"
#include "plot/cursor.h"
#include "plot/graph_position.h"
#include "plot/plot_state.h"

namespace halvorne {
namespace {

constexpr Colour kMarkColour{150, 0, 130};

ReferenceMark& MarkOfPlot() {
  return IsTimePlot(view.CurrentPlot) ? reading.TimeMark : reading.FreqMark;
}

/// Frequency or time of a point, Hz or s.
double PositionOf(std::int32_t point) {
  return IsTimePlot(view.CurrentPlot) ? Quotient(point, design.SampleRateHz)
                                      : point * design.FreqStep + design.FreqStart;
}

/// Place of the mark among the points, as a fraction.
double PointsToMark(const ReferenceMark& mark) {
  return IsTimePlot(view.CurrentPlot) ? mark.Position * design.SampleRateHz
                                      : Quotient(mark.Position - design.FreqStart, design.FreqStep);
}

std::int32_t LastPointOfPlot() {
  return IsTimePlot(view.CurrentPlot) ? design.NoTimePts - 1 : design.NoFreqPts;
}

}  // namespace

bool MarkSet() {
  return MarkOfPlot().Set;
}

std::optional<std::int32_t> MarkPoint() {
  const ReferenceMark& mark = MarkOfPlot();
  if (!mark.Set) {
    return std::nullopt;
  }
  const double point = Int(PointsToMark(mark) + 0.5);
  if (!(0 <= point && point <= LastPointOfPlot())) {
    return std::nullopt;
  }
  return ToInt32(point);
}

void ToggleMark() try {
  ReferenceMark& mark = MarkOfPlot();
  if (mark.Set) {
    mark.Set = false;
  } else {
    if (!measured.CursorOn) {
      Cursor1_Click();
    }
    mark = {true, PositionOf(mainWindow().CursorValue())};
  }
  RedrawKeepingCursor();
} catch (...) {
  ReportFailure("ToggleMark", "PLOTIT");
}

void ReferenceMarkOn(Surface& surface) {
  if (!MarkSet() || surface.Kind() != SurfaceKind::kMainPicture) {
    return;
  }
  const std::optional<std::int32_t> point = MarkPoint();
  if (!point || *point < scale.FirstPlotPt || *point > scale.LastPlotPt) {
    return;
  }
  const double x = BoxX(*point);
  surface.SetForeColor(kMarkColour);
  surface.Line(x, 0, x, 10);
  surface.SetForeColor(kBlack);
}

}  // namespace halvorne
