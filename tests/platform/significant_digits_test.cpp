#include "platform/significant_digits.h"

#include <charconv>
#include <cmath>
#include <cstdlib>
#include <gtest/gtest.h>
#include <limits>
#include <random>
#include <string>

namespace halvorne {
namespace {

/// What the library's conversion to so many digits finds.
SignificantDigits ByLibrary(double value, int count) {
  char text[64];
  const char* const end =
      std::to_chars(text, text + sizeof text, value, std::chars_format::scientific, count - 1).ptr;
  const std::string digits = text[0] + std::string(text + 2, text + 1 + count);
  return {std::strtoull(digits.c_str(), nullptr, 10),
          std::atoi(std::string(static_cast<const char*>(text) + 2 + count, end).c_str())};
}

void ExpectAsTheLibrary(double value, int count) {
  const auto found = LeadingDigits(value, count);
  ASSERT_TRUE(found) << value;
  const SignificantDigits expected = ByLibrary(value, count);
  EXPECT_EQ(found->digits, expected.digits) << value;
  EXPECT_EQ(found->exponent, expected.exponent) << value;
}

class EachCount : public ::testing::TestWithParam<int> {};
INSTANTIATE_TEST_SUITE_P(SignificantDigits, EachCount, ::testing::Values(7, 15));

TEST_P(EachCount, AreThoseOfTheLibraryInEveryDecade) {
  const int count = GetParam();
  std::mt19937_64 random(3);
  std::uniform_real_distribution<double> exponent(count - 27, count - 1);
  for (int trial = 0; trial < 200000; ++trial) {
    ExpectAsTheLibrary(std::pow(10, exponent(random)), count);
  }
}

TEST_P(EachCount, AreThoseOfTheLibraryBesideEachPowerOfTen) {
  const int count = GetParam();
  for (int exponent = count - 26; exponent < count - 1; ++exponent) {
    const double power = std::pow(10, exponent);
    double below = power;
    double above = power;
    for (int step = 0; step < 50; ++step) {
      ExpectAsTheLibrary(below, count);
      ExpectAsTheLibrary(above, count);
      below = std::nextafter(below, 0);
      above = std::nextafter(above, std::numeric_limits<double>::infinity());
    }
  }
}

TEST(SignificantDigits, RoundATieToEven) {
  // Both halves are exact in binary, so the eighth digit is a 5 with nothing behind it.
  EXPECT_EQ(LeadingDigits(100000.25, 7)->digits, 1000002U);
  EXPECT_EQ(LeadingDigits(100000.75, 7)->digits, 1000008U);
  EXPECT_EQ(LeadingDigits(12345.6875, 7)->digits, 1234569U);
}

TEST(SignificantDigits, CarryIntoTheNextDecade) {
  const auto carried = LeadingDigits(99999.999, 7);
  EXPECT_EQ(carried->digits, 1000000U);
  EXPECT_EQ(carried->exponent, 5);
}

TEST(SignificantDigits, AreLeftToOthersOutOfRange) {
  constexpr double infinite = std::numeric_limits<double>::infinity();
  for (const double value : {0.0, -0.0, -1.5, 1e-14, 5e-324, 1e15, 1e300, infinite, -infinite,
                             std::numeric_limits<double>::quiet_NaN()}) {
    EXPECT_FALSE(LeadingDigits(value, 15)) << value;
  }
}

}  // namespace
}  // namespace halvorne
