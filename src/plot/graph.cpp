#include "plot/graph.h"

#include <optional>
#include <utility>

#include "platform/failure.h"
#include "platform/main_window.h"
#include "platform/numbers.h"
#include "platform/vector_registers.h"
#include "plot/axis_scaling.h"
#include "plot/band_marks.h"
#include "plot/cursor.h"
#include "plot/graph_description.h"
#include "plot/graph_grid.h"
#include "plot/held_designs.h"
#include "plot/held_drawing.h"
#include "plot/measures.h"
#include "plot/reference_mark.h"
#include "plot/trace.h"
#include "plot/trace_colours.h"

namespace halvorne {
namespace {

/// Scale by pane and surface: main picture, preview, printer. The large negative bottoms of the
/// last two leave the lower part of the page to the report.
constexpr Corners kScales[4][3] = {
    {{-2, 11, 12, -2}, {-2.35, 12.65, 12.35, -15.65}, {-2, 11.5, 12, -14.5}},
    {{-4.17, 12.5, 25, -20}, {-4.9, 16.63, 25.73, -54.13}, {-4.17, 13.75, 25, -51.25}},
    {{-15, 12.5, 14.17, -20}, {-15.73, 16.63, 14.9, -54.13}, {-15, 13.75, 14.17, -51.25}},
    {{-2, 20.37, 12, -3.7}, {-2.35, 23.43, 12.35, -28.98}, {-2, 21.3, 12, -26.85}},
};

void SetScale(Surface& surface, std::int16_t pane) {
  const Corners& corners = kScales[pane - 1][static_cast<int>(surface.Kind())];
  surface.Scale(corners.x1, corners.y1, corners.x2, corners.y2);
}

void DrawPane(Surface& surface, std::int16_t pane, const TimePoints& array) {
  CleanVectorRegisters();
  SetScale(surface, pane);
  PlotItOn(surface, scale.FirstPlotPt, scale.LastPlotPt, pane, array);
}

/// What the small panes, which always scale by themselves, must not take from a manual scale.
class SavedAmplScale {
 public:
  void Restore() const {
    scale.LeftMax = LeftMax_;
    scale.LeftMin = LeftMin_;
    scale.LeftMag = LeftMag_;
    scale.RightMax = RightMax_;
    scale.RightMin = RightMin_;
    scale.RightMag = RightMag_;
  }

 private:
  float LeftMax_ = scale.LeftMax, LeftMin_ = scale.LeftMin, LeftMag_ = scale.LeftMag;
  float RightMax_ = scale.RightMax, RightMin_ = scale.RightMin, RightMag_ = scale.RightMag;
};

/// A normalised excitation keeps head room.
void WidenExcitationScale() {
  // Kept: exactly 1 and -1 only; any other end stays as the autoscale made it.
  if (scale.LeftMax == 1.0F) {
    scale.LeftMax = 1.25F;
  }
  if (scale.LeftMin == -1.0F) {
    scale.LeftMin = -1.25F;
  }
  SetWaveformRightAxis(mainWindow().PlotTypeIndex());
  AxisEndTexts();
}

void ScaleAndLabel(Surface& surface, std::int16_t pane, const TimePoints& array) {
  const bool small = pane == 2 || pane == 3;
  GetAmplScale(array, small || view.AmplAuto);
  if (pane == 3) {
    WidenExcitationScale();
  }
  if (small) {
    ExImAxisLabelOn(surface, pane);
  } else {
    AxisLabelOn(surface, pane);
  }
}

void DrawFirstTrace(Surface& surface, std::int32_t first, std::int32_t last,
                    const TimePoints& array) {
  DrawTrace(surface, {.array = array,
                      .channel = &PlotPoint::Y1,
                      .start = first,
                      .origin = first,
                      .intervals = ToInt32(Difference(last, first)),
                      .min = scale.LeftMin,
                      .max = scale.LeftMax});
}

void DrawSecondTrace(Surface& surface, std::int32_t first, std::int32_t last,
                     const TimePoints& array) {
  const std::int32_t origin = plot.SpectrumShown ? 0 : first;
  const std::int32_t end = plot.SpectrumShown ? design.NoFreqPts : last;
  // A black-and-white printout still tells the traces apart.
  surface.SetDrawStyle(surface.Kind() == SurfaceKind::kPrinter ? kDots : kSolid);
  surface.SetForeColor(kSecondTraceColour);
  DrawTrace(surface, {.array = array,
                      .channel = &PlotPoint::Y2,
                      // Kept: also a spectrum starts with the value of the first point shown.
                      .start = first,
                      .origin = origin,
                      // Kept: counted in 16 bits.
                      .intervals = ToInt16(Difference(end, origin)),
                      .min = scale.RightMin,
                      .max = scale.RightMax});
  surface.SetDrawStyle(kSolid);
  surface.SetForeColor(kBlack);
}

/// The report tells of one design, so on paper the scale looks at no other. The scale of the main
/// picture, which its cursor reads, comes back behind it.
class ScaleOfPaper {
 public:
  explicit ScaleOfPaper(const Surface& surface)
      : all_(std::exchange(comparison.ScaleToAll,
                           comparison.ScaleToAll && surface.Kind() == SurfaceKind::kMainPicture)) {
    if (all_ && !comparison.ScaleToAll) {
      shown_ = scale;
    }
  }
  ~ScaleOfPaper() {
    if (shown_) {
      scale = *shown_;
    }
    comparison.ScaleToAll = all_;
  }
  ScaleOfPaper(const ScaleOfPaper&) = delete;
  ScaleOfPaper& operator=(const ScaleOfPaper&) = delete;

