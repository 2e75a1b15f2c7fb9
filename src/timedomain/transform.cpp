#include "timedomain/transform.h"

#include <algorithm>
#include <bit>
#include <utility>

#include "platform/failure.h"
#include "platform/numbers.h"
#include "platform/vector_registers.h"
#include "timedomain/phasors.h"
#include "timedomain/transform_passes.h"
#include "timedomain/twiddles.h"
#include "timedomain/wave_state.h"

namespace halvorne {
namespace {

/// Divides by a power of two, which its reciprocal does exactly.
void Divide(double* x, std::int32_t n) {
  const double factor = 1.0 / n;
  for (std::int32_t i = 0; i < n; ++i) {
    x[i] *= factor;
  }
}

/// Fills the tables unless they still are those of this length and direction.
void FillTwiddles(std::int32_t n, bool inverse) {
  const double step = Quotient(kTwoPi, n);
  const std::int32_t made = inverse ? n : -n;
  if (wave.TwiddleLength == made) {
    return;
  }
  wave.TwiddleLength = 0;
  const Phasors phasors(inverse ? step : -step);
  for (std::int32_t first = 0; first < n; first += Phasors::kRow) {
    phasors.Fill(first, wave.TwiddleCos.data() + first, wave.TwiddleSin.data() + first);
  }
  if (n >= kFastLength) {
    // Where the fast transform takes its own, they are the same to the bit.
    const StageTwiddles last = TwiddlesOfStage(n / 2);
    std::copy_n(last.cosine, n / 2, wave.TwiddleCos.data());
    std::transform(last.sine, last.sine + n / 2, wave.TwiddleSin.data(),
                   [inverse](double sine) { return inverse ? -sine : sine; });
  }
  wave.TwiddleLength = made;
}

void ReverseOrder(double* re, double* im, std::int32_t n) {
  for (std::int32_t i = 0, j = 0; i < n - 1; ++i) {
    if (i < j) {
      std::swap(re[i], re[j]);
      std::swap(im[i], im[j]);
    }
    std::int32_t k = n / 2;
    for (; k <= j; k /= 2) {
      j -= k;
    }
    j += k;
  }
}

/// The stages one after the other, every result held against overflow.
void PlainStages(double* re, double* im, std::int32_t n) {
  for (std::ptrdiff_t half = 1, step = n / 2; half < n; half *= 2, step /= 2) {
    for (std::ptrdiff_t j = 0; j < half; ++j) {
      const double c = wave.TwiddleCos(j * step);
      const double s = wave.TwiddleSin(j * step);
      for (std::ptrdiff_t i = j; i < n; i += 2 * half) {
        const std::ptrdiff_t ip = i + half;
        const double tr = Finite(j == 0 ? re[ip] : re[ip] * c - im[ip] * s);
        const double ti = Finite(j == 0 ? im[ip] : re[ip] * s + im[ip] * c);
        re[ip] = Finite(re[i] - tr);
        im[ip] = Finite(im[i] - ti);
        re[i] = Finite(tr + re[i]);
        im[i] = Finite(ti + im[i]);
      }
    }
  }
}

}  // namespace

void FFTCalc(TimeCurve& re, TimeCurve& im, std::int32_t n) try {
  FFTSolve(re, im, n, 0);
} catch (...) {
  ReportFailure("FFTCalc", "FFT");
}

void FFTInvCalc(TimeCurve& re, TimeCurve& im, std::int32_t n) try {
  FFTSolve(re, im, n, 1);
} catch (...) {
  ReportFailure("FFTInvCalc", "FFT");
}

void FFTSolve(TimeCurve& re, TimeCurve& im, std::int32_t n, std::int16_t inverse) try {
  if (n > static_cast<std::int32_t>(TimeCurve::count)) {
    RaiseSubscript();
  }
  if (n < 0 || (n != 0 && !std::has_single_bit(static_cast<std::uint32_t>(n)))) {
    throw Failure(failure_number::kInvalidCall);  // its loops would never end
  }
  CleanVectorRegisters();
  FillTwiddles(n, inverse != 0);
  if (FastTransform(re.data(), im.data(), n, inverse != 0)) {
    return;
  }
  if (inverse != 0) {
    Divide(re.data(), n);
    Divide(im.data(), n);
  }
  ReverseOrder(re.data(), im.data(), n);
  PlainStages(re.data(), im.data(), n);
} catch (...) {
  ReportFailure("FFTSolve", "FFT");
}

}  // namespace halvorne
