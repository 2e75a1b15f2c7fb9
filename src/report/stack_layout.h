#pragma once

#include <string>
#include <vector>

#include "platform/surface.h"
#include "report/stack.h"

namespace halvorne {

/// A rectangle of the picture, y growing downward.
struct Area {
  double left = 0, top = 0, right = 0, bottom = 0;
  bool Holds(double x, double y) const { return x >= left && x < right && y >= top && y < bottom; }
  double MiddleX() const { return (left + right) / 2; }
  double MiddleY() const { return (top + bottom) / 2; }
};

/// A text beside the stack and the level of the part that it belongs to.
struct StackLabel {
  std::string text;
  double x = 0, y = 0;  ///< upper left corner
  double level = 0;     ///< y of the part's middle
};

/// Where everything of the stack's picture stands, in pixels. The front is at the top, the rear
/// below it, the electrical side under both.
struct StackLayout {
  double width = 0, height = 0;
  std::vector<Area> parts;  ///< one for each of Stack::parts
  std::vector<StackLabel> labels;
  Area slabs;              ///< around all that sound passes through
  std::vector<Area> rows;  ///< of the network, between its two rails
  Area key;                ///< the bar of colours
};

/// The smallest picture that is still worth its place, in pixels.
inline constexpr double kSmallestStackWidth = 150;
inline constexpr double kSmallestStackHeight = 170;

/// Places the parts on a picture of that size. Thicknesses are to scale, but none is drawn thinner
/// than can be seen and pointed at; without any thickness all are alike. Loads, which have no end,
/// have a height of their own.
///
/// @param measure  a surface whose scale is that of the picture, for the extents of texts
StackLayout LayOutStack(const Stack& stack, const Surface& measure, double width, double height);

/// Index of the part at a place, -1 where there is none.
int StackPartAt(const StackLayout& layout, double x, double y);

}  // namespace halvorne
