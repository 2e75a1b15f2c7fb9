#pragma once

#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <limits>

#include "platform/failure.h"

// Loops over samples, a block at a time: a block is worked out as a whole, without a look at any
// sample alone, and what is stored of it is what a loop over single samples would have stored.

namespace halvorne {

inline constexpr long kSampleBlock = 256;
using SampleBlock = double[kSampleBlock];

/// Samples at the begin that are finite.
long LeadingFinite(const double* values, long count);

/// Calls block(first, count) for the indexes from `from` to `to`, inclusive, of an array of `room`
/// elements. The first index outside it raises 9 when all before it are done.
template <class Block>
void ForBlocks(long from, long to, long room, Block block) {
  for (long first = from; first <= to;) {
    if (first < 0 || first >= room) {
      RaiseSubscript();
    }
    const long count = std::min({kSampleBlock, to - first + 1, room - first});
    block(first, count);
    first += count;
  }
}

/// sqrt(re^2 + im^2), and |x|, of `count` samples.
void Envelope(const double* re, const double* im, double* envelope, long count);
void Rectify(const double* x, double* rectified, long count);

struct Extrema {
  double max = -1e100;
  double min = 1e100;
};

/// Largest and smallest of `count` samples, and what Extrema starts with where none is beyond that.
Extrema ExtremaOf(const double* x, long count);

/// True when all of `count` samples fit 32-bit floats and none is above the level as one.
bool NoneAbove(const double* x, long count, float level);

/// Results of one statement of a loop, and where they belong.
struct Results {
  const double* values;
  double* target;
};

/// Stores the results of a loop's statements, turn by turn. One that is not finite raises 6 in its
/// turn, behind the statements before it.
inline void StoreFinite(std::initializer_list<Results> statements, long count) {
  long good = count;
  for (const Results& one : statements) {
    good = std::min(good, LeadingFinite(one.values, good));
  }
  for (const Results& one : statements) {
    std::copy_n(one.values, good, one.target);
  }
  if (good == count) {
    return;
  }
  for (const Results& one : statements) {
    one.target[good] = Finite(one.values[good]);
  }
}

}  // namespace halvorne
