#pragma once

#include <string>

#include "batch/command_line.h"

namespace halvorne::batch {

/// The gathered values of the plot on show as CSV: "x,y1,y2", x in Hz, over all frequency points.
std::string RawTable();

/// The plotted values of a pane as CSV: "x,y1,y2", x in Hz or s, y before the axis divisor; y2 is
/// empty where there is no second trace. A spectrum follows behind an empty line as a table of its
/// own, "x,spectrum", over all frequency points.
std::string DataTable(Pane pane);

}  // namespace halvorne::batch
