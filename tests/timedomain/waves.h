#pragma once

#include <cmath>
#include <complex>
#include <cstdint>
#include <initializer_list>
#include <random>
#include <vector>

#include "engine/design_model.h"
#include "timedomain/plot_points.h"

namespace halvorne::testing {

using Wide = std::complex<long double>;
using Wave64 = std::vector<std::complex<double>>;

using Codes = std::initializer_list<std::int16_t>;

/// Numbers between -1 and 1, some of them exactly zero, always the same for one seed.
inline Wave64 RandomWave(int n, unsigned seed) {
  std::mt19937 random(seed);
  const auto next = [&random] {
    const auto bits = static_cast<double>(random());
    return bits < 4e8 ? 0.0 : bits / 2147483648.0 - 1.0;
  };
  Wave64 values(static_cast<std::size_t>(n));
  for (std::complex<double>& value : values) {
    const double re = next();
    value = {re, next()};
  }
  return values;
}

/// sum of x(i) exp(sign j 2 pi i k / n) by direct summation, not scaled.
inline std::vector<Wide> DirectSum(const std::vector<Wide>& x, int sign) {
  const long n = static_cast<long>(x.size());
  const long double w = 6.28318530717958L / static_cast<long double>(n);
  std::vector<Wide> sums(x.size());
  for (long k = 0; k < n; ++k) {
    for (long i = 0; i < n; ++i) {
      const long double angle = static_cast<long double>(i * k % n) * w;
      sums[k] += x[i] * Wide(std::cos(angle), static_cast<long double>(sign) * std::sin(angle));
    }
  }
  return sums;
}

inline std::vector<Wide> Widened(const TimeCurve& re, const TimeCurve& im, int n) {
  std::vector<Wide> values(static_cast<std::size_t>(n));
  for (int i = 0; i < n; ++i) {
    values[i] = {re(i), im(i)};
  }
  return values;
}

/// Leaves a complex curve where a plot's selection leaves it.
inline void SetCurve(const Wave64& curve) {
  for (std::size_t i = 0; i < curve.size(); ++i) {
    points.RawData(static_cast<long>(i)) = {curve[i].real(), curve[i].imag()};
  }
}

}  // namespace halvorne::testing
