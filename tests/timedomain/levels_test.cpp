#include "timedomain/levels.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <vector>

namespace halvorne {
namespace {

/// Magnitudes over the whole range, close together and with every remainder of a block.
std::vector<double> Magnitudes() {
  std::vector<double> values;
  for (int exponent = -1074; exponent < 1024; ++exponent) {
    for (const double mantissa : {1.0, 1.0000001, 1.3, 1.414213562, 1.999999}) {
      const double value = std::ldexp(mantissa, exponent);
      if (std::isfinite(value)) {
        values.push_back(value);
      }
    }
  }
  for (int i = -200; i <= 200; ++i) {
    values.push_back(1 + i * 1e-5);  // where the logarithm passes through zero
  }
  return values;
}

TEST(Levels, AreThoseOfTheLogarithmOverTheWholeRange) {
  const std::vector<double> magnitudes = Magnitudes();
  std::vector<double> powers = magnitudes;
  std::vector<double> amplitudes = magnitudes;
  PowersToLevels(powers.data(), static_cast<long>(powers.size()));
  AmplitudesToLevels(amplitudes.data(), static_cast<long>(amplitudes.size()));
  for (std::size_t i = 0; i < magnitudes.size(); ++i) {
    const auto level =
        static_cast<double>(10 * std::log10(static_cast<long double>(magnitudes[i])));
    const double tolerance = 1.5e-15 * std::fabs(level);
    EXPECT_NEAR(powers[i], level, tolerance) << magnitudes[i];
    EXPECT_NEAR(amplitudes[i], 2 * level, 2 * tolerance) << magnitudes[i];
  }
}

TEST(Levels, TakeMagnitudesAndForZeroTheSmallestOne) {
  double values[] = {0, -0.0, -100, 100};
  AmplitudesToLevels(values, 4);
  EXPECT_NEAR(values[0], -760, 1e-12);
  EXPECT_NEAR(values[1], -760, 1e-12);
  EXPECT_NEAR(values[2], 40, 1e-13);
  EXPECT_EQ(values[3], values[2]);
}

TEST(Levels, ShowWhatIsNotFinite) {
  constexpr double infinite = std::numeric_limits<double>::infinity();
  double values[] = {1, infinite, -infinite, std::numeric_limits<double>::quiet_NaN(), 1};
  PowersToLevels(values, 5);
  EXPECT_TRUE(std::isfinite(values[0]));
  for (int i = 1; i < 4; ++i) {
    EXPECT_FALSE(std::isfinite(values[i])) << i;
  }
}

TEST(Levels, ComeFromAmplitudesThatTheyGiveBack) {
  std::vector<double> levels;
  for (int i = -30000; i <= 3001; ++i) {
    levels.push_back(i / 50.0);
  }
  std::vector<double> amplitudes(levels.size());
  LevelsToAmplitudes(levels.data(), amplitudes.data(), static_cast<long>(levels.size()));
  for (std::size_t i = 0; i < levels.size(); ++i) {
    const auto expected =
        static_cast<double>(std::pow(10.0L, static_cast<long double>(levels[i]) / 20));
    // The exponent's rounding counts as often as the exponent is large.
    EXPECT_NEAR(amplitudes[i], expected, expected * 2e-14) << levels[i];
  }
  double one = 0;
  double two = 0;
  const double noLevel = 0;
  const double endless = 1e6;
  LevelsToAmplitudes(&noLevel, &one, 1);
  LevelsToAmplitudes(&endless, &two, 1);
  EXPECT_EQ(one, 1);
  EXPECT_TRUE(std::isinf(two));
}

}  // namespace
}  // namespace halvorne
