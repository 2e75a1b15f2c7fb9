#pragma once

#include <cstdint>

namespace halvorne {

/// Spectrum and quadrature of a real waveform, for half the work of complex transforms: its samples
/// in even and odd places go through one of half the length as real and imaginary parts (Cooley,
/// Lewis, Welch, J. Sound Vib. 12 (1970) 315-337).
///
/// @param samples     n of them, n a power of two up to 65536
/// @param re, im      the spectrum's bins 0 to n / 2
/// @param quadrature  n samples: what becomes the imaginary part when the negative frequencies are
///                    dropped and the others doubled
/// @return            false, with the quadrature unchanged, where FastTransform does not work
bool AnalyseReal(const double* samples, std::int32_t n, double* re, double* im, double* quadrature);

}  // namespace halvorne
