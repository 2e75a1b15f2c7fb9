#pragma once

namespace halvorne {

/// Largest size of the transform.
inline constexpr double kMostTimePoints = 65536;

/// Number of points that a time record needs at least, so that the sweep's stop frequency is not
/// undersampled: 2 x NoFreqPts x FreqStop/(FreqStop - FreqStart). Raises 11 for equal limits.
double NeededTimePoints();

/// The next power of 2 above a number; of a power of 2 the double.
/// Raises 5 for a number that is not positive.
double PowerOfTwoAbove(double points);

}  // namespace halvorne
