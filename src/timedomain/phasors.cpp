#include "timedomain/phasors.h"

#include <cmath>

#include "timedomain/wide.h"

namespace halvorne {

Phasors::Phasors(double step) : step_(step) {
  for (int i = 0; i < kRow; ++i) {
    angle_[i] = i * step;
    cosine_[i] = std::cos(angle_[i]);
    sine_[i] = std::sin(angle_[i]);
  }
}

HALVORNE_WIDE void Phasors::Fill(int first, double* cosines, double* sines) const {
  const double start = first * step_;
  const double c = std::cos(start);
  const double s = std::sin(start);
  HALVORNE_NO_OVERLAP
  for (int i = 0; i < kRow; ++i) {
    const double rounding = ((first + i) * step_ - start) - angle_[i];
    const double x = c * cosine_[i] - s * sine_[i];
    const double y = s * cosine_[i] + c * sine_[i];
    cosines[i] = x - y * rounding;
    sines[i] = y + x * rounding;
  }
}

}  // namespace halvorne
