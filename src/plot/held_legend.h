#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/surface.h"

namespace halvorne {

/// An entry of the legend.
struct LegendEntry {
  Colour colour;
  std::string text;
  /// Bytes at its end that are cut off last: what hinders the design, else its file in brackets.
  std::size_t tail = 0;
};

/// The present design, then the held ones; what hinders a held design from being drawn stands
/// behind its name.
std::vector<LegendEntry> Legend();

/// Writes the legend below the box of a graph and below the line of the cursor's read-out, in as
/// few columns as it fits in. Of texts that are too long the title is cut off, with "..." behind
/// it, as long as what stands behind the title leaves room for a few of its letters.
/// @param pane  1 or 4, whose room below the box differs
void DrawLegend(Surface& surface, std::int16_t pane);

/// The longest begin of a text that fits into a width, in the surface's units, at its end "..."
/// where something is missing. No character of several bytes is cut apart.
std::string FittedText(const Surface& surface, const std::string& text, double width);

/// The legend in a sentence for those who can't see it; empty while no design is held.
std::string LegendSentence();

}  // namespace halvorne
