#pragma once

#include <array>
#include <cstdint>

namespace halvorne {

// Values of design.ElementShape.
inline constexpr std::int16_t kDisk = 1;
inline constexpr std::int16_t kAnnulus = 2;
inline constexpr std::int16_t kRectangle = 3;

/// What the two dimensions of a shape are called; the second of a disk is empty.
std::array<const char*, 2> DimensionCaptions(std::int16_t shape);

/// Makes area and words of the element from its shape and dimensions. The larger diameter of an
/// annulus becomes the outer one; an area of 0 becomes 1E-20, so that the element stays computable.
/// Raises 6 for an area that is not finite.
void TakeElementSize();

}  // namespace halvorne
