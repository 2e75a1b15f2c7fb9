#pragma once

#include "platform/surface.h"

// What the report says, line by line. Failures end in the box of the procedure in which they arise.

namespace halvorne {

/// Prints all inputs of the design and the measurements of the plot on show, from the pen down, in
/// the font in force.
void PrintParasOn(Surface& target);

/// Element, layers and, with full details, their material.
void PrintPiezoParasOn(Surface& target);

/// The table of face plates with its heading.
void PrintFacePlatesOn(Surface& target);

/// The table of back plates: with a heading of its own only where no table of face plates stands
/// above it.
void PrintBackPlatesOn(Surface& target);

/// The electrical network, in as many lines as it takes.
void PrintElNetOn(Surface& target);

}  // namespace halvorne
