#include "timedomain/responses.h"

#include <algorithm>

#include "platform/failure.h"
#include "platform/numbers.h"
#include "platform/vector_registers.h"
#include "timedomain/levels.h"
#include "timedomain/phasors.h"
#include "timedomain/plot_points.h"
#include "timedomain/real_analysis.h"
#include "timedomain/sample_blocks.h"
#include "timedomain/sample_rate.h"
#include "timedomain/transform.h"
#include "timedomain/transform_passes.h"
#include "timedomain/wave_state.h"
#include "timedomain/wide.h"
#include "timedomain/zero.h"

namespace halvorne {
namespace {

/// A sweep that starts at or below this frequency, Hz, starts at 0.
constexpr double kNoShift = 1e-5;

/// Spectrum of the excitation within the band, so that ExciteRe stays as it is.
TimeCurve exciteSpecRe;
TimeCurve exciteSpecIm;

/// Samples of the record, as far as there is room for them.
long RecordedSamples() {
  return std::min<long>(design.NoTimePts, TimeCurve::last + 1);
}

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

/// Product of two spectra and the powers of all three.
struct BandBlock {
  SampleBlock re, im;
  SampleBlock impulse, excite, response;
};

HALVORNE_WIDE void MultiplyBins(const double* hRe, const double* hIm, const double* eRe,
                                const double* eIm, long count, BandBlock& block) {
  HALVORNE_NO_OVERLAP
  for (long i = 0; i < count; ++i) {
    const double re = eRe[i] * hRe[i] - eIm[i] * hIm[i];
    const double im = eRe[i] * hIm[i] + eIm[i] * hRe[i];
    block.re[i] = re;
    block.im[i] = im;
    block.impulse[i] = hRe[i] * hRe[i] + hIm[i] * hIm[i];
    block.excite[i] = eRe[i] * eRe[i] + eIm[i] * eIm[i];
    block.response[i] = re * re + im * im;
  }
}

/// Spectrum of the response and the levels of all three within the band. The impulse response's
/// spectrum stands in TmpExciteWfm, TmpWorkIm.
void MultiplyBand(const TimeCurve& exciteRe, const TimeCurve& exciteIm) {
  ForBlocks(wave.ConvLoIdx, wave.ConvHiIdx, TimeCurve::count, [&](long first, long count) {
    const long bin = first - wave.ConvLoIdx;
    BandBlock block;
    MultiplyBins(draft.TmpExciteWfm.data() + first, wave.TmpWorkIm.data() + first,
                 exciteRe.data() + first, exciteIm.data() + first, count, block);
    PowersToLevels(block.impulse, count);
    PowersToLevels(block.excite, count);
    PowersToLevels(block.response, count);
    StoreFinite({{block.re, wave.ResponseRe.data() + first},
                 {block.im, wave.ResponseIm.data() + first},
                 {block.impulse, wave.ImpulseSpec.data() + bin},
                 {block.excite, wave.ExciteSpec.data() + bin},
                 {block.response, wave.ResponseSpec.data() + bin}},
                count);
  });
}

/// Drops the negative frequencies of the excitation's spectrum and doubles the others.
/// Kept: the bin of frequency zero is doubled with the rest.
void MakeExcitationAnalytic() {
  const long half = design.NoTimePts / 2;
  Zero(half, LastSample(), exciteSpecRe, wave.ExciteIm);
  for (long i = 0; i < half; ++i) {
    exciteSpecRe(i) = Finite(2 * exciteSpecRe(i));
    wave.ExciteIm(i) = Finite(2 * wave.ExciteIm(i));
  }
}

/// A curve's record to the same samples of another.
void CopyRecord(const TimeCurve& from, TimeCurve& to) {
  if (design.NoTimePts > 0) {
    std::copy_n(from.data(), RecordedSamples(), to.data());
  }
  if (design.NoTimePts > static_cast<std::int32_t>(TimeCurve::count)) {
    RaiseSubscript();
  }
}

/// FFTCalc and FFTInvCalc of a record; they themselves where they have something to tell.
void TransformRecord(TimeCurve& re, TimeCurve& im, bool inverse) {
  const std::int32_t n = design.NoTimePts;
  if (IsTransformLength(n) && FastTransform(re.data(), im.data(), n, inverse)) {
    return;
  }
  if (inverse) {
    FFTInvCalc(re, im, n);
  } else {
    FFTCalc(re, im, n);
  }
}

/// The excitation's spectrum and quadrature by the short way of real waveforms. False where the
/// band reaches above half the sample rate, or the short way is not open.
bool AnalyseExcitation() {
  const std::int32_t n = design.NoTimePts;
  return IsTransformLength(n) && wave.ConvHiIdx <= n / 2 &&
         AnalyseReal(wave.ExciteRe.data(), n, exciteSpecRe.data(), exciteSpecIm.data(),
                     wave.ExciteIm.data());
}

/// The response's spectrum: nothing outside the band.
void MakeResponseSpectrum(const TimeCurve& exciteRe, const TimeCurve& exciteIm) {
  Zero(0, design.NoFreqPts, wave.ImpulseSpec, wave.ExciteSpec, wave.ResponseSpec);
  Zero(0, wave.ConvLoIdx - 1L, wave.ResponseRe, wave.ResponseIm);
  MultiplyBand(exciteRe, exciteIm);
  Zero(wave.ConvHiIdx + 1L, LastSample(), wave.ResponseRe, wave.ResponseIm);
}

HALVORNE_WIDE void Turn(const double* re, const double* im, double* cosines, double* sines) {
  HALVORNE_NO_OVERLAP
  for (long i = 0; i < Phasors::kRow; ++i) {
    const double c = cosines[i];
    const double s = sines[i];
    cosines[i] = c * re[i] - s * im[i];
    sines[i] = c * im[i] + s * re[i];
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
  TransformRecord(wave.ImpulseRe, wave.ImpulseIm, true);
  if (design.FreqStart <= kNoShift) {
    return;
  }
  const Phasors phasors(Quotient(Finite(design.FreqStart * kTwoPi * design.NoFreqPts),
                                 Finite((design.FreqStop - design.FreqStart) * design.NoTimePts)));
  static_assert(Phasors::kRow == kSampleBlock);
  ForBlocks(0, design.NoTimePts - 1L, TimeCurve::count, [&](long first, long count) {
    double* const re = wave.ImpulseRe.data() + first;
    double* const im = wave.ImpulseIm.data() + first;
    SampleBlock turnedRe;
    SampleBlock turnedIm;
    phasors.Fill(static_cast<int>(first), turnedRe, turnedIm);
    Turn(re, im, turnedRe, turnedIm);
    StoreFinite({{turnedRe, re}, {turnedIm, im}}, count);
  });
} catch (...) {
  ReportFailure("WaveformIFT", "FFT");
}

void Convolve() try {
  CleanVectorRegisters();
  CopyRecord(wave.ImpulseRe, draft.TmpExciteWfm);
  CopyRecord(wave.ImpulseIm, wave.TmpWorkIm);
  LocateBand();
  TransformRecord(draft.TmpExciteWfm, wave.TmpWorkIm, false);
  if (AnalyseExcitation()) {
    MakeResponseSpectrum(exciteSpecRe, exciteSpecIm);
  } else {
    Zero(0, TimeCurve::last, exciteSpecRe);
    CopyRecord(wave.ExciteRe, exciteSpecRe);
    Zero(0, LastSample(), wave.ExciteIm);
    TransformRecord(exciteSpecRe, wave.ExciteIm, false);
    MakeResponseSpectrum(exciteSpecRe, wave.ExciteIm);
    MakeExcitationAnalytic();
    TransformRecord(exciteSpecRe, wave.ExciteIm, true);
  }
  TransformRecord(wave.ResponseRe, wave.ResponseIm, true);
} catch (...) {
  ReportFailure("Convolve", "FFT");
}

}  // namespace halvorne
