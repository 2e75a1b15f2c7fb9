#pragma once

#include <algorithm>

#include "platform/failure.h"

namespace halvorne {

/// Zeroes all targets at i = from to `to`, both inclusive; nothing when from lies above `to`.
/// An index outside the arrays raises 9 after the elements before it were zeroed.
template <class... Curve>
void Zero(long from, long to, Curve&... targets) {
  if (from > to) {
    return;
  }
  if (from < 0) {
    RaiseSubscript();
  }
  const auto zeroOne = [from, to](auto& curve) {
    const long last = std::min(to, curve.last);
    if (from <= last) {
      std::fill(curve.data() + from, curve.data() + last + 1, 0.0);
    }
    return last;
  };
  if (std::min({zeroOne(targets)...}) < to) {
    RaiseSubscript();
  }
}

}  // namespace halvorne
