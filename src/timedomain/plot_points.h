#pragma once

#include "engine/design_model.h"

namespace halvorne {

/// Y1 feeds the left axis and first trace, Y2 the right axis and second trace.
struct PlotPoint {
  double Y1;
  double Y2;
};

using TimePoints = Bounded<PlotPoint, 0, kLastTimePoint>;

/// The work arrays of a plot: gathered values and the converted data of its panes. Waveforms are
/// made from RawData, and a design file's reader clears all four, so they stand this low.
struct PlotPoints {
  Bounded<PlotPoint, 0, kLastFreqPoint> RawData;  ///< physical values per frequency point
  TimePoints PlotData;                            ///< converted data of the plot on show
  TimePoints PlotDataImpulse;                     ///< upper left pane of an excitation plot
  TimePoints PlotDataExcite;                      ///< upper right pane of an excitation plot
};

extern PlotPoints points;

}  // namespace halvorne
