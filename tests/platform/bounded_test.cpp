#include "platform/bounded.h"

#include <gtest/gtest.h>

namespace halvorne {
namespace {

template <class Action>
bool RaisesSubscript(Action action) {
  try {
    action();
  } catch (const Failure& failure) {
    return failure.Number() == failure_number::kSubscript;
  }
  return false;
}

TEST(Bounded, TakesBothItsBoundsAndNothingBeyondThem) {
  Bounded<int, 11, 42> array{};
  array(11) = 1;
  array(42) = 2;
  EXPECT_EQ(array.data()[0], 1);
  EXPECT_EQ(array.data()[31], 2);
  EXPECT_TRUE(RaisesSubscript([&] { array(10) = 0; }));
  EXPECT_TRUE(RaisesSubscript([&] { array(43) = 0; }));
  const auto& readOnly = array;
  EXPECT_TRUE(RaisesSubscript([&] { static_cast<void>(readOnly(-1)); }));
}

TEST(Bounded, MayBeginBelowZero) {
  Bounded<int, -2, 2> array{};
  array(-2) = 7;
  EXPECT_EQ(*array.begin(), 7);
  EXPECT_EQ(array.end() - array.begin(), 5);
  EXPECT_TRUE(RaisesSubscript([&] { array(-3) = 0; }));
}

TEST(Bounded2, ChecksEachIndexByItself) {
  Bounded2<double, 1, 20, 1, 6> rows{};
  rows(20, 6) = 3;
  rows(1, 6) = 4;
  EXPECT_EQ(rows(20, 6), 3);
  // Column 7 of row 1 would be the place of column 1 of row 2.
  EXPECT_TRUE(RaisesSubscript([&] { rows(1, 7) = 0; }));
  EXPECT_TRUE(RaisesSubscript([&] { rows(1, 0) = 0; }));
  EXPECT_TRUE(RaisesSubscript([&] { rows(0, 1) = 0; }));
  EXPECT_TRUE(RaisesSubscript([&] { rows(21, 1) = 0; }));
}

TEST(Bounded2, KeepsTheElementsOfARowSideBySide) {
  Bounded2<int, 1, 2, 1, 3> rows{};
  rows(2, 1) = 5;
  rows(2, 3) = 6;
  EXPECT_EQ(&rows(2, 3) - &rows(2, 1), 2);
}

}  // namespace
}  // namespace halvorne
