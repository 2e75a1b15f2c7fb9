#pragma once

#include <cstdint>
#include <span>

#include "platform/surface.h"
#include "plot/plot_state.h"

// The held designs on the graph of the present one. Parts of PlotItOn: failures go up to it.

namespace halvorne {

/// Draws the held curves of a pane, and below the box of pane 1 or 4 their legend, as what the
/// present curves will lie on. The surface is left as it was, but for the pen's place. On paper,
/// where the report tells of one design, nothing is drawn.
/// @param first, last  points of the present plot at the left and right edge of the box
void DrawHeldDesigns(Surface& surface, std::int32_t first, std::int32_t last, std::int16_t pane,
                     const TimePoints& array);

/// Draws a curve given in the units of the box, cut off at its four sides.
void DrawWithinBox(Surface& surface, std::span<const Point> curve);

}  // namespace halvorne
