#include "timedomain/real_analysis.h"

#include <new>

#include "platform/work_room.h"
#include "timedomain/transform_passes.h"
#include "timedomain/twiddles.h"
#include "timedomain/wide.h"

namespace halvorne {
namespace {

/// Samples in even places as real parts, those in odd ones as imaginary parts. The gap keeps both
/// parts of a sample in different sets of a cache.
struct HalfRecord {
  double re[32768];
  double gap[24];
  double im[32768];
};
static_assert(sizeof(HalfRecord) <= kWorkRoom);

HALVORNE_WIDE void Split(const double* samples, long count, HalfRecord& half) {
  HALVORNE_NO_OVERLAP
  for (long i = 0; i < count; ++i) {
    half.re[i] = samples[2 * i];
    half.im[i] = samples[2 * i + 1];
  }
}

HALVORNE_WIDE void Join(const HalfRecord& half, double* samples, long count) {
  HALVORNE_NO_OVERLAP
  for (long i = 0; i < count; ++i) {
    samples[2 * i] = half.re[i];
    samples[2 * i + 1] = half.im[i];
  }
}

/// From the half record's transform Z to the waveform's spectrum E and the transform of the
/// quadrature's half record, two bins at a time, k and r = count - k.
///
/// A = (Z(k) + conj Z(r)) / 2 and B = (Z(k) - conj Z(r)) / 2j are the transforms of the samples in
/// even and odd places, w the twiddle of k. E(k) = A + wB and conj E(r) = A - wB. The quadrature
/// has -j E at positive frequencies and j E at negative ones; taken apart into even and odd places
/// in the same way that is P - jQ at k and -conj(P + jQ) at r, with P = conj(w) A and Q = wB.
HALVORNE_WIDE void Unfold(HalfRecord& half, long count, StageTwiddles twiddles, double* re,
                          double* im) {
  double* const zRe = half.re;
  double* const zIm = half.im;
  re[0] = zRe[0] + zIm[0];
  im[0] = 0;
  re[count] = zRe[0] - zIm[0];
  im[count] = 0;
  zRe[0] = 0;  // frequency zero has no quadrature, nor has half the sample rate
  zIm[0] = 0;
  HALVORNE_NO_OVERLAP
  for (long k = 1; k <= count / 2; ++k) {
    const long r = count - k;
    const double aRe = (zRe[k] + zRe[r]) / 2;
    const double aIm = (zIm[k] - zIm[r]) / 2;
    const double bRe = (zIm[k] + zIm[r]) / 2;
    const double bIm = (zRe[r] - zRe[k]) / 2;
    const double wRe = twiddles.cosine[k];
    const double wIm = twiddles.sine[k];
    const double pRe = wRe * aRe + wIm * aIm;
    const double pIm = wRe * aIm - wIm * aRe;
    const double qRe = wRe * bRe - wIm * bIm;
    const double qIm = wRe * bIm + wIm * bRe;
    re[k] = aRe + qRe;
    im[k] = aIm + qIm;
    re[r] = aRe - qRe;
    im[r] = qIm - aIm;
    zRe[k] = pRe + qIm;
    zIm[k] = pIm - qRe;
    zRe[r] = qIm - pRe;
    zIm[r] = pIm + qRe;
  }
}

}  // namespace

bool AnalyseReal(const double* samples, std::int32_t n, double* re, double* im,
                 double* quadrature) {
  const std::int32_t count = n / 2;
  if (count < kFastLength) {
    return false;
  }
  HalfRecord& half = *new (WorkRoom().data()) HalfRecord;
  Split(samples, count, half);
  if (!FastTransform(half.re, half.im, count, false)) {
    return false;
  }
  Unfold(half, count, TwiddlesOfStage(count), re, im);
  if (!FastTransform(half.re, half.im, count, true)) {
    return false;
  }
  Join(half, quadrature, count);
  return true;
}

}  // namespace halvorne
