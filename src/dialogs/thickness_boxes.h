#pragma once

#include <string>

// A layer's thickness stands in two boxes, in wavelengths at the design frequency and in
// millimetres, each of which changes the other. The column that leads, entry.ThicknessFocus, keeps
// them from chasing each other: a box outside of it converts nothing.

namespace halvorne {

/// Values of entry.ThicknessFocus.
inline constexpr int kLambdasLead = 1;
inline constexpr int kMillimetresLead = 2;

/// Thickness texts show five decimals.
inline constexpr const char* kThicknessPattern = "#0.00000";

/// Millimetres of a thickness in wavelengths at the design frequency.
/// @param velocity  m/s
double MillimetresOf(double lambdas, double velocity);

/// Wavelengths at the design frequency of a thickness in millimetres. A velocity of 0 counts as
/// 1 m/s.
double LambdasOf(double millimetres, double velocity);

/// A thickness in metres as the text of its box in millimetres.
std::string MillimetreText(double metres);

/// "Design center freq Fd = 5.000 MHz".
std::string DesignFreqCaption();

}  // namespace halvorne
