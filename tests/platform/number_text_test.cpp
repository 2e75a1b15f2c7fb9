#include "platform/number_text.h"

#include <algorithm>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <gtest/gtest.h>
#include <ostream>
#include <random>
#include <string>

namespace halvorne {
namespace {

template <class Number>
struct ValueAndText {
  Number value;
  const char* text;
};

template <class Number>
void PrintTo(const ValueAndText<Number>& row, std::ostream* out) {
  *out << row.text;
}

using Row64 = ValueAndText<double>;
using Row32 = ValueAndText<float>;
class NumberText64 : public ::testing::TestWithParam<Row64> {};
class NumberText32 : public ::testing::TestWithParam<Row32> {};

TEST_P(NumberText64, IsTheGeneralFormOfFifteenDigits) {
  EXPECT_EQ(NumberText(GetParam().value), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(
    Values, NumberText64,
    ::testing::Values(Row64{0, "0"}, Row64{-0.0, "0"}, Row64{1, "1"}, Row64{-2.5, "-2.5"},
                      Row64{0.1, "0.1"}, Row64{1.0 / 3, "0.333333333333333"},
                      Row64{2e15 / 3, "666666666666667"},
                      Row64{123456789012345678.0, "1.23456789012346E+17"}, Row64{0.0001, "0.0001"},
                      Row64{0.00009999, "9.999E-05"}, Row64{999999999999999, "999999999999999"},
                      Row64{1e15, "1E+15"}, Row64{999999999999999.9, "1E+15"},
                      Row64{1e100, "1E+100"}, Row64{-1.5e-300, "-1.5E-300"},
                      Row64{4.94065645841247e-324, "4.94065645841247E-324"},
                      Row64{0.1 + 0.2, "0.3"}, Row64{1e6, "1000000"},
                      // Not whole before they are rounded.
                      Row64{1234560.0000000002, "1234560"}, Row64{10.000000000000002, "10"},
                      Row64{999999999999990.1, "999999999999990"}));

TEST_P(NumberText32, IsTheGeneralFormOfSevenDigits) {
  EXPECT_EQ(NumberText(GetParam().value), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(Values, NumberText32,
                         ::testing::Values(Row32{0, "0"}, Row32{-0.0F, "0"}, Row32{4, "4"},
                                           Row32{0.1F, "0.1"}, Row32{1.0F / 3, "0.3333333"},
                                           Row32{1e6F, "1000000"}, Row32{9999999.0F, "9999999"},
                                           Row32{1e7F, "1E+07"}, Row32{0.0001F, "0.0001"},
                                           Row32{0.000015F, "1.5E-05"}, Row32{-2.5e20F, "-2.5E+20"},
                                           Row32{3.402823e38F, "3.402823E+38"},
                                           Row32{1234560.125F, "1234560"},
                                           Row32{4000000.25F, "4000000"}));

TEST(NumberText, HasNoSignOnWhatRoundsAwayButKeepsThatOfANumber) {
  EXPECT_EQ(NumberText(-1e-308), "-1E-308");
}

TEST(NumberText, ReadsBackToFifteenDigits) {
  std::mt19937_64 random(1);
  std::uniform_real_distribution<double> mantissa(-10, 10);
  std::uniform_int_distribution<int> exponent(-300, 300);
  for (int trial = 0; trial < 2000; ++trial) {
    const double value = mantissa(random) * std::pow(10.0, exponent(random));
    const std::string text = NumberText(value);
    EXPECT_NEAR(std::strtod(text.c_str(), nullptr), value, std::fabs(value) * 5.1e-15) << text;
    EXPECT_LE(text.size(), static_cast<std::size_t>(kNumberTextMax));
  }
}

/// The library's general form with the exponent's letter in upper case.
std::string ByLibrary(double value, int digits) {
  char text[64];
  const auto end =
      std::to_chars(text, text + sizeof text, value, std::chars_format::general, digits).ptr;
  std::string form(text, end);
  std::replace(form.begin(), form.end(), 'e', 'E');
  return form;
}

TEST(NumberText, IsTheLibrarysFormOfAnyBits) {
  std::mt19937_64 random(17);
  for (int trial = 0; trial < 300000; ++trial) {
    const std::uint64_t bits = random();
    const double decimal = static_cast<double>(bits % 100000000) / std::pow(10.0, trial % 14);
    const double near = std::ldexp(static_cast<double>(bits), -40 - trial % 70);
    for (const double value : {std::bit_cast<double>(bits), decimal, -decimal, near, -near}) {
      if (std::isfinite(value) && value != 0) {
        ASSERT_EQ(NumberText(value), ByLibrary(value, 15)) << trial;
      }
    }
    for (const float value : {std::bit_cast<float>(static_cast<std::uint32_t>(bits)),
                              static_cast<float>(decimal), static_cast<float>(-near)}) {
      if (std::isfinite(value) && value != 0) {
        ASSERT_EQ(NumberText(value), ByLibrary(value, 7)) << trial;
      }
    }
  }
}

TEST(SpacedNumberText, KeepsThePlaceOfTheSign) {
  EXPECT_EQ(SpacedNumberText(10), " 10");
  EXPECT_EQ(SpacedNumberText(-10), "-10");
  EXPECT_EQ(SpacedNumberText(0), " 0");
}

}  // namespace
}  // namespace halvorne
