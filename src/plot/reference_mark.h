#pragma once

#include <cstdint>
#include <optional>

#include "platform/surface.h"

// The reference mark: a frequency or time that the cursor's values are compared with. There is one
// for the plots over frequency and one for those over time, and each is seen in all plots of its
// kind.

namespace halvorne {

/// Whether the plot on show has a mark.
bool MarkSet();

/// The point of the plot on show that is nearest to its mark; none without a mark and where the
/// data don't reach it.
std::optional<std::int32_t> MarkPoint();

/// Sets the mark of the plot on show at the cursor, turned on if need be, or takes it away, and
/// draws the graph anew. Failures end in its box.
void ToggleMark();

/// Draws the mark's line in the main picture, where the window shows its point; nothing on other
/// surfaces. Failures go up to the caller.
void ReferenceMarkOn(Surface& surface);

}  // namespace halvorne
