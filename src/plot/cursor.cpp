#include "plot/cursor.h"

#include <cmath>
#include <string>

#include "platform/failure.h"
#include "platform/main_window.h"
#include "platform/number_text.h"
#include "platform/numbers.h"
#include "plot/graph.h"
#include "plot/graph_description.h"
#include "plot/plot_state.h"

namespace halvorne {
namespace {

constexpr const char* kWindow = "frmHalvorneMain";

/// Takes CursorX from the scroll bar.
void PlaceCursor() {
  const MainWindow& window = mainWindow();
  const double offset = Difference(window.CursorValue(), window.CursorMin());
  const double span = Difference(window.CursorMax(), window.CursorMin());
  measured.CursorX = ToSingle(Quotient(offset * 10.0, span));
}

/// Shows the line at CursorX or, drawn a second time, removes it.
void InvertCursorLine() {
  mainWindow().Picture1().Line(measured.CursorX, 0, measured.CursorX, 10, kCyan);
}

std::string PositionText(std::int32_t point) {
  double position = 0;
  std::string unit;
  if (IsTimePlot(view.CurrentPlot)) {
    position = Quotient(Quotient(point, design.SampleRateHz), view.TimeScale);
    unit = view.TimeUnit;
  } else {
    const double span = double{scale.PlotFreqUpper} - scale.PlotFreqLower;
    const double frequency = Quotient(span * Difference(point, scale.FirstPlotPt),
                                      Difference(scale.LastPlotPt, scale.FirstPlotPt)) +
                             scale.PlotFreqLower;
    position = Quotient(frequency, design.FreqScale);
    unit = design.FreqUnit;
  }
  return " at " + Format(position, "##0.##0") + " " + unit;
}

std::string ValueText(double value, float magnitude, const std::string& prefix,
                      const std::string& unit) {
  const double scaled = Quotient(value, magnitude);
  if (std::abs(scaled) >= 1000 || std::abs(scaled) < 0.01) {
    return Format(value, "0.000E+00") + " " + unit;
  }
  return Format(scaled, "##0.##0") + " " + prefix + unit;
}

std::string ReadOutText() {
  const std::int32_t point = mainWindow().CursorValue();
  const std::string position = PositionText(point);
  const PlotPoint& values = points.PlotData(point);
  std::string text = ValueText(values.Y1, scale.LeftMag, scale.LeftPrefix, scale.LeftUnit);
  // A spectrum runs on another x scale, so it is not read out.
  if (plot.DualTrace && !plot.SpectrumShown) {
    text += " / " + ValueText(values.Y2, scale.RightMag, scale.RightPrefix, scale.RightUnit);
  }
  return text + position;
}

/// Puts the cursor on the first point shown that is better than `best` and all before it.
template <class Better>
void PutCursorOnExtreme(double best, Better better) {
  if (!measured.CursorOn) {
    Cursor1_Click();
  }
  MainWindow& window = mainWindow();
  std::int32_t found = window.CursorMin();
  for (std::int32_t i = window.CursorMin(); i <= window.CursorMax(); ++i) {
    if (better(points.PlotData(i).Y1, best)) {
      best = points.PlotData(i).Y1;
      found = i;
    }
  }
  window.SetCursorValue(found);
}

}  // namespace

void Cursor1_Click() try {
  MainWindow& window = mainWindow();
  Surface& picture = window.Picture1();
  picture.SetAutoRedraw(true);
  picture.SetScaleMode(0);
  picture.SetDrawWidth(1);
  if (!measured.CursorOn) {
    window.SetCursorMin(scale.FirstPlotPt);
    window.SetCursorMax(scale.LastPlotPt);
    const double span = Difference(window.CursorMax(), window.CursorMin());
    window.SetCursorValue(ToInt32(Int(span / 2.0) + window.CursorMin()));
  }
  measured.CursorOn = !measured.CursorOn;
  if (measured.CursorOn) {
    picture.SetDrawMode(kXorPen);
    picture.SetDrawStyle(kDots);
    PlaceCursor();
    InvertCursorLine();
    CursorPrint(picture, true);
    window.SetEnabled(Item::kCursorBar, true);
    window.FocusCursorBar();
  } else {
    window.SetEnabled(Item::kCursorBar, false);
    PlaceCursor();
    InvertCursorLine();
    picture.SetDrawMode(kCopyPen);
    picture.SetDrawStyle(kSolid);
    CursorPrint(picture, false);
  }
} catch (...) {
  ReportFailure("Cursor1_Click", kWindow);
}

void HScroll1_Change() try {
  if (!measured.CursorOn) {
    return;
  }
  InvertCursorLine();
  PlaceCursor();
  InvertCursorLine();
  CursorPrint(mainWindow().Picture1(), true);
} catch (...) {
  ReportFailure("HScroll1_Change", kWindow);
}

void FindMax_Click() try {
  PutCursorOnExtreme(-1e99, [](double value, double best) { return value > best; });
} catch (...) {
  ReportFailure("FindMax_Click", kWindow);
}

void FindMin_Click() try {
  PutCursorOnExtreme(1e99, [](double value, double best) { return value < best; });
} catch (...) {
  ReportFailure("FindMin_Click", kWindow);
}

void CursorPrint(Surface& surface, bool on) try {
  measured.ReadOut = on ? ReadOutText() : std::string();
  const double y = ReadOutLine(surface);
  PrintCentred(surface, setup.CursorBlank, 5, y);
  PrintCentred(surface, measured.ReadOut, 5, y);
  if (!on && plot.SpectrumShown) {
    AxisLabelOn(surface, 5);
  }
  if (surface.Kind() == SurfaceKind::kMainPicture) {
    mainWindow().DescribeGraph(GraphDescription());
  }
} catch (...) {
  ReportFailure("CursorPrint", "PLOTIT");
}

void ClearCursor() try {
  mainWindow().SetEnabled(Item::kCursor, true);
  if (measured.CursorOn) {
    Cursor1_Click();
  }
  if (plot.SpectrumShown) {
    AxisLabelOn(mainWindow().Picture1(), 5);
  }
} catch (...) {
  ReportFailure("ClearCursor", "PLOTIT");
}

}  // namespace halvorne
