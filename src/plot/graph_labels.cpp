#include <algorithm>
#include <cmath>

#include "persistence/file_names.h"
#include "platform/failure.h"
#include "platform/main_window.h"
#include "platform/number_text.h"
#include "platform/numbers.h"
#include "plot/catalogue.h"
#include "plot/graph.h"
#include "plot/graph_grid.h"

namespace halvorne {
namespace {

// Where blanks erase the captions that stood there before.
constexpr double kLeftBlanksX = -1.8;
constexpr double kRightBlanksX = 10.2;
constexpr const char* kBlanks = "  ";
/// Top of the caption of the x axis.
constexpr double kXAxisY = -0.2;

void SetAxisFont(Surface& surface) {
  switch (surface.Kind()) {
    case SurfaceKind::kMainPicture:
      surface.SetFontSize(8);
      break;
    case SurfaceKind::kPreview:
      surface.SetFontSize(Int(surface.HeightTwips() * 4 / 6735 + 0.5));
      break;
    case SurfaceKind::kPrinter:
      surface.SetFontSize(10);
      break;
  }
}

double HalfHeight(const Surface& surface, const std::string& text) {
  return 0.5 * std::abs(surface.TextHeight(text));
}

void PrintTitle(Surface& surface, std::int16_t pane) {
  if (pane == 1) {
    PrintCentred(surface, plot.PlotTitle, 5, 10.75);
  } else if (pane == 4) {
    PrintCentred(surface, plot.PlotTitle, 5, 19.91);
  }
}

XAxis TimeAxis() {
  return {.caption = "Time in " + view.TimeUnit,
          .lower = scale.TimeLowerText,
          .upper = scale.TimeUpperText,
          .from = scale.TimeLower,
          .to = scale.TimeUpper,
          .unit = view.TimeScale};
}

XAxis FrequencyAxis() {
  return {.caption = "Frequency in " + design.FreqUnit,
          .lower = scale.FreqLowerText,
          .upper = scale.FreqUpperText,
          .from = scale.PlotFreqLower,
          .to = scale.PlotFreqUpper,
          .unit = design.FreqScale};
}

void PrintLimits(Surface& surface, const XAxis& axis, double y) {
  PrintCentred(surface, axis.lower, 0, y);
  PrintCentred(surface, axis.upper, 10, y);
}

void PrintWhole(Surface& surface, const XAxis& axis, double y) {
  PrintCentred(surface, axis.caption, 5, y);
  PrintLimits(surface, axis, y);
  XTickValuesOn(surface, axis, y);
}

void PrintXAxis(Surface& surface) {
  PrintWhole(surface, IsTimePlot(view.CurrentPlot) ? TimeAxis() : FrequencyAxis(), kXAxisY);
}

void PrintSpectrumXAxis(Surface& surface) {
  // Kept: on paper the cursor's read-out takes the caption's line, and the limits stand at y = 0.
  if (surface.Kind() == SurfaceKind::kPrinter && measured.CursorOn) {
    PrintLimits(surface, FrequencyAxis(), 0);
  } else {
    PrintWhole(surface, FrequencyAxis(), ReadOutLine(surface));
  }
}

/// Top and bottom of one vertical axis.
void PrintAxisEnds(Surface& surface, const std::string& top, const std::string& bottom, float x,
                   double halfHeight) {
  PrintCentred(surface, top, x, halfHeight + 10);
  PrintCentred(surface, bottom, x, halfHeight);
}

/// Name and unit of one vertical axis.
void PrintAxisCaption(Surface& surface, const std::string& label, const std::string& unit, float x,
                      double blanksX) {
  PrintAt(surface, blanksX, kLabelY, kBlanks);
  PrintCentred(surface, label, x, kLabelY);
  PrintAt(surface, blanksX, kUnitY, kBlanks);
  PrintCentred(surface, unit, x, kUnitY);
}

std::string DecibelText(double decibels) {
  return Format(decibels, "0.00") + " dB re 1 " + scale.PeakUnit;
}

void ShowPeakText() {
  measured.PkAmplCaption.clear();
  if (IsTimePlot(view.CurrentPlot)) {
    measured.PeakAmplText = "Pk Ampl = " + DecibelText(20 * log10(double{measured.PeakAmpl}));
    measured.PkAmplCaption = measured.PeakAmplText;
    if (IsExcitationPlot(view.CurrentPlot)) {
      // Kept: the logarithm writes back, a peak of 0 becomes 1e-38.
      const std::string impulse = "Impulse = " + DecibelText(20 * log10(measured.ImpulsePeak));
      measured.PkAmplCaption += "\r\n" + impulse;
      measured.PeakAmplText += " " + impulse;
    }
  }
  mainWindow().SetPeakLabel(measured.PkAmplCaption);
}

/// What the excitation pane's box carries in its top right corner.
std::string ExcitationTag(const std::string& unit) {
  if (design.ExciteType == 1) {
    return Format(Quotient(design.ExciteFreq, design.FreqScale), "0.000 ") + design.FreqUnit;
  }
  if (design.ExciteType == 2) {
    std::string name;
    ExtractFileName(design.ExciteFileName, name);
    return name;
  }
  return unit;
}

void PrintExcitationTexts(Surface& surface, float x) {
  const std::string unit = ExcitationUnit();
  PrintCentred(surface, unit, x, HalfHeight(surface, unit) + 5);
  const std::string tag = ExcitationTag(unit);
  PrintAt(surface, 9.8 - surface.TextWidth(tag), 9.8, tag);
}

}  // namespace

std::string ExcitationUnit() {
  if (view.CurrentPlot == 17 || view.CurrentPlot == 34) {
    return "Volts";
  }
  return view.CurrentPlot == 27 ? "MPa" : "";
}

double ReadOutLine(const Surface& surface) {
  const double height = std::abs(surface.TextHeight(setup.CursorBlank));
  // On a tall picture, where letters are small, the line would cover the caption above it.
  return std::min(-1.75 * height, kXAxisY - height);
}

void CenterIt(Surface& surface, const std::string& text, float centre, float& start) try {
  start = ToSingle(centre - surface.TextWidth(text) / 2);
} catch (...) {
  ReportFailure("CenterIt", "PLOTIT");
}

void PrintAt(Surface& surface, double x, double y, const std::string& text) try {
  surface.MoveTo(x, y);
  surface.SetFontTransparent(false);
  surface.Print(text);
} catch (...) {
  ReportFailure("PrintAt", "PLOTIT");
}

void PrintCentred(Surface& surface, const std::string& text, float centre, double y) {
  float start = 0;
  CenterIt(surface, text, centre, start);
  PrintAt(surface, start, y, text);
}

void AxisLabelOn(Surface& surface, std::int16_t pane) try {
  SetAxisFont(surface);
  surface.SetDrawWidth(1);
  PrintTitle(surface, pane);
  PrintXAxis(surface);
  if (plot.SpectrumShown) {
    PrintSpectrumXAxis(surface);
  }
  if (pane == 5) {
    return;
  }

  const double halfHeight = HalfHeight(surface, scale.LeftMaxText);
  PrintAxisEnds(surface, scale.LeftMaxText, scale.LeftMinText, -1, halfHeight);
  if (plot.DualTrace) {
    PrintAxisEnds(surface, scale.RightMaxText, scale.RightMinText, 11, halfHeight);
  }
  GetAmplLabels(view.CurrentPlot);
  PrintAxisCaption(surface, scale.LeftLabel, scale.LeftPrefix + scale.LeftUnit, -1, kLeftBlanksX);
  PrintAt(surface, kRightBlanksX, kLabelY, kBlanks);
  if (plot.DualTrace) {
    PrintAxisCaption(surface, scale.RightLabel, scale.RightPrefix + scale.RightUnit, 11,
                     kRightBlanksX);
  }
  YTickValuesOn(surface);
  if (surface.Kind() == SurfaceKind::kMainPicture) {
    ShowPeakText();
  }
} catch (...) {
  ReportFailure("AxisLabelOn", "PLOTIT");
}

void ExImAxisLabelOn(Surface& surface, std::int16_t pane) try {
  SetAxisFont(surface);
  const float x = pane == 2 ? -2.08F : 12.08F;
  const double halfHeight = HalfHeight(surface, scale.LeftMaxText);
  PrintAxisEnds(surface, scale.LeftMaxText, scale.LeftMinText, x, halfHeight);
  if (pane == 2) {
    GetAmplLabels(view.CurrentPlot);
    PrintAxisCaption(surface, scale.LeftLabel, scale.LeftPrefix + scale.LeftUnit, x, kLeftBlanksX);
    PrintAt(surface, kRightBlanksX, kLabelY, kBlanks);
  } else if (pane == 3) {
    PrintExcitationTexts(surface, x);
  }
} catch (...) {
  ReportFailure("ExImAxisLabelOn", "PLOTIT");
}

}  // namespace halvorne
