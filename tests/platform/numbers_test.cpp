#include "platform/numbers.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

#include "platform/failure.h"

namespace halvorne {
namespace {

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

TEST(IntAndFix, DifferForNegativeNumbersOnly) {
  EXPECT_EQ(Int(2.7), 2);
  EXPECT_EQ(Fix(2.7), 2);
  EXPECT_EQ(Int(-2.2), -3);
  EXPECT_EQ(Fix(-2.7), -2);
  EXPECT_EQ(Int(-3), -3);
}

TEST(Sgn, IsMinusOneZeroOrOne) {
  EXPECT_EQ(Sgn(-1e-300), -1);
  EXPECT_EQ(Sgn(0.0), 0);
  EXPECT_EQ(Sgn(-0.0), 0);
  EXPECT_EQ(Sgn(5), 1);
}

TEST(Log10, OfAThousandLiesALittleBelowThree) {
  const double three = log10(1000.0);
  EXPECT_LT(three, 3.0);
  EXPECT_NEAR(three, 3.0, 1e-15);
  EXPECT_EQ(Int(three), 2);
}

TEST(Log10, IsTheQuotientOfTwoNaturalLogarithms) {
  for (const double value : {1e-38, 0.5, 2.0, 7.0, 1e6, 3.7e21}) {
    EXPECT_EQ(log10(double{value}), std::log(value) / std::log(10.0)) << value;
  }
}

TEST(Log10, WritesTheArgumentThatItUsedBack) {
  double negative = -100;
  EXPECT_NEAR(log10(negative), 2, 1e-15);
  EXPECT_EQ(negative, 100);
  double zero = 0;
  EXPECT_NEAR(log10(zero), -38, 1e-13);
  EXPECT_EQ(zero, 1e-38);
  double array[2] = {-10, -10};
  log10(array[1]);
  EXPECT_EQ(array[0], -10);
  EXPECT_EQ(array[1], 10);
}

template <class Action>
bool Overflows(Action action) {
  try {
    action();
  } catch (const Failure& failure) {
    return failure.Number() == failure_number::kOverflow;
  }
  return false;
}

TEST(ToInt16, RoundsHalvesToTheEvenNeighbour) {
  EXPECT_EQ(ToInt16(0.5), 0);
  EXPECT_EQ(ToInt16(1.5), 2);
  EXPECT_EQ(ToInt16(2.5), 2);
  EXPECT_EQ(ToInt16(-0.5), 0);
  EXPECT_EQ(ToInt16(-1.5), -2);
  EXPECT_EQ(ToInt16(2.500001), 3);
}

TEST(ToInt16, OverflowsJustBeyondItsRange) {
  EXPECT_EQ(ToInt16(32767.4), 32767);
  EXPECT_EQ(ToInt16(-32768.5), -32768);
  EXPECT_TRUE(Overflows([] { ToInt16(32767.5); }));
  EXPECT_TRUE(Overflows([] { ToInt16(-32769); }));
  EXPECT_TRUE(Overflows([] { ToInt16(kNan); }));
  EXPECT_TRUE(Overflows([] { ToInt16(kInfinity); }));
}

TEST(ToInt32, OverflowsJustBeyondItsRange) {
  EXPECT_EQ(ToInt32(2147483647.4), 2147483647);
  EXPECT_EQ(ToInt32(-2147483648.5), -2147483647 - 1);
  EXPECT_EQ(ToInt32(4.5), 4);
  EXPECT_TRUE(Overflows([] { ToInt32(2147483647.5); }));
  EXPECT_TRUE(Overflows([] { ToInt32(-2147483649.0); }));
  EXPECT_TRUE(Overflows([] { ToInt32(kNan); }));
}

TEST(ToSingle, RoundsToSevenDigitsAndOverflowsBeyondItsRange) {
  EXPECT_EQ(ToSingle(0.1), 0.1F);
  EXPECT_NE(static_cast<double>(ToSingle(0.1)), 0.1);
  EXPECT_EQ(ToSingle(1e-60), 0);
  EXPECT_EQ(ToSingle(-3.4e38), -3.4e38F);
  EXPECT_TRUE(Overflows([] { ToSingle(3.5e38); }));
  EXPECT_TRUE(Overflows([] { ToSingle(kNan); }));
  EXPECT_TRUE(Overflows([] { ToSingle(-kInfinity); }));
}

TEST(Reset, PutsAStateBackToItsStart) {
  struct State {
    int number = 7;
    double array[3];
  } state;
  state.number = 1;
  state.array[2] = 5;
  Reset(state);
  EXPECT_EQ(state.number, 7);
  EXPECT_EQ(state.array[2], 0);
}

}  // namespace
}  // namespace halvorne
