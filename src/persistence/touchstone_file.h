#pragma once

#include <string>

namespace halvorne {

/// Reference resistance of a Touchstone file unless another is asked for, ohms.
inline constexpr double kTouchstoneReference = 50;

/// Title of the question before a Touchstone file is written over.
inline constexpr const char* kSaveTouchstoneTitle = "Halvorne Save Impedance";

/// The electrical input impedance of the design as a Touchstone file of version 1 with one port:
/// the reflection coefficient S11 = (Z - R)/(Z + R), real and imaginary part, over frequencies in
/// Hz, all numbers as the shortest that read back the same. (EIA/IBIS Open Forum, Touchstone File
/// Format, Rev. 1.1, 2002.)
/// @param reference  R in ohms, above 0. Else 5 is raised; an impedance of -R is 11.
std::string TouchstoneText(double reference);

}  // namespace halvorne
