#pragma once

#include <algorithm>
#include <vector>

namespace halvorne {

/// What a text covers on a surface, in logical coordinates.
struct Extent {
  double left, right, bottom, top;

  bool Meets(const Extent& other) const {
    return left < other.right && other.left < right && bottom < other.top && other.bottom < top;
  }
};

inline bool MeetsAny(const Extent& text, const std::vector<Extent>& others) {
  return std::ranges::any_of(others, [&](const Extent& other) { return text.Meets(other); });
}

}  // namespace halvorne
