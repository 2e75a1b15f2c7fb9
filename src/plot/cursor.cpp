#include "plot/cursor.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <optional>
#include <string>

#include "platform/failure.h"
#include "platform/main_window.h"
#include "platform/number_text.h"
#include "platform/numbers.h"
#include "plot/graph.h"
#include "plot/graph_description.h"
#include "plot/graph_position.h"
#include "plot/plot_state.h"
#include "plot/reference_mark.h"

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

std::string PositionText(double position) {
  return Format(position, "##0.##0") + " " + PositionUnit();
}

std::string ValueText(double value, float magnitude, const std::string& prefix,
                      const std::string& unit) {
  const double scaled = Quotient(value, magnitude);
  if (std::abs(scaled) >= 1000 || std::abs(scaled) < 0.01) {
    return Format(value, "0.000E+00") + " " + unit;
  }
  return Format(scaled, "##0.##0") + " " + prefix + unit;
}

/// Both values at once, each through `text`: the second only where it is read out.
template <class Text>
std::string ValueTexts(const PlotPoint& values, Text text) {
  std::string both = text(values.Y1, scale.LeftMag, scale.LeftPrefix, scale.LeftUnit);
  // A spectrum runs on another x scale, so it is not read out.
  if (plot.DualTrace && !plot.SpectrumShown) {
    both += " / " + text(values.Y2, scale.RightMag, scale.RightPrefix, scale.RightUnit);
  }
  return both;
}

std::string ReadOutText() {
  const std::int32_t point = mainWindow().CursorValue();
  const std::string position = PositionText(DisplayPosition(point));
  return ValueTexts(points.PlotData(point), ValueText) + " at " + position;
}

/// As ValueText; but no difference is a plain zero.
std::string DifferenceText(double value, float magnitude, const std::string& prefix,
                           const std::string& unit) {
  return value == 0 ? Format(0, "0.000") + " " + prefix + unit
                    : ValueText(value, magnitude, prefix, unit);
}

/// From the reference mark to the cursor; empty without a mark.
std::string DifferencesText() {
  const std::optional<std::int32_t> mark = MarkPoint();
  if (!mark) {
    return "";
  }
  const std::int32_t point = mainWindow().CursorValue();
  const PlotPoint& here = points.PlotData(point);
  const PlotPoint& there = points.PlotData(*mark);
  return "   \u0394 " + ValueTexts({here.Y1 - there.Y1, here.Y2 - there.Y2}, DifferenceText) +
         ", " + PositionText(DisplayPosition(point) - DisplayPosition(*mark));
}

/// Room for the read-out on its line: the picture's width, or what a spectrum's axis leaves.
double ReadOutRoom(const Surface& surface) {
  constexpr double width = 13.8;
  if (!plot.SpectrumShown) {
    return width;
  }
  return 10 -
         std::max(surface.TextWidth(scale.FreqLowerText), surface.TextWidth(scale.FreqUpperText));
}

/// Blanks that erase whatever read-out stood in that room.
std::string BlanksOver(const Surface& surface) {
  const double count = std::ceil(Quotient(ReadOutRoom(surface), surface.TextWidth(" ")));
  std::string blanks(static_cast<std::size_t>(count), ' ');
  return blanks;
}

/// Prints a read-out with its differences on its line, in smaller letters where they don't fit.
void PrintReadOut(Surface& surface, const std::string& text, double y) {
  constexpr double size = 8;
  const double width = surface.TextWidth(text);
  const double room = ReadOutRoom(surface);
  if (width <= room) {
    PrintCentred(surface, text, 5, y);
    return;
  }
  surface.SetFontSize(size * room / width);
  PrintCentred(surface, text, 5, y);
  surface.SetFontSize(size);
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

void PutCursorAt(std::int32_t point) {
  if (!measured.CursorOn) {
    Cursor1_Click();
  }
  mainWindow().SetCursorValue(point);
}

void RedrawKeepingCursor() try {
  MainWindow& window = mainWindow();
  const bool on = measured.CursorOn;
  const std::int32_t point = window.CursorValue();
  if (on) {
    Cursor1_Click();
  }
  PlotGraphOn(window.Picture1());
  if (on) {
    PutCursorAt(point);
  }
} catch (...) {
  ReportFailure("RedrawKeepingCursor", kWindow);
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
  if (surface.Kind() == SurfaceKind::kMainPicture && MarkSet()) {
    measured.ReadOut += on ? DifferencesText() : std::string();
    PrintCentred(surface, BlanksOver(surface), 5, y);
    PrintReadOut(surface, measured.ReadOut, y);
  } else {
    PrintCentred(surface, setup.CursorBlank, 5, y);
    PrintCentred(surface, measured.ReadOut, 5, y);
  }
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
