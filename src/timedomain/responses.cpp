#include "timedomain/responses.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "platform/failure.h"
#include "platform/numbers.h"
#include "platform/vector_registers.h"
#include "timedomain/phasors.h"
#include "timedomain/plot_points.h"
#include "timedomain/sample_rate.h"
#include "timedomain/transform.h"
#include "timedomain/wave_state.h"
#include "timedomain/zero.h"

namespace halvorne {
namespace {

/// A sweep that starts at or below this frequency, Hz, starts at 0.
constexpr double kNoShift = 1e-5;

/// Copy of the excitation and then its spectrum's real part, so that ExciteRe stays as it is.
/// Cleared before each use.
TimeCurve exciteCopy;

/// The transform bins of the sweep's band.
void LocateBand() {
  if (design.FreqStart <= kNoShift) {
    wave.ConvLoIdx = 0;
    wave.ConvHiIdx = design.NoFreqPts;
    wave.ConvLoFreq = design.FreqStart;
    wave.ConvHiFreq = design.FreqStop;
    return;
  }
  wave.ConvLoIdx = ToInt32(
      Int(Quotient(Finite(design.NoTimePts * design.FreqStart), design.SampleRateHz) + 0.5));
  wave.ConvHiIdx = ToInt32(static_cast<double>(design.NoFreqPts) + wave.ConvLoIdx);
  wave.ConvLoFreq = Finite(wave.ConvLoIdx * design.FreqStep);
  wave.ConvHiFreq = Finite(wave.ConvHiIdx * design.FreqStep);
}

/// Power of a complex number in dB.
double PowerLevel(double re, double im) {
  return 10 * log10(Finite(re * re + im * im));
}

/// Spectrum of the response and the levels of all three within the band. The impulse response's
/// spectrum stands in TmpExciteWfm, TmpWorkIm, the excitation's in exciteCopy, ExciteIm.
void MultiplyBand() {
  for (long i = wave.ConvLoIdx; i <= wave.ConvHiIdx; ++i) {
    const long bin = i - wave.ConvLoIdx;
    const double re = draft.TmpExciteWfm(i);
    const double im = wave.TmpWorkIm(i);
    const double exciteRe = exciteCopy(i);
    const double exciteIm = wave.ExciteIm(i);
    wave.ResponseRe(i) = Finite(exciteRe * re - exciteIm * im);
    wave.ResponseIm(i) = Finite(exciteRe * im + exciteIm * re);
    wave.ImpulseSpec(bin) = PowerLevel(re, im);
    wave.ExciteSpec(bin) = PowerLevel(exciteRe, exciteIm);
    wave.ResponseSpec(bin) = PowerLevel(wave.ResponseRe(i), wave.ResponseIm(i));
  }
}

/// Drops the negative frequencies of the excitation's spectrum and doubles the others.
/// Kept: the bin of frequency zero is doubled with the rest.
void MakeExcitationAnalytic() {
  const long half = design.NoTimePts / 2;
  Zero(half, LastSample(), exciteCopy, wave.ExciteIm);
  for (long i = 0; i < half; ++i) {
    exciteCopy(i) = Finite(2 * exciteCopy(i));
    wave.ExciteIm(i) = Finite(2 * wave.ExciteIm(i));
  }
}

}  // namespace

void Waveform() try {
  ValidIFT(wave.WaveformInvalid);
  if (wave.WaveformInvalid) {
    return;
  }
  CleanVectorRegisters();
  Zero(0, LastSample(), wave.ImpulseRe, wave.ImpulseIm);
  for (long i = 0; i <= design.NoFreqPts; ++i) {
    const PlotPoint& point = points.RawData(i);
    wave.ImpulseRe(i) = Finite(2 * point.Y1);
    wave.ImpulseIm(i) = Finite(2 * point.Y2);
  }
  WaveformIFT();
} catch (...) {
  ReportFailure("Waveform", "FFT");
}

void WaveformIFT() try {
  FFTInvCalc(wave.ImpulseRe, wave.ImpulseIm, design.NoTimePts);
  if (design.FreqStart <= kNoShift) {
    return;
  }
  const Phasors phasors(Quotient(Finite(design.FreqStart * kTwoPi * design.NoFreqPts),
                                 Finite((design.FreqStop - design.FreqStart) * design.NoTimePts)));
  std::array<double, Phasors::kRow> c;
  std::array<double, Phasors::kRow> s;
  for (std::int32_t first = 0; first < design.NoTimePts; first += Phasors::kRow) {
    phasors.Fill(first, c.data(), s.data());
    const long last = std::min(first + Phasors::kRow, design.NoTimePts);
    for (long i = first; i < last; ++i) {
      double& re = wave.ImpulseRe(i);
      double& im = wave.ImpulseIm(i);
      const auto k = static_cast<std::size_t>(i - first);
      const double t = Finite(c[k] * re - s[k] * im);
      im = Finite(c[k] * im + s[k] * re);
      re = t;
    }
  }
} catch (...) {
  ReportFailure("WaveformIFT", "FFT");
}

void Convolve() try {
  CleanVectorRegisters();
  Zero(0, TimeCurve::last, exciteCopy);
  for (long i = 0; i < design.NoTimePts; ++i) {
    draft.TmpExciteWfm(i) = wave.ImpulseRe(i);
    wave.TmpWorkIm(i) = wave.ImpulseIm(i);
    exciteCopy(i) = wave.ExciteRe(i);
    wave.ExciteIm(i) = 0;
  }
  LocateBand();
  FFTCalc(draft.TmpExciteWfm, wave.TmpWorkIm, design.NoTimePts);
  FFTCalc(exciteCopy, wave.ExciteIm, design.NoTimePts);
  Zero(0, design.NoFreqPts, wave.ImpulseSpec, wave.ExciteSpec, wave.ResponseSpec);
  Zero(0, wave.ConvLoIdx - 1L, wave.ResponseRe, wave.ResponseIm);
  MultiplyBand();
  Zero(wave.ConvHiIdx + 1L, LastSample(), wave.ResponseRe, wave.ResponseIm);
  MakeExcitationAnalytic();
  FFTInvCalc(exciteCopy, wave.ExciteIm, design.NoTimePts);
  FFTInvCalc(wave.ResponseRe, wave.ResponseIm, design.NoTimePts);
} catch (...) {
  ReportFailure("Convolve", "FFT");
}

}  // namespace halvorne
