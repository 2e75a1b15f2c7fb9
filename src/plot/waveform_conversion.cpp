#include <algorithm>
#include <cmath>

#include "platform/failure.h"
#include "platform/numbers.h"
#include "plot/conversions.h"
#include "plot/measures.h"
#include "timedomain/levels.h"
#include "timedomain/sample_blocks.h"
#include "timedomain/wide.h"

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
  bool ShowsEnvelope() const { return index >= 1 && index <= 8 && index != 3 && index != 6; }
};

/// Calls block(first, count) for the samples of the record.
template <class Block>
void ForRecord(Block block) {
  ForBlocks(0, design.NoTimePts - 1L, TimeCurve::count, block);
}

HALVORNE_WIDE void Pair(const double* first, const double* second, PlotPoint* points, long count) {
  HALVORNE_NO_OVERLAP
  for (long i = 0; i < count; ++i) {
    points[i] = {first[i], second[i]};
  }
}

/// The two channels of every sample; behind the spectrum that a form has beside its waveform the
/// second one is -500 dB.
void Fill(const Conversion& wfm) {
  if (wfm.index < 0 || wfm.index > 8) {
    return;
  }
  SampleBlock envelope;
  SampleBlock rectified;
  SampleBlock constant;
  std::fill_n(constant, kSampleBlock, wfm.HasSpectrum() ? -500.0 : 0.0);
  ForRecord([&](long first, long count) {
    const double* const re = wfm.re.data() + first;
    const double* const im = wfm.im.data() + first;
    const double* second = constant;
    if (wfm.index == 3) {
      second = im;
    } else if (wfm.index == 4 || wfm.index == 5) {
      Rectify(re, rectified, count);
      second = rectified;
    }
    PlotPoint* const to = wfm.destination.data() + first;
    if (!wfm.ShowsEnvelope()) {
      Pair(re, second, to, count);
      return;
    }
    Envelope(re, im, envelope, count);
    const long good = LeadingFinite(envelope, count);
    Pair(envelope, second, to, good);
    if (good < count) {
      RaiseOverflow();
    }
  });
  plot.DualTrace = wfm.index >= 3;
}

void TakeLogarithms(const Conversion& wfm) {
  constexpr std::int16_t logEnvelopeAndWaveform = 5;
  const auto take = [](double PlotPoint::*channel, PlotPoint* to, long count) {
    SampleBlock levels;
    for (long i = 0; i < count; ++i) {
      levels[i] = to[i].*channel;
    }
    AmplitudesToLevels(levels, count);
    for (long i = 0; i < count; ++i) {
      to[i].*channel = levels[i];
    }
  };
  ForRecord([&](long first, long count) {
    PlotPoint* const to = wfm.destination.data() + first;
    take(&PlotPoint::Y1, to, count);
    if (wfm.index == logEnvelopeAndWaveform) {
      take(&PlotPoint::Y2, to, count);
    }
  });
  plot.AmplLog = true;
}

/// The levels of the pane's spectrum as second trace, and for the band measure the amplitudes.
/// Kept: the band is the response's, whichever waveform is converted.
void AddConvolvedSpectrum(const Conversion& wfm) {
  ForBlocks(0, design.NoFreqPts, TimeCurve::count, [&](long first, long count) {
    for (long i = first; i < first + count; ++i) {
      wfm.destination(i).Y2 = wfm.spectrum(i);
    }
    SampleBlock amplitudes;
    LevelsToAmplitudes(wave.ResponseSpec.data() + first, amplitudes, count);
    StoreFinite({{amplitudes, plot.MeasBuf.data() + first}}, count);
  });
}

/// The same of a plot whose spectrum is the gathered curve.
void AddGatheredSpectrum(const Conversion& wfm) {
  for (std::int32_t i = 0; i <= design.NoFreqPts; ++i) {
    double& amplitude = plot.MeasBuf(i);
    const PlotPoint& raw = points.RawData(i);
    amplitude = Finite(std::sqrt(raw.Y1 * raw.Y1 + raw.Y2 * raw.Y2));
    wfm.destination(i).Y2 = Finite(20 * log10(amplitude));
  }
}

void AddSpectrum(const Conversion& wfm, int plotNumber) {
  if (IsExcitationPlot(plotNumber)) {
    AddConvolvedSpectrum(wfm);
  } else {
    AddGatheredSpectrum(wfm);
  }
  plot.SpectrumShown = true;
  measured.CFBWValid = true;
  CFBWCalc(plot.MeasBuf, 20);
}

/// The pulse is measured on the rectified trace, or on the envelope where that is shown.
void MeasurePulse(const Conversion& wfm) {
  if (wfm.ShowsEnvelope()) {
    ForRecord([&](long first, long count) {
      SampleBlock envelope;
      Envelope(wfm.re.data() + first, wfm.im.data() + first, envelope, count);
      StoreFinite({{envelope, plot.MeasBuf.data() + first}}, count);
    });
  } else if (wfm.index >= 0 && wfm.index <= 8) {
    ForRecord([&](long first, long count) {
      Rectify(wfm.re.data() + first, plot.MeasBuf.data() + first, count);
    });
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
