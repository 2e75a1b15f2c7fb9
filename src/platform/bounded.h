#pragma once

#include <cstddef>

#include "platform/failure.h"

namespace halvorne {

/// Array with fixed bounds, inclusive at both ends, indexed with () as on paper.
///
/// An index outside First..Last raises failure 9 "Subscript out of range". It has no initialiser,
/// so that one in static storage is zero and costs nothing until it is touched; `T{}` of a struct
/// that holds it is zero too.
template <class T, long First, long Last>
struct Bounded {
  static_assert(First <= Last);
  static constexpr long first = First;
  static constexpr long last = Last;
  static constexpr std::size_t count = static_cast<std::size_t>(Last - First + 1);

  T elements[count];

  constexpr T& operator()(long index) { return elements[Offset(index)]; }
  constexpr const T& operator()(long index) const { return elements[Offset(index)]; }

  /// The elements from First on, for loops that have proved their range once.
  constexpr T* data() { return elements; }
  constexpr const T* data() const { return elements; }

  constexpr T* begin() { return elements; }
  constexpr T* end() { return elements + count; }
  constexpr const T* begin() const { return elements; }
  constexpr const T* end() const { return elements + count; }

  static constexpr std::size_t Offset(long index) {
    if (index < First || index > Last) [[unlikely]] {
      RaiseSubscript();
    }
    return static_cast<std::size_t>(index - First);
  }
};

/// The same with two indexes, (row, column); a row's elements lie side by side.
template <class T, long First1, long Last1, long First2, long Last2>
struct Bounded2 {
  static_assert(First1 <= Last1 && First2 <= Last2);

  Bounded<Bounded<T, First2, Last2>, First1, Last1> rows;

  constexpr T& operator()(long row, long column) { return rows(row)(column); }
  constexpr const T& operator()(long row, long column) const { return rows(row)(column); }
};

}  // namespace halvorne
