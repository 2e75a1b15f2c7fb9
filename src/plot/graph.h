#pragma once

#include <cstdint>
#include <string>

#include "platform/surface.h"
#include "plot/plot_state.h"

// Drawing of the plot on show. The box of every graph is (0, 0) to (10, 10), y upward; only the
// surface's scale differs. Failures end in the box of the procedure in which they arise.

namespace halvorne {

/// Tops of the captions beside the vertical axes: their names and their units.
inline constexpr double kLabelY = 6.3;
inline constexpr double kUnitY = 4.3;

/// Corners of a surface, top left and bottom right, in its logical coordinates.
struct Corners {
  double x1, y1, x2, y2;
};

/// Corners of the main picture in the scale of the graph that the cursor stands in.
const Corners& CursorPaneCorners();

/// Draws the plot on show with axes, labels and traces; an excitation plot as three graphs. On the
/// main picture the measurements beside the graph are shown as well.
void PlotGraphOn(Surface& surface);

/// Draws one graph in the surface's scale: axes, labels, one or two traces.
///
/// @param first, last  points at the left and right edge of the box; with a spectrum the second
///                     trace spans points 0 to NoFreqPts instead. A second trace of more than
///                     32767 intervals is failure 6.
/// @param pane         1 single, 2 impulse, 3 excitation, 4 response
/// @param array        its data in plotted units
void PlotItOn(Surface& surface, std::int32_t first, std::int32_t last, std::int16_t pane,
              const TimePoints& array);

/// Draws on Picture1 what stands there while there is no plot: the axes of a single graph, without
/// labels. Failures go up to the caller.
void DrawEmptyAxes();

/// Box and ticks: ten divisions each way, ticks inward, no grid.
void AxisDrawOn(Surface& surface);

/// Title, axis texts and captions of panes 1 and 4; of pane 5 the x axis only. On the main picture
/// shows the peak text too.
void AxisLabelOn(Surface& surface, std::int16_t pane);

/// Unit of the excitation of the plot on show; empty where it has none.
std::string ExcitationUnit();

/// Texts of the small panes 2 and 3.
void ExImAxisLabelOn(Surface& surface, std::int16_t pane);

/// x at which a text starts that is centred on `centre`.
void CenterIt(Surface& surface, const std::string& text, float centre, float& start);

/// Prints a text that erases what stood under it, its top left corner at (x, y).
void PrintAt(Surface& surface, double x, double y, const std::string& text);

/// CenterIt, then PrintAt.
void PrintCentred(Surface& surface, const std::string& text, float centre, double y);

/// y of the line below the x axis that the cursor's read-out and a spectrum's axis share. Failures
/// go up to the caller.
double ReadOutLine(const Surface& surface);

}  // namespace halvorne
