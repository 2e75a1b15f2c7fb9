#pragma once

#include <cstdint>

#include "timedomain/plot_points.h"

// The values at which axes end: the extremes of the data, rounded outward. Failures end in the box
// of the procedure in which they arise; what was set by then stays.

namespace halvorne {

/// Extremes that an axis is to hold beside those of its data; by default none.
struct AxisExtremes {
  float LeftMax = -1e30F, LeftMin = 1e30F;
  float RightMax = -1e30F, RightMin = 1e30F;
};

/// Linear scale for both channels: ends of round mantissas, divisors that are powers of 1000.
///
/// Sets LeftMax, LeftMin, LeftMag and the right three from the 32-bit values of the points.
/// @param first, last  points of `array`, 0 to kLastTimePoint; outside it subscript failure 9
/// @param others       what the axes are to hold too
void AutoRange(std::int32_t first, std::int32_t last, const TimePoints& array,
               const AxisExtremes& others = {});

/// Scale in steps of 5 dB for both channels, divisors 1; arguments and effects as AutoRange.
void LogAutoRange(std::int32_t first, std::int32_t last, const TimePoints& array,
                  const AxisExtremes& others = {});

/// Next value of mantissa 1, 1.5, 2, 3, 5 or 7.5 outward from x.
/// @param x   a zero is taken, and written back, as 1e-30
/// @param up  towards plus infinity (a top) or minus infinity (a bottom)
float RoundOff(float& x, bool up);

/// Ties the two ends of an axis together and gives their divisor, a power of 1000. An end that is
/// a decade or more smaller than the other goes to zero, or across zero to the other's decade.
void AdjustMag(float& max, float& min, float& magnitude);

/// Bounds both ends of an axis to magnitudes from 1e-12 to 1e12, zero left, and parts equal ends.
void Limit(float& max, float& min);

}  // namespace halvorne
