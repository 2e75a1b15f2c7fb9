#include <clocale>
#include <gtest/gtest.h>
#include <ostream>
#include <string>

#include "platform/number_text.h"

namespace halvorne {
namespace {

struct TextAndValue {
  const char* text;
  double value;
};

void PrintTo(const TextAndValue& row, std::ostream* out) {
  *out << '"' << row.text << '"';
}

class SafeValText : public ::testing::TestWithParam<TextAndValue> {};

TEST_P(SafeValText, GivesTheNumberOrZero) {
  EXPECT_EQ(SafeVal(GetParam().text), GetParam().value);
}

INSTANTIATE_TEST_SUITE_P(Numbers, SafeValText,
                         ::testing::Values(TextAndValue{"0.5", 0.5}, TextAndValue{" 7 ", 7},
                                           TextAndValue{"+3", 3}, TextAndValue{"-12", -12},
                                           TextAndValue{".5", 0.5}, TextAndValue{"5.", 5},
                                           TextAndValue{"1e3", 1000}, TextAndValue{"1E-3", 0.001},
                                           TextAndValue{"2.5E+2", 250}));

INSTANTIATE_TEST_SUITE_P(
    AnythingElseIsZero, SafeValText,
    ::testing::Values(TextAndValue{"", 0}, TextAndValue{"   ", 0}, TextAndValue{"abc", 0},
                      TextAndValue{"1 2", 0}, TextAndValue{"5mm", 0}, TextAndValue{"1e", 0},
                      TextAndValue{"-", 0}, TextAndValue{".", 0}, TextAndValue{"+-5", 0},
                      TextAndValue{"++5", 0}, TextAndValue{"1E999", 0}, TextAndValue{"inf", 0},
                      TextAndValue{"nan", 0}, TextAndValue{"0x10", 0}, TextAndValue{"1.2.3", 0}));

TEST(SafeVal, TakesTheDecimalPointOfTheUserAndTheFullStop) {
  EXPECT_EQ(SafeVal("2,5", ","), 2.5);
  EXPECT_EQ(SafeVal("2.5", ","), 2.5);
  EXPECT_EQ(SafeVal("-1,25E2", ","), -125);
  EXPECT_EQ(SafeVal("1,2,3", ","), 0);
  EXPECT_EQ(SafeVal("2,5", "."), 0);
  EXPECT_EQ(SafeVal("2\u066B5", "\u066B"), 2.5);  // a point of more than one byte
}

TEST(SafeVal, AsksTheLocaleInForce) {
  const std::string before = std::setlocale(LC_NUMERIC, nullptr);
  for (const char* const name : {"de_DE.UTF-8", "de_DE.utf8", "fr_FR.UTF-8", "nl_NL.UTF-8"}) {
    if (std::setlocale(LC_NUMERIC, name) != nullptr) {
      EXPECT_EQ(SafeVal("2,5"), 2.5) << name;
      EXPECT_EQ(NumberText(2.5), "2.5") << name << " must not reach number texts";
      EXPECT_EQ(Format(2.5, "0.00"), "2.50") << name << " must not reach patterns";
    }
  }
  std::setlocale(LC_NUMERIC, "C");
  EXPECT_EQ(SafeVal("2,5"), 0);
  std::setlocale(LC_NUMERIC, before.c_str());
}

}  // namespace
}  // namespace halvorne
