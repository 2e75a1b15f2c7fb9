#pragma once

#include <cstdint>
#include <string>

// What is on show, as far as waveforms and files depend on it. The plot room owns all else.

namespace halvorne {

struct View {
  std::int16_t CurrentPlot = 0;  ///< number of the plot on show; kept in the setup file
  bool AmplAuto = false;         ///< amplitude scale automatic
  bool FreqAuto = false;         ///< frequency window automatic
  bool TimeAuto = false;         ///< time window automatic
  std::string TimeUnit;          ///< caption of the time axis
  double TimeScale = 0;          ///< its size, s
  float TimeWindowPercent = 0;   ///< share of the time window shown in auto mode, 0.25 to 99.5
};

extern View view;

/// Plots whose x axis is time: 16, 17, 26, 27, 33, 34.
bool IsTimePlot(int plot);
/// Excitation plots: 17, 27, 34.
bool IsExcitationPlot(int plot);

/// Chooses TimeUnit and TimeScale for a time in seconds. The bands are decades of the value, so
/// 0.9 microsecond reads in nsec. A decade outside the table changes nothing.
void GetTimeScale(double seconds);

}  // namespace halvorne
