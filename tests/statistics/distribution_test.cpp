#include "statistics/distribution.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

#include "statistics/normal.h"
#include "statistics/random_numbers.h"
#include "statistics/sample.h"

namespace halvorne::testing {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
using Kind = Distribution::Kind;

/// Mean and standard deviation of many draws.
Moments Drawn(const Distribution& distribution) {
  Moments moments;
  for (std::uint64_t run = 0; run < 40'000; ++run) {
    moments.Add(ValueAtNormal(distribution, NormalQuantile(UniformNumber(1, run, 0))));
  }
  return moments;
}

TEST(Distributions, NormalHasItsMeanAndDeviation) {
  const Distribution normal{Kind::kNormal, 10, 2, -kInfinity, kInfinity, {}};
  EXPECT_EQ(ValueAtNormal(normal, 1.5), 13);
  const Moments moments = Drawn(normal);
  EXPECT_NEAR(moments.Mean(), 10, 4 * 2 / 200.0);
  EXPECT_NEAR(moments.Deviation(), 2, 4 * 2 / std::sqrt(80'000));
}

TEST(Distributions, NormalThatIsCutOffStaysWithinItsBounds) {
  const Distribution cut{Kind::kNormal, 0, 1, 0, kInfinity, {}};
  EXPECT_EQ(ValueAtNormal(cut, -40), 0);
  EXPECT_NEAR(ValueAtNormal(cut, 0), 0.6744897501960817, 1e-12) << "the quartile";
  // The half normal distribution: mean sqrt(2 / pi), variance 1 - 2 / pi.
  const Moments moments = Drawn(cut);
  EXPECT_NEAR(moments.Mean(), 0.7978845608028654, 4 * 0.6028 / 200);
  EXPECT_NEAR(moments.Deviation(), 0.6028102749890869, 0.01);
  const Distribution far{Kind::kNormal, 0, 1, 20, 21, {}};
  for (const double normal : {-8.0, 0.0, 8.0}) {
    EXPECT_GE(ValueAtNormal(far, normal), 20);
    EXPECT_LE(ValueAtNormal(far, normal), 21);
  }
}

TEST(Distributions, UniformIsEvenOverItsWidth) {
  const Distribution uniform{Kind::kUniform, 0, 0, 2, 6, {}};
  EXPECT_EQ(ValueAtNormal(uniform, 0), 4);
  const Moments moments = Drawn(uniform);
  EXPECT_NEAR(moments.Mean(), 4, 4 * 1.1547 / 200);
  EXPECT_NEAR(moments.Deviation(), 4 / std::sqrt(12), 0.02);
}

TEST(Distributions, TriangularHasTheMeanOfItsCorners) {
  const Distribution triangular{Kind::kTriangular, 2, 0, 1, 6, {}};
  // A fifth of it lies below the mode: rise / width.
  EXPECT_NEAR(ValueAtNormal(triangular, NormalQuantile(0.2)), 2, 1e-12);
  const Moments moments = Drawn(triangular);
  EXPECT_NEAR(moments.Mean(), (1 + 2 + 6) / 3.0, 4 * 1.08 / 200);
  // Variance (a^2 + b^2 + c^2 - ab - ac - bc) / 18.
  EXPECT_NEAR(moments.Deviation(), std::sqrt((1 + 36 + 4 - 6 - 2 - 12) / 18.0), 0.02);
  const Distribution rightAngled{Kind::kTriangular, 1, 0, 1, 3, {}};
  EXPECT_NEAR(ValueAtNormal(rightAngled, 0), 3 - std::sqrt(2), 1e-12);
}

TEST(Distributions, ListGivesEachOfItsValuesAsOftenAsTheOthers) {
  const Distribution list{Kind::kList, 0, 0, 0, 0, {5, 7, 7, 11}};
  EXPECT_EQ(ValueAtNormal(list, -8), 5);
  EXPECT_EQ(ValueAtNormal(list, NormalQuantile(0.24)), 5);
  EXPECT_EQ(ValueAtNormal(list, NormalQuantile(0.26)), 7);
  EXPECT_EQ(ValueAtNormal(list, NormalQuantile(0.76)), 11);
  EXPECT_EQ(ValueAtNormal(list, 40), 11) << "a share that is rounded to 1";
}

}  // namespace
}  // namespace halvorne::testing
