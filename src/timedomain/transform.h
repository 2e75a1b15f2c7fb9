#pragma once

#include <cstdint>

#include "engine/design_model.h"

// Radix-2 complex fast Fourier transform in place on split arrays (Cooley, Tukey, Math. Comp. 19
// (1965) 297-301). n is the length, a power of two from 1 to 65536; the dialogs offer no other. The
// box of FFTSolve answers a length of 0 with 11, one beyond the arrays with 9 and any other that is
// no power of two with 5, all before anything was changed, and a sum too large with 6, which stops
// where it arose.

namespace halvorne {

/// Forward transform, unscaled: X(k) = sum of x(n) exp(-j 2 pi k n / N).
void FFTCalc(TimeCurve& re, TimeCurve& im, std::int32_t n);
/// Inverse transform with the whole 1/N: x(n) = (1/N) sum of X(k) exp(+j 2 pi k n / N).
void FFTInvCalc(TimeCurve& re, TimeCurve& im, std::int32_t n);
/// The work of both; `inverse` 0 or 1. Fails with "ERROR in FFTSolve of FFT".
void FFTSolve(TimeCurve& re, TimeCurve& im, std::int32_t n, std::int16_t inverse);

}  // namespace halvorne
