#include "plot/axis_scaling.h"

#include <algorithm>

#include "platform/failure.h"
#include "platform/main_window.h"
#include "platform/number_text.h"
#include "platform/numbers.h"
#include "plot/axis_end_rounding.h"
#include "plot/catalogue.h"
#include "plot/held_curves.h"

namespace halvorne {
namespace {

constexpr const char* kEndPattern = "##0.##0";
// Kept: the upper frequency drops the zero before the point, the other texts keep it.
constexpr const char* kUpperFrequencyPattern = "###.##0";

float BelowTop(float max) {
  return ToSingle(max - setup.LogRange);
}

/// Looks at the middle of the span, so that band-edge excursions don't set the scale.
void AutoScaleFrequency(const TimePoints& array) {
  const double edge = (1 - setup.AmplWindowPercent / 100.0) * 0.5;
  const std::int32_t skipped = ToInt32(Int(edge * Difference(scale.LastPlotPt, scale.FirstPlotPt)));
  std::int32_t low = ToInt32(static_cast<double>(skipped) + scale.FirstPlotPt);
  std::int32_t high = ToInt32(Difference(scale.LastPlotPt, skipped));
  if (high <= low) {
    high = ToInt32(low + 1.0);
  }
  low = std::max(low, scale.FirstPlotPt);
  high = std::min(high, scale.LastPlotPt);

  const AxisExtremes held = HeldExtremes(low, high, array);
  AutoRange(low, high, array, held);
  if (plot.AmplLog) {
    const float max = scale.RightMax;
    const float min = scale.RightMin;
    const float magnitude = scale.RightMag;
    LogAutoRange(low, high, array, held);
    scale.RightMax = max;
    scale.RightMin = min;
    scale.RightMag = magnitude;
  }
}

void AutoScaleTime(const TimePoints& array) {
  float spectrumTop = 0;
  if (plot.SpectrumShown) {
    LogAutoRange(0, design.NoFreqPts, array, HeldSpectrumExtremes(array));
    spectrumTop = scale.RightMax;
  }
  const AxisExtremes held = HeldExtremes(scale.FirstPlotPt, scale.LastPlotPt, array);
  if (plot.AmplLog) {
    LogAutoRange(scale.FirstPlotPt, scale.LastPlotPt, array, held);
  } else {
    AutoRange(scale.FirstPlotPt, scale.LastPlotPt, array, held);
  }
  if (plot.SpectrumShown) {
    scale.RightMax = spectrumTop;
  }
}

/// Magnitude of the divisor that all-zero data give.
constexpr float kZeroDataMag = 1e-30F;

/// A right axis in degrees, whatever the data.
void SetRightDegrees(float end) {
  scale.RightMin = -end;
  scale.RightMax = end;
  if (scale.RightMag == kZeroDataMag) {
    scale.RightMag = 1;  // the ends are not those of the data, and would read 36 digits long
  }
}

void ImpedanceRule(int form) {
  switch (form) {
    case 0:
    case 1:
      scale.LeftMin = 0;
      break;
    case 4:
    case 5:
      scale.LeftMin = BelowTop(scale.LeftMax);
      break;
    default:
      return;
  }
  SetRightDegrees(90);
}

void LinearLogRule(int form) {
  if (form == 0) {
    scale.LeftMin = 0;
  } else if (form == 1 && view.CurrentPlot == 32) {
    // Kept: a loss hangs from its lowest value, not from its highest.
    scale.LeftMax = ToSingle(scale.LeftMin + setup.LogRange);
  } else if (form == 1) {
    scale.LeftMin = BelowTop(scale.LeftMax);
  }
  if (setup.PhaseDisplayOption == 0) {
    SetRightDegrees(180);
  }
}

void WaveformRule(int form) {
  switch (form) {
    case 0:
    case 3:
    case 6:
      if (-scale.LeftMin < scale.LeftMax) {
        scale.LeftMin = -scale.LeftMax;
      }
      if (-scale.LeftMax > scale.LeftMin) {
        scale.LeftMax = -scale.LeftMin;
      }
      break;
    case 1:
    case 4:
    case 7:
      scale.LeftMin = 0;
      break;
    case 2:
    case 5:
    case 8:
      scale.LeftMin = BelowTop(scale.LeftMax);
      break;
    default:
      break;
  }
  SetWaveformRightAxis(form);
}

void ApplyFormRule() {
  const CataloguePlot* shown = FindPlot(view.CurrentPlot);
  if (shown == nullptr) {
    return;
  }
  const int form = mainWindow().PlotTypeIndex();
  switch (shown->forms) {
    case FormList::kImpedance:
      return ImpedanceRule(form);
    case FormList::kLinearLog:
      return LinearLogRule(form);
    case FormList::kWaveform:
      return WaveformRule(form);
    default:
      return;
  }
}

std::string EndText(double value, double unit) {
  return Format(Quotient(value, unit), kEndPattern);
}

void TimeWindowAndTexts() {
  if (view.TimeAuto) {
    scale.TimeLower = 0;
    scale.FirstPlotPt = 0;
    scale.LastPlotPt = ToInt32(Int(design.NoTimePts * double{view.TimeWindowPercent} / 100));
    scale.TimeUpper = Finite(Quotient(scale.LastPlotPt, design.SampleRateHz));
  }
  GetTimeScale(scale.TimeUpper);
  scale.TimeLowerText = EndText(scale.TimeLower, view.TimeScale);
  scale.TimeUpperText = EndText(scale.TimeUpper, view.TimeScale);
  scale.TimeWindowText = EndText(design.TimeWindow, view.TimeScale);
}

void WholeSweep() {
  scale.PlotFreqLower = ToSingle(design.FreqStart);
  scale.PlotFreqUpper = ToSingle(design.FreqStop);
}

}  // namespace

void SetWaveformRightAxis(int form) {
  switch (form) {
    case 0:
    case 3:
      scale.RightMax = scale.LeftMax;
      scale.RightMin = scale.LeftMin;
      break;
    case 1:
    case 4:
      scale.RightMax = scale.LeftMax;
      scale.RightMin = 0;
      break;
    case 2:
    case 5:
      scale.RightMax = scale.LeftMax;
      scale.RightMin = BelowTop(scale.LeftMax);
      break;
    case 6:
    case 7:
    case 8:
      scale.RightMin = BelowTop(scale.RightMax);
      break;
    default:
      break;
  }
}

void AxisEndTexts() {
  scale.LeftMaxText = EndText(scale.LeftMax, scale.LeftMag);
  scale.LeftMinText = EndText(scale.LeftMin, scale.LeftMag);
  scale.RightMaxText = EndText(scale.RightMax, scale.RightMag);
  scale.RightMinText = EndText(scale.RightMin, scale.RightMag);
}

void GetAmplScale(const TimePoints& array, bool automatic) try {
  if (automatic) {
    if (IsTimePlot(view.CurrentPlot)) {
      AutoScaleTime(array);
    } else {
      AutoScaleFrequency(array);
    }
    ApplyFormRule();
  }
  AxisEndTexts();
  scale.LeftPrefix = EngrScale(scale.LeftMag);
  scale.RightPrefix = EngrScale(scale.RightMag);
} catch (...) {
  ReportFailure("GetAmplScale", "PLOTIT");
}

std::string EngrScale(double divisor) try {
  switch (static_cast<int>(Int(log10(divisor) + 0.5))) {
    case -12:
      return "p";
    case -9:
      return "n";
    case -6:
      return "u";
    case -3:
      return "m";
    case 0:
      return "";
    case 3:
      return "K";
    case 6:
      return "M";
    case 9:
      return "G";
    case 12:
      return "T";
    default:
      return "?";
  }
} catch (...) {
  ReportFailure("EngrScale", "PLOTIT");
  return "";
}

void GetPlotFreqTimeScale() try {
  if (IsTimePlot(view.CurrentPlot)) {
    TimeWindowAndTexts();
    if (!plot.SpectrumShown) {
      return;
    }
    if (view.FreqAuto) {
      WholeSweep();
    }
  } else if (view.FreqAuto) {
    WholeSweep();
    scale.FirstPlotPt = 0;
    scale.LastPlotPt = design.NoFreqPts;
  }
  scale.FreqLowerText = EndText(scale.PlotFreqLower, design.FreqScale);
  scale.FreqUpperText =
      Format(Quotient(scale.PlotFreqUpper, design.FreqScale), kUpperFrequencyPattern);
} catch (...) {
  ReportFailure("GetPlotFreqTimeScale", "PLOTIT");
}

}  // namespace halvorne
