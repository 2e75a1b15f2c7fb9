#include "statistics/sample.h"

#include <cmath>
#include <gtest/gtest.h>

namespace halvorne::testing {
namespace {

TEST(Samples, HaveMeanAndDeviation) {
  Moments moments;
  EXPECT_TRUE(std::isnan(moments.Mean()));
  moments.Add(1e9 + 4);
  EXPECT_TRUE(std::isnan(moments.Deviation()));
  for (const double value : {7, 13, 16}) {
    moments.Add(1e9 + value);
  }
  // Deviations -6, -3, 3, 6 from 10: squares 90, over 3.
  EXPECT_EQ(moments.Count(), 4U);
  EXPECT_EQ(moments.Mean(), 1e9 + 10);
  EXPECT_NEAR(moments.Deviation(), std::sqrt(30), 1e-9);
}

TEST(Samples, QuantilesStandOnTheLineBetweenTheirNeighbours) {
  const std::vector<double> sorted{10, 20, 40, 80, 160};
  EXPECT_EQ(SampleQuantile(sorted, 0), 10);
  EXPECT_EQ(SampleQuantile(sorted, 0.5), 40);
  EXPECT_EQ(SampleQuantile(sorted, 0.625), 60);
  EXPECT_EQ(SampleQuantile(sorted, 1), 160);
  EXPECT_TRUE(std::isnan(SampleQuantile({}, 0.5)));
  EXPECT_EQ(SampleQuantile(std::vector<double>{3}, 0.9), 3);
}

TEST(Samples, HistogramCountsEachValueOnce) {
  std::vector<double> sorted;
  for (int k = 0; k <= 100; ++k) {
    sorted.push_back(k);
  }
  const Histogram histogram = HistogramOf(sorted);
  EXPECT_EQ(histogram.counts, (std::vector<std::size_t>{10, 10, 10, 10, 10, 10, 10, 10, 10, 11}))
      << "the largest value stands in the last bin";
  EXPECT_EQ(histogram.from, 0);
  EXPECT_EQ(histogram.width, 10);
  EXPECT_EQ(HistogramOf(std::vector<double>{2, 2, 2}).counts, (std::vector<std::size_t>{3}));
  EXPECT_TRUE(HistogramOf({}).counts.empty());
}

}  // namespace
}  // namespace halvorne::testing
