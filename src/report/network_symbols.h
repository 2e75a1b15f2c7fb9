#pragma once

#include "platform/surface.h"

namespace halvorne {

/// Draws a network's element between two rails.
///
/// @param code       1 to 17; any other draws the rails alone
/// @param left,right  ends of the element on both rails
/// @param upperRail  y of the rail that series elements stand in
void DrawNetworkSymbol(Surface& surface, int code, double left, double right, double upperRail,
                       double lowerRail);

}  // namespace halvorne
