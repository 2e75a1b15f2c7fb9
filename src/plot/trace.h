#pragma once

#include <cstdint>

#include "platform/surface.h"
#include "plot/plot_state.h"

namespace halvorne {

/// A curve across the whole width of the box from (0, 0) to (10, 10).
struct Trace {
  const TimePoints& array;
  double PlotPoint::*channel;  ///< Y1 or Y2
  std::int32_t start = 0;      ///< index of its starting value
  std::int32_t origin = 0;     ///< its later points are origin + 1 to origin + intervals
  std::int32_t intervals = 0;  ///< below 1 nothing is drawn
  float min = 0, max = 0;      ///< values at the bottom and the top of the box
};

/// Draws a trace in the surface's colour and style, cut off at the top and the bottom of the box.
///
/// Each connected piece is handed over at once. The pen ends where the last piece does; without
/// any at the starting value, moved to the edge when it lies outside. A part of the procedure that
/// calls it: failures go up, what stood before them is drawn. max = min is failure 11, an index
/// outside the array 9.
void DrawTrace(Surface& surface, const Trace& trace);

}  // namespace halvorne
