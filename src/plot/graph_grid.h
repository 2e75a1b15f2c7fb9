#pragma once

#include <string>

#include "platform/surface.h"

// The grid that can be laid over the graph in the window: light lines at the ticks of the box, and
// the ticks' values beside the axes. All of it does nothing while the grid is off and on every
// other surface. Failures go up to the caller.

namespace halvorne {

/// A horizontal axis: its caption between the texts of its two ends.
struct XAxis {
  std::string caption, lower, upper;
  double from, to;  ///< its ends, Hz or s
  double unit;      ///< that of the texts, Hz or s
};

/// Lines from tick to tick, behind the curves.
void GridLinesOn(Surface& surface);

/// Values of a horizontal axis' ticks on the line of its texts, as many as fit between them.
/// @param y  top of that line
void XTickValuesOn(Surface& surface, const XAxis& axis, double y);

/// Values of the vertical axes' ticks, as many as fit beside the axes' texts.
void YTickValuesOn(Surface& surface);

}  // namespace halvorne
