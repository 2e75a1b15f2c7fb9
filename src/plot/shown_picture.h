#pragma once

#include "platform/surface.h"

namespace halvorne {

/// Draws on another main picture what the window's shows: the plot on show, what lies behind it,
/// and the cursor with its read-out. The window's own picture and cursor stay as they are.
void DrawOnShow(Surface& surface);

}  // namespace halvorne
