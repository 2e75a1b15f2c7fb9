#include <gtest/gtest.h>
#include <limits>
#include <ostream>

#include "platform/failure.h"
#include "platform/number_text.h"

namespace halvorne {
namespace {

struct FormatRow {
  double value;
  const char* pattern;
  const char* text;
};

void PrintTo(const FormatRow& row, std::ostream* out) {
  *out << row.value << " in \"" << row.pattern << '"';
}

class FormatPattern : public ::testing::TestWithParam<FormatRow> {};

TEST_P(FormatPattern, GivesTheText) {
  EXPECT_EQ(Format(GetParam().value, GetParam().pattern), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(RequiredDigits, FormatPattern,
                         ::testing::Values(FormatRow{0, "##0.##0", "0.000"},
                                           FormatRow{1.5, "##0.##0", "1.500"},
                                           FormatRow{1234.5678, "##0.##0", "1234.568"},
                                           FormatRow{0.25, "#0.00000", "0.25000"},
                                           FormatRow{12, "#0.0", "12.0"}, FormatRow{3, "###0", "3"},
                                           FormatRow{5, "000", "005"},
                                           FormatRow{0.5, "0.00", "0.50"}));

INSTANTIATE_TEST_SUITE_P(
    OptionalDigits, FormatPattern,
    ::testing::Values(FormatRow{0, "###.##0", ".000"}, FormatRow{0.5, "###.##0", ".500"},
                      FormatRow{12.5, "###.##0", "12.500"}, FormatRow{0, "###", ""},
                      FormatRow{2.5, "##0.##", "2.5"}, FormatRow{2.25, "0.####", "2.25"},
                      FormatRow{2.00004, "0.####", "2."}, FormatRow{2.00005, "0.####", "2.0001"}));

INSTANTIATE_TEST_SUITE_P(PointAlwaysShown, FormatPattern,
                         ::testing::Values(FormatRow{5, "0.#### ", "5. "},
                                           FormatRow{5, "##0.##", "5."},
                                           FormatRow{0, "0.#### ", "0. "},
                                           FormatRow{-5, "0.#### ", "-5. "}));

// Binary 1.005 lies below, 0.285 above its decimal form: the decimal form decides.
INSTANTIATE_TEST_SUITE_P(
    HalfAwayFromZero, FormatPattern,
    ::testing::Values(FormatRow{1.005, "0.00", "1.01"}, FormatRow{-1.005, "0.00", "-1.01"},
                      FormatRow{0.285, "0.00", "0.29"}, FormatRow{2.675, "0.00", "2.68"},
                      FormatRow{0.5, "0", "1"}, FormatRow{1.5, "0", "2"}, FormatRow{2.5, "0", "3"},
                      FormatRow{-2.5, "0", "-3"}, FormatRow{0.05, "0.0", "0.1"},
                      FormatRow{0.049999999999999996, "0.0", "0.1"},
                      FormatRow{0.0499999999999999, "0.0", "0.0"},
                      FormatRow{9.9995, "0.000", "10.000"},
                      FormatRow{999.9999, "##0.##0", "1000.000"}));

INSTANTIATE_TEST_SUITE_P(NoSignOnZero, FormatPattern,
                         ::testing::Values(FormatRow{-0.0, "0.0", "0.0"},
                                           FormatRow{-0.04, "0.0", "0.0"},
                                           FormatRow{-1e-300, "##0.##0", "0.000"},
                                           FormatRow{-0.05, "0.0", "-0.1"},
                                           FormatRow{-0.0, "0.000E+00", "0.000E+00"}));

INSTANTIATE_TEST_SUITE_P(OtherCharactersStandForThemselves, FormatPattern,
                         ::testing::Values(FormatRow{34.3125, "#0.000 MRayls", "34.313 MRayls"},
                                           FormatRow{1.5, "0.000  ", "1.500  "},
                                           FormatRow{-2, "(0)", "-(2)"}));

INSTANTIATE_TEST_SUITE_P(Scientific, FormatPattern,
                         ::testing::Values(FormatRow{0, "0.000E+00", "0.000E+00"},
                                           FormatRow{1, "0.000E+00", "1.000E+00"},
                                           FormatRow{123456, "0.000E+00", "1.235E+05"},
                                           FormatRow{-0.00012345, "0.00000E+00", "-1.23450E-04"},
                                           FormatRow{9.9996e5, "0.000E+00", "1.000E+06"},
                                           FormatRow{9.9996e-10, "0.000E+00", "1.000E-09"},
                                           FormatRow{1.2345e-15, "0.000E+00", "1.235E-15"},
                                           FormatRow{1e123, "0.000E+00", "1.000E+123"}));

INSTANTIATE_TEST_SUITE_P(
    BeyondFifteenDigits, FormatPattern,
    ::testing::Values(FormatRow{1.23456789012345678, "0.00000000000000000", "1.23456789012346000"},
                      FormatRow{123456789012345678.0, "0", "123456789012346000"},
                      FormatRow{1e20, "##0.0", "100000000000000000000.0"},
                      FormatRow{1e-20, "##0.##0", "0.000"}));

TEST(Format, OverflowsForWhatIsNotFinite) {
  for (const double value :
       {std::numeric_limits<double>::infinity(), std::numeric_limits<double>::quiet_NaN()}) {
    try {
      Format(value, "0.0");
      ADD_FAILURE() << value << " was given a text";
    } catch (const Failure& failure) {
      EXPECT_EQ(failure.Number(), failure_number::kOverflow);
    }
  }
}

}  // namespace
}  // namespace halvorne
