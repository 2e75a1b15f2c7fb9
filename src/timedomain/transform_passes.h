#pragma once

#include <cstdint>

namespace halvorne {

/// Shortest transform that FastStages does.
inline constexpr std::int32_t kFastLength = 64;

/// Bit reversal and all stages of a transform of n points, a power of two from kFastLength to
/// 65536, with the twiddles of wave.TwiddleCos, wave.TwiddleSin.
///
/// The same butterflies in the same arithmetic as the plain loop, so the results are the same to
/// the bit; only their order differs. Two stages run per pass over the data. The first half of
/// them runs before the bit reversal, where butterflies of one twiddle lie side by side, the
/// second half behind it, where the butterflies of one block do. Blocks are finished depth first,
/// so that they stay in the caches.
void FastStages(double* re, double* im, std::int32_t n);

}  // namespace halvorne
