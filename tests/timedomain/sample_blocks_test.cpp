#include "timedomain/sample_blocks.h"

#include <gtest/gtest.h>
#include <random>
#include <utility>
#include <vector>

namespace halvorne {
namespace {

constexpr double kInfinite = std::numeric_limits<double>::infinity();
constexpr double kNone = std::numeric_limits<double>::quiet_NaN();

using Ranges = std::vector<std::pair<long, long>>;

Ranges Blocks(long from, long to, long room) {
  Ranges ranges;
  ForBlocks(from, to, room, [&](long first, long count) { ranges.emplace_back(first, count); });
  return ranges;
}

TEST(SampleBlocks, CoverARange) {
  EXPECT_EQ(Blocks(3, 2, 600), Ranges());
  EXPECT_EQ(Blocks(3, 3, 600), (Ranges{{3, 1}}));
  EXPECT_EQ(Blocks(3, 258, 600), (Ranges{{3, 256}}));
  EXPECT_EQ(Blocks(3, 515, 600), (Ranges{{3, 256}, {259, 256}, {515, 1}}));
}

TEST(SampleBlocks, FailBehindTheLastElement) {
  Ranges done;
  const auto note = [&](long first, long count) { done.emplace_back(first, count); };
  EXPECT_THROW(ForBlocks(598, 600, 600, note), Failure);
  EXPECT_EQ(done, (Ranges{{598, 2}}));
  EXPECT_THROW(ForBlocks(600, 600, 600, note), Failure);
  EXPECT_THROW(ForBlocks(-1, 5, 600, note), Failure);
  EXPECT_EQ(done.size(), 1U);
}

TEST(SampleBlocks, StoreWhatALoopOverSamplesWouldHaveStored) {
  const double first[] = {1, 2, 3, 4};
  const double second[] = {5, 6, kInfinite, 8};
  const double third[] = {9, 10, 11, kNone};
  double one[] = {0, 0, 0, 0};
  double two[] = {0, 0, 0, 0};
  double three[] = {0, 0, 0, 0};
  EXPECT_THROW(StoreFinite({{first, one}, {second, two}, {third, three}}, 4), Failure);
  EXPECT_EQ(std::vector<double>(one, one + 4), (std::vector<double>{1, 2, 3, 0}));
  EXPECT_EQ(std::vector<double>(two, two + 4), (std::vector<double>{5, 6, 0, 0}));
  EXPECT_EQ(std::vector<double>(three, three + 4), (std::vector<double>{9, 10, 0, 0}));
  StoreFinite({{first, one}, {first, two}}, 4);
  EXPECT_EQ(one[3], 4);
  EXPECT_EQ(two[3], 4);
}

TEST(SampleBlocks, CountWhatIsFiniteAtTheBegin) {
  std::vector<double> values(300, -1e308);
  EXPECT_EQ(LeadingFinite(values.data(), 300), 300);
  for (const double bad : {kInfinite, -kInfinite, kNone}) {
    for (const long at : {0L, 7L, 255L, 299L}) {
      values[at] = bad;
      EXPECT_EQ(LeadingFinite(values.data(), 300), at);
      values[at] = 0;
    }
  }
}

TEST(SampleBlocks, HaveExtremaAndAreSearchedAsSingleSamplesAre) {
  std::mt19937 random(5);
  for (long count = 0; count < 70; ++count) {
    std::vector<double> values;
    for (long i = 0; i < count; ++i) {
      values.push_back(static_cast<double>(random()) - 2147483648.0);
    }
    double max = -1e100;
    double min = 1e100;
    for (const double value : values) {
      max = std::max(max, value);
      min = std::min(min, value);
    }
    const Extrema found = ExtremaOf(values.data(), count);
    EXPECT_EQ(found.max, max) << count;
    EXPECT_EQ(found.min, min) << count;
    if (count > 0) {
      const auto level = static_cast<float>(max);
      EXPECT_TRUE(NoneAbove(values.data(), count, level));
      EXPECT_FALSE(NoneAbove(values.data(), count, std::nextafterf(level, -1e30F)));
    }
  }
}

TEST(SampleBlocks, OfSamplesThatAreNo32BitNumbersAreLookedAtOneByOne) {
  for (const double value : {1e39, -1e39, kInfinite, kNone}) {
    const double values[] = {0, value, 0};
    EXPECT_FALSE(NoneAbove(values, 3, 1e38F)) << value;
  }
  const double close[] = {1 + 1e-9};
  EXPECT_TRUE(NoneAbove(close, 1, 1)) << "as a 32-bit number no more than 1";
}

TEST(SampleBlocks, HaveEnvelopesAndMagnitudes) {
  const double re[] = {3, -5, 0};
  const double im[] = {-4, 12, 0};
  double out[3];
  Envelope(re, im, out, 3);
  EXPECT_EQ(std::vector<double>(out, out + 3), (std::vector<double>{5, 13, 0}));
  Rectify(re, out, 3);
  EXPECT_EQ(std::vector<double>(out, out + 3), (std::vector<double>{3, 5, 0}));
}

}  // namespace
}  // namespace halvorne
