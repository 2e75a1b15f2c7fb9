#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "engine/design_model.h"
#include "persistence/setup_state.h"
#include "timedomain/plot_points.h"
#include "timedomain/view.h"
#include "timedomain/wave_state.h"

// State of the plot on show. Its number, its automatic flags and its work arrays stand in
// timedomain/, its remembered settings in persistence/, since those rooms need them too.

namespace halvorne {

using MeasureBuffer = TimeCurve;

/// What is on show.
struct Plot {
  std::string PlotTitle;       ///< title drawn above the graph
  bool DualTrace = false;      ///< a second trace (Y2) and a right axis are shown
  bool SpectrumShown = false;  ///< the second trace is a spectrum beneath a time plot
  bool AmplLog = false;        ///< the first trace is in dB
  bool DesignOpen = false;     ///< the value last given to EnableItems
  bool Outdated = false;       ///< a waveform that the user refused to have made anew is on show
  MeasureBuffer MeasBuf;       ///< on which band and pulse width are measured
};

/// Its axes. Maxima and minima are in plotted units, texts in units of the divisors.
struct PlotScale {
  float LeftMax = 0, LeftMin = 0;
  float RightMax = 0, RightMin = 0;
  float LeftMag = 0, RightMag = 0;      ///< divisors of the axis texts; 1 on log scales
  std::string LeftPrefix, RightPrefix;  ///< engineering prefixes of the divisors
  std::string LeftLabel, LeftUnit, RightLabel, RightUnit;
  std::string LeftMaxText, LeftMinText, RightMaxText, RightMinText;
  std::int32_t FirstPlotPt = 0, LastPlotPt = 0;  ///< points at the edges of the box
  float PlotFreqLower = 0, PlotFreqUpper = 0;    ///< frequency window, Hz
  std::string FreqLowerText, FreqUpperText;
  double TimeLower = 0, TimeUpper = 0;  ///< time window shown, s
  std::string TimeLowerText, TimeUpperText, TimeWindowText;
  std::string PeakUnit;
};

/// Where a measure found the outermost crossings of one level.
struct LevelCrossings {
  float lower = 0, upper = -1;  ///< fractional points; upper below lower: there are none
  double level = 0;             ///< in the units of MeasBuf
  double decibels = 0;          ///< the same in dB
};

/// Its measurements and the cursor.
struct Measured {
  bool CFBWValid = false;
  bool PulseWidthValid = false;
  bool AttenValid = false;
  std::array<std::array<std::string, 4>, 6> CFBWText;        ///< cells of FlexgrdCFBW
  std::array<std::array<std::string, 2>, 5> PulseWidthText;  ///< cells of FlexgrdPulseWidth
  std::array<LevelCrossings, 3> Band;   ///< what the rows of CFBWText were made of
  std::array<LevelCrossings, 3> Pulse;  ///< what those of PulseWidthText were made of
  float PeakAmpl = 0;         ///< largest magnitude of the last pulse measure, linear units
  double ImpulsePeak = 0;     ///< PeakAmpl of the impulse in an excitation plot
  std::string PeakAmplText;   ///< peak text of the report, one line
  std::string PkAmplCaption;  ///< caption of lblPkAmpl
  std::array<std::string, 4> AttenCaptions;  ///< length, rate, frequency, exponent
  std::string ReadOut;                       ///< what the cursor reads, empty while it is off
  bool CursorOn = false;
  float CursorX = 0;                      ///< x of the line in box units, 0 to 10
  std::int16_t GridRow = 0, GridCol = 0;  ///< shared counters of the grid routines
};

/// A frequency or time that values are compared with.
struct ReferenceMark {
  bool Set = false;
  double Position = 0;  ///< Hz or s
};

/// What is laid over the graph in the window for the session; it starts with nothing.
struct Reading {
  bool GridOn = false;  ///< lines at the ticks, with their values
  bool BandOn = false;  ///< the measured band edges and pulse widths
  ReferenceMark FreqMark, TimeMark;
};

extern Plot plot;
extern PlotScale scale;
extern Measured measured;
extern Reading reading;

}  // namespace halvorne
