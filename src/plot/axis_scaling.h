#pragma once

#include <cstdint>
#include <string>

#include "plot/plot_state.h"

// Which range of the data the box of a graph shows, and the texts at its ends. Failures end in the
// box of the procedure in which they arise; what was set by then stays.

namespace halvorne {

/// Linear scale for both channels: ends of round mantissas, divisors that are powers of 1000.
///
/// Sets LeftMax, LeftMin, LeftMag and the right three from the 32-bit values of the points.
/// @param first, last  points of `array`, 0 to kLastTimePoint; outside it subscript failure 9
void AutoRange(std::int32_t first, std::int32_t last, const TimePoints& array);

/// Scale in steps of 5 dB for both channels, divisors 1; arguments and effects as AutoRange.
void LogAutoRange(std::int32_t first, std::int32_t last, const TimePoints& array);

/// Amplitude scale of the plot on show: scales and rules when `automatic`, texts always.
///
/// Reads CurrentPlot, the index of PlotType, AmplLog, SpectrumShown and the window; sets the scale
/// of both sides, the axis end texts and the prefixes. A divisor of 0 is failure 11.
/// @param array  the pane's data in plotted units
void GetAmplScale(const TimePoints& array, bool automatic);

/// Right axis of a waveform form from its left one, or from its own top where it is a spectrum's.
/// A part of the procedures that call it: failures go up to them.
/// @param form  index of PlotType, 0 to 8
void SetWaveformRightAxis(int form);

/// The four axis end texts from the scales and their divisors. Failures go up to the caller.
void AxisEndTexts();

/// Horizontal window of the plot on show and its texts; in the automatic modes chooses the window
/// and FirstPlotPt, LastPlotPt too. A sample rate or display unit of 0 is failure 11.
void GetPlotFreqTimeScale();

/// Engineering prefix of a divisor, "" for 1, "?" for one without a prefix.
std::string EngrScale(double divisor);

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
