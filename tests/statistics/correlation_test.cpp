#include "statistics/correlation.h"

#include <cmath>
#include <gtest/gtest.h>

#include "statistics/normal.h"
#include "statistics/random_numbers.h"

namespace halvorne::testing {
namespace {

TEST(Correlations, FactorOfAMatrixIsItsRoot) {
  // By hand: L = (2, 0, 0; 6, 1, 0; -8, 5, 3).
  const auto factor = CholeskyFactor({{4, 12, -16}, {12, 37, -43}, {-16, -43, 98}});
  ASSERT_TRUE(factor);
  EXPECT_EQ(*factor, (Matrix2{{2, 0, 0}, {6, 1, 0}, {-8, 5, 3}}));
  EXPECT_EQ(Correlated(*factor, std::vector<double>{1, 2, 3}), (std::vector<double>{2, 8, 11}));
}

TEST(Correlations, AMatrixThatIsNotPositiveDefiniteHasNoFactor) {
  EXPECT_FALSE(CholeskyFactor({{1, 1}, {1, 1}}));
  EXPECT_FALSE(CholeskyFactor({{1, 2}, {2, 1}}));
  EXPECT_FALSE(CholeskyFactor({{1, 0.9, -0.9}, {0.9, 1, 0.9}, {-0.9, 0.9, 1}}))
      << "each pair could be, all three together cannot";
  EXPECT_FALSE(CholeskyFactor({{std::nan("")}}));
}

TEST(Correlations, OfDrawnPairsAreThoseOfTheMatrix) {
  const auto factor = CholeskyFactor({{1, 0.6}, {0.6, 1}});
  double product = 0;
  constexpr int count = 40'000;
  for (std::uint64_t run = 0; run < count; ++run) {
    const std::vector<double> pair =
        Correlated(*factor, std::vector<double>{NormalQuantile(UniformNumber(3, run, 0)),
                                                NormalQuantile(UniformNumber(3, run, 1))});
    product += pair[0] * pair[1];
  }
  // The product's variance is 1 + 0.36.
  EXPECT_NEAR(product / count, 0.6, 4 * std::sqrt(1.36 / count));
}

TEST(Correlations, OfRanksLookAtTheOrderOnly) {
  const std::vector<double> x{1, 2, 3, 4, 5};
  EXPECT_NEAR(RankCorrelation(x, std::vector<double>{1, 8, 27, 64, 125}), 1, 1e-15);
  EXPECT_NEAR(RankCorrelation(x, std::vector<double>{5, 4, 3, 2, -100}), -1, 1e-15);
  // 1 - 6 (1 + 1 + 1 + 1 + 0) / (5 x 24).
  EXPECT_NEAR(RankCorrelation(x, std::vector<double>{2, 1, 4, 3, 5}), 0.8, 1e-15);
  EXPECT_TRUE(std::isnan(RankCorrelation(x, std::vector<double>{7, 7, 7, 7, 7})));
  EXPECT_TRUE(std::isnan(RankCorrelation({}, {})));
}

TEST(Correlations, EqualValuesShareTheMeanOfTheirRanks) {
  EXPECT_EQ(Ranks(std::vector<double>{30, 10, 20, 10, 10}), (std::vector<double>{5, 2, 4, 2, 2}));
}

}  // namespace
}  // namespace halvorne::testing
