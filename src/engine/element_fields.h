#pragma once

#include <array>
#include <span>

namespace halvorne {

/// A value of a network's element: where it stands in the row and how it is shown.
struct ElementField {
  const char* caption;
  const char* unit;  ///< of the box
  int column;        ///< of the network, 2 to 5
  double unitSize;   ///< display unit in the SI unit of the network
  double least;      ///< what takes the place of 0, so that no formula divides by it; 0: nothing
};

/// An element that the chooser offers.
struct ElementKind {
  const char* caption;
  std::span<const ElementField> fields;  ///< four at most, top to bottom
};

/// Codes 0 (blank) to 17.
inline constexpr int kLastElementCode = 17;

/// The element of a code from 0 to 17.
const ElementKind& ElementOfCode(int code);

}  // namespace halvorne
