#include "timedomain/real_analysis.h"

#include <cmath>
#include <gtest/gtest.h>
#include <vector>

#include "timedomain/waves.h"

namespace halvorne::testing {
namespace {

class RealAnalysis : public ::testing::TestWithParam<int> {
 protected:
  struct Result {
    bool done;
    std::vector<double> re, im, quadrature;
  };

  static Result Analyse(const std::vector<double>& samples) {
    const int n = static_cast<int>(samples.size());
    Result result{false, std::vector<double>(n / 2 + 1), std::vector<double>(n / 2 + 1),
                  std::vector<double>(n, 77)};
    result.done = AnalyseReal(samples.data(), n, result.re.data(), result.im.data(),
                              result.quadrature.data());
    return result;
  }

  static std::vector<double> RandomSamples(int n) {
    std::vector<double> samples;
    for (const std::complex<double>& value : RandomWave(n, 59)) {
      samples.push_back(value.real());
    }
    return samples;
  }
};

TEST_P(RealAnalysis, FindsSpectrumAndQuadratureOfTheSumsWrittenOut) {
  const std::vector<double> samples = RandomSamples(GetParam());
  const int n = GetParam();
  const std::vector<Wide> spectrum = DirectSum({samples.begin(), samples.end()}, -1);
  std::vector<Wide> analytic(samples.size());
  for (int k = 0; k < n / 2; ++k) {
    analytic[k] = 2.0L * spectrum[k];
  }
  const std::vector<Wide> signal = DirectSum(analytic, +1);
  const Result result = Analyse(samples);
  ASSERT_TRUE(result.done);
  for (int k = 0; k <= n / 2; ++k) {
    EXPECT_NEAR(result.re[k], static_cast<double>(spectrum[k].real()), 1e-12) << k;
    EXPECT_NEAR(result.im[k], static_cast<double>(spectrum[k].imag()), 1e-12) << k;
  }
  for (int i = 0; i < n; ++i) {
    EXPECT_NEAR(result.quadrature[i], static_cast<double>(signal[i].imag() / n), 1e-12) << i;
  }
}

INSTANTIATE_TEST_SUITE_P(Powers, RealAnalysis, ::testing::Values(128, 256, 512));

TEST_F(RealAnalysis, MakesTheSineOfACosineOfTheLargestLength) {
  constexpr int kSamples = 65536;
  std::vector<double> samples(kSamples);
  for (int i = 0; i < kSamples; ++i) {
    samples[i] = std::cos(2 * M_PI * 1000 * i / kSamples);
  }
  const Result result = Analyse(samples);
  ASSERT_TRUE(result.done);
  EXPECT_NEAR(result.re[1000], kSamples / 2.0, 1e-7);
  EXPECT_NEAR(result.im[999], 0, 1e-7);
  for (int i = 0; i < kSamples; ++i) {
    ASSERT_NEAR(result.quadrature[i], std::sin(2 * M_PI * 1000 * i / kSamples), 1e-12) << i;
  }
}

TEST_F(RealAnalysis, AConstantAndTheHighestFrequencyHaveNoQuadrature) {
  std::vector<double> samples(128);
  for (int i = 0; i < 128; ++i) {
    samples[i] = i % 2 == 0 ? 5 : 1;
  }
  const Result result = Analyse(samples);
  EXPECT_EQ(result.re[0], 3 * 128);
  EXPECT_EQ(result.re[64], 2 * 128);
  for (const double sample : result.quadrature) {
    ASSERT_NEAR(sample, 0, 1e-13);
  }
}

TEST_F(RealAnalysis, LeavesShortAndHugeWaveformsToOthers) {
  std::vector<double> huge(128, 0.0);
  huge[5] = 1e301;
  for (const std::vector<double>& samples : {std::vector<double>(64, 1.0), huge}) {
    const Result result = Analyse(samples);
    EXPECT_FALSE(result.done);
    for (const double sample : result.quadrature) {
      ASSERT_EQ(sample, 77);
    }
  }
}

}  // namespace
}  // namespace halvorne::testing
