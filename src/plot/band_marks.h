#pragma once

#include "platform/surface.h"

namespace halvorne {

/// Marks in the graph, where the measures found them, the edges of the band and the width of the
/// pulse at each level, with the band's edges in FreqUnit and the pulse's width in TimeUnit.
///
/// A level that was not crossed or lies below the box has no mark; what lies beside the box is cut
/// off. Does nothing while Show Band is off and on every surface but the main picture. Failures go
/// up to the caller.
void BandMarksOn(Surface& surface);

}  // namespace halvorne
