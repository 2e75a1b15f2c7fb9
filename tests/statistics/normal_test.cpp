#include "statistics/normal.h"

#include <cmath>
#include <gtest/gtest.h>

namespace halvorne::testing {
namespace {

TEST(NormalDistribution, QuantilesAreThoseOfTables) {
  EXPECT_EQ(NormalQuantile(0.5), 0);
  EXPECT_NEAR(NormalQuantile(0.975), 1.959963984540054, 1e-14);
  EXPECT_NEAR(NormalQuantile(0.8413447460685429), 1, 1e-14);
  EXPECT_NEAR(NormalQuantile(0.05), -1.6448536269514722, 1e-14);
  EXPECT_NEAR(NormalQuantile(1e-12), -7.034483825301131, 1e-12);
}

TEST(NormalDistribution, QuantileUndoesTheShare) {
  for (double x = -8; x <= 5; x += 0.037) {
    // Beyond 5 the share is too near to 1 to hold x.
    EXPECT_NEAR(NormalQuantile(NormalShare(x)), x, 1e-9) << x;
  }
}

TEST(NormalDistribution, SharesAreThoseOfTables) {
  EXPECT_EQ(NormalShare(0), 0.5);
  EXPECT_NEAR(NormalShare(1), 0.8413447460685429, 1e-15);
  EXPECT_NEAR(NormalShare(-3), 0.0013498980316300933, 1e-17);
}

}  // namespace
}  // namespace halvorne::testing