 private:
  bool all_;
  std::optional<PlotScale> shown_;
};

/// The graphs of the plot on show, each in its pane.
void DrawPanes(Surface& surface) {
  if (!IsExcitationPlot(view.CurrentPlot)) {
    DrawPane(surface, 1, points.PlotData);
    return;
  }
  if (!view.AmplAuto) {
    GetAmplScale(points.PlotData, view.AmplAuto);
  }
  const SavedAmplScale saved;
  DrawPane(surface, 2, points.PlotDataImpulse);
  DrawPane(surface, 3, points.PlotDataExcite);
  if (!view.AmplAuto) {
    saved.Restore();
  }
  DrawPane(surface, 4, points.PlotData);
}

}  // namespace

const Corners& CursorPaneCorners() {
  const std::size_t pane = IsExcitationPlot(view.CurrentPlot) ? 4 : 1;
  return kScales[pane - 1][static_cast<int>(SurfaceKind::kMainPicture)];
}

void PlotGraphOn(Surface& surface) try {
  const bool onMainPicture = surface.Kind() == SurfaceKind::kMainPicture;
  if (onMainPicture) {
    DisplayCFBW();
    DisplayPulseWidth();
    DisplayAtten();
  }
  if (surface.Kind() != SurfaceKind::kPrinter) {
    surface.Cls();
  }
  const ScaleOfPaper onPaper(surface);
  DrawPanes(surface);
  if (onMainPicture) {
    mainWindow().DescribeGraph(GraphDescription());
  }
} catch (...) {
  ReportFailure("PlotGraphOn", "PLOTIT");
}

void DrawEmptyAxes() {
  Surface& picture = mainWindow().Picture1();
  picture.Cls();
  SetScale(picture, 1);
  AxisDrawOn(picture);
  mainWindow().DescribeGraph("No plot");
}

void AxisDrawOn(Surface& surface) try {
  if (surface.Kind() != SurfaceKind::kPrinter) {
    surface.SetAutoRedraw(true);
  }
  surface.SetScaleMode(0);
  surface.SetDrawWidth(1);
  surface.SetDrawMode(kCopyPen);
  surface.SetDrawStyle(kSolid);
  surface.Box(0, 0, 10, 10);
  for (int i = 1; i <= 9; ++i) {
    surface.Line(i, 0, i, 0.13);
    surface.Line(i, 10, i, 9.87);
    surface.Line(0, i, 0.1, i);
    surface.Line(10, i, 9.9, i);
  }
} catch (...) {
  ReportFailure("AxisDrawOn", "PLOTIT");
}

void PlotItOn(Surface& surface, std::int32_t first, std::int32_t last, std::int16_t pane,
              const TimePoints& array) try {
  if (surface.Kind() == SurfaceKind::kMainPicture) {
    surface.SetAutoRedraw(true);
    if (measured.CursorOn) {
      Cursor1_Click();
    }
  }
  AxisDrawOn(surface);
  GridLinesOn(surface);
  ScaleAndLabel(surface, pane, array);
  DrawHeldDesigns(surface, first, last, pane, array);
  surface.SetDrawWidth(1);
  surface.SetForeColor(kFirstTraceColour);
  DrawFirstTrace(surface, first, last, array);
  if (plot.DualTrace) {
    DrawSecondTrace(surface, first, last, array);
  }
  if (pane == 1 || pane == 4) {
    BandMarksOn(surface);
    ReferenceMarkOn(surface);
  }
} catch (...) {
  ReportFailure("PlotItOn", "PLOTIT");
}

}  // namespace halvorne
