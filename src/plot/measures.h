#pragma once

#include <array>
#include <cstdint>

#include "plot/plot_state.h"

// Measurements of the plot on show. Failures end in the box of the procedure in which they arise.

namespace halvorne {

/// Shares of the largest value at which bands and pulse widths are measured.
inline constexpr std::array<float, 3> kMeasureLevels{0.5F, 0.1F, 0.01F};

/// Fractional indices of the outermost crossings of `level` in array(first..last).
///
/// Linear interpolation between points; an end that lies above the level itself is taken as it is,
/// and what lies between the two crossings doesn't count. No value above the level gives
/// lower = last and upper = first, a negative width.
void CrossLevel(const MeasureBuffer& array, std::int32_t first, std::int32_t last, float level,
                float& lower, float& upper);

/// Frequency of a fractional point in display units. Failures go up to the caller.
float DisplayFrequency(float point);
/// Pattern of the numbers of a band by its edges in display units: three digits behind the point,
/// two of large ones.
const char* BandPattern(double lower, double upper);

/// Centre frequency and bandwidth at 0.5, 0.1 and 0.01 of the largest value, into CFBWText, and
/// where these were crossed into Band.
/// @param array     one value for each of the points 0 to NoFreqPts
/// @param dBFactor  10 for power, 20 for amplitude; names the levels and makes them dB
void CFBWCalc(MeasureBuffer& array, std::int16_t dBFactor);

/// Pulse width at 0.5, 0.1 and 0.01 of the largest magnitude into PulseWidthText, that magnitude
/// into PeakAmpl, and where the levels were crossed into Pulse. The magnitude is of the whole
/// record, the widths of its first half, since the second half holds the wrap-around of the
/// transform.
/// @param array  one value for each of the samples 0 to NoTimePts - 1
void PulseWidthCalc(MeasureBuffer& array);

/// Writes the fixed rows of both grids and of their texts, at start-up.
void InitGrids();

/// Show the measurements beside the graph, blanks where they don't hold, and enable their frames.
void DisplayCFBW();
void DisplayPulseWidth();
/// The same for the attenuation of the load medium, shown when AttenValid and AttenOn.
void DisplayAtten();

}  // namespace halvorne
