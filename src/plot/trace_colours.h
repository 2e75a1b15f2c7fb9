#pragma once

#include "platform/surface.h"

namespace halvorne {

/// Colours of the two curves of a graph; axes and texts are black too.
inline constexpr Colour kFirstTraceColour = kBlack;
inline constexpr Colour kSecondTraceColour = kBlue;

}  // namespace halvorne
