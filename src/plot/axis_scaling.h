#pragma once

#include <cstdint>
#include <string>

#include "plot/plot_state.h"

// Which range of the data the box of a graph shows, and the texts at its ends. Failures end in the
// box of the procedure in which they arise; what was set by then stays.

namespace halvorne {

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

}  // namespace halvorne
