#pragma once

#include <array>
#include <cstdint>

namespace halvorne {

/// Four random words from a counter and a key: Philox 4x32 with ten rounds (J. K. Salmon et al.,
/// "Parallel random numbers: as easy as 1, 2, 3", SC11, 2011). Nothing is kept from call to call.
std::array<std::uint32_t, 4> Philox(std::array<std::uint32_t, 4> counter,
                                    std::array<std::uint32_t, 2> key);

/// A random number between 0 and 1, both excluded, that depends on nothing but its arguments: the
/// same on each machine, in whatever order the runs of a study are calculated.
/// @param seed    of the study
/// @param run     number of the run, from 0
/// @param stream  what the number is for; different streams are independent
double UniformNumber(std::uint64_t seed, std::uint64_t run, std::uint32_t stream);

}  // namespace halvorne
