#include "load_and_dispersion_laws.h"

#include <cmath>
#include <numbers>

namespace halvorne::tools {
namespace {

constexpr double kNepersPerMetre = 11.51293;  // one dB/cm

/// Struve function of order 1, from its integral (2 x/pi) times that of sin(x cos t) sin(t)^2 over
/// 0 to pi/2; the trapezoidal rule converges fast on such a smooth periodic integrand.
double Struve1(double x) {
  constexpr int kSteps = 4000;
  constexpr double kStep = std::numbers::pi / 2 / kSteps;
  double sum = 0;
  for (int k = 1; k <= kSteps; ++k) {
    const double t = k * kStep;
    const double weight = k == kSteps ? 0.5 : 1;
    sum += weight * std::sin(x * std::cos(t)) * std::sin(t) * std::sin(t);
  }
  return 2 * x / std::numbers::pi * sum * kStep;
}

}  // namespace

double VelocityFactor(const AcousticMaterial& material, double freq) {
  const double reference = static_cast<double>(material.LossFreq) * 1e6;
  const double nepers = static_cast<double>(material.Loss) * kNepersPerMetre;
  const double perRadian = material.Velocity * nepers / (2 * std::numbers::pi * reference);
  const double exponent = static_cast<double>(material.LossExp) - 1;
  const double ratio = freq / reference;
  const double integral =
      exponent == 0 ? std::log(ratio) : (std::pow(ratio, exponent) - 1) / exponent;
  return 1 / (1 - 2 / std::numbers::pi * perRadian * integral);
}

PistonImpedance PistonRadiation(double radius, double velocity, double freq) {
  const double x = 4 * std::numbers::pi * freq * radius / velocity;
  return {1 - 2 * std::cyl_bessel_j(1.0, x) / x, 2 * Struve1(x) / x};
}

}  // namespace halvorne::tools
