#include "timedomain/levels.h"

#include <cmath>

#include "timedomain/wide.h"

#if defined(HALVORNE_VECTOR_LIBRARY)
extern "C" {
HALVORNE_HAS_WIDE double log(double) noexcept;
HALVORNE_HAS_WIDE double exp(double) noexcept;
}
#endif

namespace halvorne {
namespace {

HALVORNE_WIDE void ToLevels(double* values, long count, double factor) {
  const double base = std::log(10.0);
  for (long i = 0; i < count; ++i) {
    const double magnitude = std::fabs(values[i]);
    values[i] = magnitude == 0 ? 1e-38 : magnitude;
  }
  HALVORNE_WIDE_CALLS
  for (long i = 0; i < count; ++i) {
    values[i] = factor * (std::log(values[i]) / base);
  }
}

}  // namespace

void PowersToLevels(double* values, long count) {
  ToLevels(values, count, 10);
}

void AmplitudesToLevels(double* values, long count) {
  ToLevels(values, count, 20);
}

HALVORNE_WIDE void LevelsToAmplitudes(const double* levels, double* amplitudes, long count) {
  const double nepers = std::log(10.0) / 20;
  HALVORNE_WIDE_CALLS
  for (long i = 0; i < count; ++i) {
    amplitudes[i] = std::exp(nepers * levels[i]);
  }
}

}  // namespace halvorne
