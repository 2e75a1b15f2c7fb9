#pragma once

#include <limits>

// What the numbers of a material are called, in which unit they stand and between which bounds.

namespace halvorne {

struct MaterialNumber {
  const char* caption;
  const char* unit;
  double lowest = 0;
  double highest = std::numeric_limits<double>::infinity();
};

inline constexpr MaterialNumber kVelocityNumber{"Longitudinal velocity", "m/sec", 1};
inline constexpr MaterialNumber kDensityNumber{"Density", "kg/m^3", 1, 100000};
inline constexpr MaterialNumber kKsNumber{"Clamped dielectric constant", "", 1, 1000000};
inline constexpr MaterialNumber kKtNumber{"Coupling coefficient kt", "", 0, 0.9999};
inline constexpr MaterialNumber kTanDeNumber{"Electrical loss tangent", "", 0, 1};
inline constexpr MaterialNumber kTanDmNumber{"Mechanical loss tangent", "", 0, 1};
inline constexpr MaterialNumber kLossNumber{"Loss", "dB/cm", 0, 1000};
inline constexpr MaterialNumber kLossFreqNumber{"Loss frequency", "MHz", 0, 100000};
inline constexpr MaterialNumber kLossExpNumber{"Loss exponent", "", 0, 5};

}  // namespace halvorne
