#pragma once

#include <cstdint>
#include <string>

#include "platform/bounded.h"

namespace halvorne {

/// What the setup file keeps beside CurrentPlot and TimeWindowPercent, and what its reading starts.
struct Setup {
  /// Remembered index of PlotType by plot number. Only 11 to 17, 21 to 27, 31 to 34, 41 and 42 are
  /// used.
  Bounded<std::int16_t, 11, 42> PlotFormMemory;
  std::int16_t DispFaceLayer = 0;       ///< face layer of plot 51, 1-based, also its chain index
  std::int16_t DispBackLayer = 0;       ///< chain index of plot 53's layer, first back layer 12
  std::int16_t ReportDetails = 0;       ///< 1 full, 2 partial
  std::int16_t PhaseDisplayOption = 0;  ///< 0 within 180 degrees, 1 unwrapped, 2 delay
  std::int16_t DisplayFontSize = 0;     ///< 0, 1, 2: 8, 10, 12 point in the title box
  double LogRange = 0;                  ///< span of a log scale, dB, 1 to 200
  float AmplWindowPercent = 0;  ///< share of the span on which amplitude autoscale looks, 5 to 100

  std::int16_t PreviousPlot = 0;       ///< number last seen by PlotSelect
  std::int16_t LastPlotListIndex = 0;  ///< last data form index; -1 after the file was read
  std::string CursorBlank;  ///< 102 blanks that erase the cursor's read-out and measure its height
};

extern Setup setup;

/// Takes the settings that the program is shipped with, CurrentPlot and TimeWindowPercent included,
/// as they stand in the setup file beside it.
void TakeShippedSettings();

/// Makes CursorBlank, PreviousPlot = CurrentPlot and LastPlotListIndex = -1: the start of a
/// session.
void StartSession();

}  // namespace halvorne
