#pragma once

#include <bit>
#include <cstdint>

namespace halvorne {

/// Shortest transform that FastTransform does.
inline constexpr std::int32_t kFastLength = 64;

/// True for a power of two that the arrays have room for.
inline bool IsTransformLength(std::int32_t n) {
  return n > 0 && n <= 65536 && std::has_single_bit(static_cast<std::uint32_t>(n));
}

/// Transform of n points in place, forward and unscaled or inverse with the whole 1/n.
///
/// The same butterflies in the same arithmetic as the plain loop, so the results are the same to
/// the bit; only their order differs. Two stages run per pass over the data. The first half of
/// them runs before the bit reversal, where butterflies of one twiddle lie side by side, the
/// second half behind it, where the butterflies of one block do. Blocks are finished depth first,
/// so that they stay in the caches.
///
/// @param n  a length for which IsTransformLength holds
/// @return   false, with nothing changed, below kFastLength and for values that might overflow
bool FastTransform(double* re, double* im, std::int32_t n, bool inverse);

}  // namespace halvorne
