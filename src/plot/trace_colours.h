#pragma once

#include <array>

#include "platform/surface.h"

namespace halvorne {

/// Colours of the two curves of a graph; axes and texts are black too.
inline constexpr Colour kFirstTraceColour = kBlack;
inline constexpr Colour kSecondTraceColour = kBlue;

/// Colours of the held designs' curves by their slot, the reference's last. They are pale beside
/// the present curves and stay apart for people who see two of the three primaries only.
inline constexpr std::array<Colour, 7> kHeldColours{{{0x56, 0xB4, 0xE9},
                                                     {0xB5, 0x52, 0x3B},
                                                     {0xC9, 0xA2, 0x27},
                                                     {0x7B, 0x3F, 0x6E},
                                                     {0xEE, 0x88, 0x66},
                                                     {0x44, 0x77, 0xAA},
                                                     {0x99, 0x99, 0x99}}};

}  // namespace halvorne
