#include "statistics/random_numbers.h"

#include <cmath>
#include <gtest/gtest.h>

namespace halvorne::testing {
namespace {

using Words = std::array<std::uint32_t, 4>;

TEST(RandomNumbers, AreThoseThatTheirInventorsPublished) {
  EXPECT_EQ(Philox({0, 0, 0, 0}, {0, 0}), (Words{0x6627e8d5, 0xe169c58d, 0xbc57ac4c, 0x9b00dbd8}));
  EXPECT_EQ(Philox({~0U, ~0U, ~0U, ~0U}, {~0U, ~0U}),
            (Words{0x408f276d, 0x41c83b0e, 0xa20bc7c6, 0x6d5451fd}));
  EXPECT_EQ(Philox({0x243f6a88, 0x85a308d3, 0x13198a2e, 0x03707344}, {0xa4093822, 0x299f31d0}),
            (Words{0xd16cfe09, 0x94fdcceb, 0x5001e420, 0x24126ea1}));
}

TEST(RandomNumbers, AreBetweenZeroAndOneAndEvenlySpread) {
  constexpr int count = 20'000;
  double sum = 0;
  double squares = 0;
  for (int run = 0; run < count; ++run) {
    const double u = UniformNumber(7, static_cast<std::uint64_t>(run), 3);
    ASSERT_GT(u, 0);
    ASSERT_LT(u, 1);
    sum += u;
    squares += u * u;
  }
  // Four standard errors of the mean, 0.2887 / sqrt(n), and of the second moment, 0.2981 / sqrt(n).
  EXPECT_NEAR(sum / count, 0.5, 4 * 0.2887 / std::sqrt(count));
  EXPECT_NEAR(squares / count, 1.0 / 3, 4 * 0.2981 / std::sqrt(count));
}

TEST(RandomNumbers, OfRunsStreamsAndSeedsAreDifferent) {
  const double u = UniformNumber(1, 2, 3);
  EXPECT_EQ(UniformNumber(1, 2, 3), u);
  EXPECT_NE(UniformNumber(2, 2, 3), u);
  EXPECT_NE(UniformNumber(1, 3, 3), u);
  EXPECT_NE(UniformNumber(1, 2, 4), u);
  EXPECT_NE(UniformNumber(1ULL << 32, 0, 0), UniformNumber(0, 0, 0));
  EXPECT_NE(UniformNumber(0, 1ULL << 32, 0), UniformNumber(0, 0, 0));
}

}  // namespace
}  // namespace halvorne::testing
