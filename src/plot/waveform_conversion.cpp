#include <cmath>

#include "platform/failure.h"
#include "platform/numbers.h"
#include "plot/conversions.h"
#include "plot/measures.h"

namespace halvorne {
namespace {

/// A waveform with its quadrature, its spectrum in dB and where its converted form goes.
struct Conversion {
  std::int16_t index;
  const TimeCurve& re;
  const TimeCurve& im;
  const TimeCurve& spectrum;
  TimePoints& destination;

  bool IsLog() const { return index == 2 || index == 5 || index == 8; }
  bool HasSpectrum() const { return index >= 6 && index <= 8; }
  double Envelope(std::int32_t i) const { return Finite(std::sqrt(re(i) * re(i) + im(i) * im(i))); }
};

void Fill(const Conversion& wfm) {
  TimePoints& to = wfm.destination;
  switch (wfm.index) {
    case 0:
    case 6:
      for (std::int32_t i = 0; i < design.NoTimePts; ++i) {
        to(i) = {wfm.re(i), 0};
      }
      break;
    case 1:
    case 2:
    case 7:
    case 8:
      for (std::int32_t i = 0; i < design.NoTimePts; ++i) {
        to(i) = {wfm.Envelope(i), 0};
      }
      break;
    case 3:
      for (std::int32_t i = 0; i < design.NoTimePts; ++i) {
        to(i) = {wfm.re(i), wfm.im(i)};
      }
      break;
    case 4:
    case 5:
      for (std::int32_t i = 0; i < design.NoTimePts; ++i) {
        to(i) = {wfm.Envelope(i), std::fabs(wfm.re(i))};
      }
      break;
    default:
      return;
  }
  plot.DualTrace = wfm.index >= 3;
}

void TakeLogarithms(const Conversion& wfm) {
  constexpr std::int16_t logEnvelopeAndWaveform = 5;
  for (std::int32_t i = 0; i < design.NoTimePts; ++i) {
    PlotPoint& point = wfm.destination(i);
    point.Y1 = Finite(20 * log10(point.Y1));
    if (wfm.index == logEnvelopeAndWaveform) {
      point.Y2 = Finite(20 * log10(point.Y2));
    }
  }
  plot.AmplLog = true;
}

/// The second trace over the points of the sweep, and its amplitudes for the band measure.
void AddSpectrum(const Conversion& wfm, int plotNumber) {
  TimePoints& to = wfm.destination;
  for (std::int32_t i = 0; i <= design.NoFreqPts; ++i) {
    double& amplitude = plot.MeasBuf(i);
    if (IsExcitationPlot(plotNumber)) {
      to(i).Y2 = wfm.spectrum(i);
      // Kept: the band is the response's, whichever waveform is converted.
      amplitude = Finite(std::pow(10, wave.ResponseSpec(i) / 20));
    } else {
      const PlotPoint& raw = points.RawData(i);
      amplitude = Finite(std::sqrt(raw.Y1 * raw.Y1 + raw.Y2 * raw.Y2));
      to(i).Y2 = Finite(20 * log10(amplitude));
    }
  }
  for (std::int32_t i = design.NoFreqPts + 1; i < design.NoTimePts; ++i) {
    to(i).Y2 = -500.0;
  }
  plot.SpectrumShown = true;
  measured.CFBWValid = true;
  CFBWCalc(plot.MeasBuf, 20);
}

/// The pulse is measured on the rectified trace, or on the envelope where the trace holds dB.
void MeasurePulse(const Conversion& wfm) {
  if (wfm.IsLog()) {
    for (std::int32_t i = 0; i < design.NoTimePts; ++i) {
      plot.MeasBuf(i) = wfm.Envelope(i);
    }
  } else if (wfm.index >= 0 && wfm.index <= 8) {
    for (std::int32_t i = 0; i < design.NoTimePts; ++i) {
      plot.MeasBuf(i) = std::fabs(wfm.destination(i).Y1);
    }
  }
  PulseWidthCalc(plot.MeasBuf);
  measured.PulseWidthValid = true;
  measured.AttenValid = true;
}

}  // namespace

void WfmConvert(std::int16_t index, std::int16_t plotNumber, const TimeCurve& re,
                const TimeCurve& im, const TimeCurve& spectrum, TimePoints& destination) try {
  const Conversion wfm{index, re, im, spectrum, destination};
  Fill(wfm);
  if (wfm.IsLog()) {
    TakeLogarithms(wfm);
  }
  if (wfm.HasSpectrum()) {
    AddSpectrum(wfm, plotNumber);
  }
  MeasurePulse(wfm);
} catch (...) {
  ReportFailure("WfmConvert", "PLOTIT");
}

}  // namespace halvorne
