#include "timedomain/sample_blocks.h"

#include <cstdint>
#include <cstring>
#include <limits>

#include "timedomain/wide.h"

namespace halvorne {
namespace {

/// Eight numbers side by side, whose operators work number by number.
constexpr long kEight = 8;
using Eight [[gnu::vector_size(64)]] = double;

}  // namespace

HALVORNE_WIDE long LeadingFinite(const double* values, long count) {
  std::uint64_t bad = 0;
  for (long i = 0; i < count; ++i) {
    bad |= std::fabs(values[i]) <= std::numeric_limits<double>::max() ? 0U : 1U;
  }
  return bad == 0 ? count : std::find_if_not(values, values + count, [](double x) {
                              return std::isfinite(x);
                            }) - values;
}

HALVORNE_WIDE void Envelope(const double* re, const double* im, double* envelope, long count) {
  HALVORNE_NO_OVERLAP
  for (long i = 0; i < count; ++i) {
    envelope[i] = std::sqrt(re[i] * re[i] + im[i] * im[i]);
  }
}

HALVORNE_WIDE void Rectify(const double* x, double* rectified, long count) {
  HALVORNE_NO_OVERLAP
  for (long i = 0; i < count; ++i) {
    rectified[i] = std::fabs(x[i]);
  }
}

HALVORNE_WIDE Extrema ExtremaOf(const double* x, long count) {
  Eight highest = Eight{} + Extrema{}.max;
  Eight lowest = Eight{} + Extrema{}.min;
  long i = 0;
  for (; i + kEight <= count; i += kEight) {
    Eight values;
    std::memcpy(&values, x + i, sizeof values);
    highest = values > highest ? values : highest;
    lowest = values < lowest ? values : lowest;
  }
  Extrema found;
  for (long lane = 0; lane < kEight; ++lane) {
    found = {std::max(found.max, highest[lane]), std::min(found.min, lowest[lane])};
  }
  for (; i < count; ++i) {
    found = {std::max(found.max, x[i]), std::min(found.min, x[i])};
  }
  return found;
}

HALVORNE_WIDE bool NoneAbove(const double* x, long count, float level) {
  constexpr float lowest = std::numeric_limits<float>::lowest();
  unsigned found = 0;
  for (long i = 0; i < count; ++i) {
    const auto single = static_cast<float>(x[i]);
    found |= static_cast<unsigned>(!(single <= level)) | static_cast<unsigned>(!(single >= lowest));
  }
  return found == 0;
}

}  // namespace halvorne
