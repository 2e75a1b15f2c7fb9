#include "persistence/touchstone_file.h"

#include <limits>
#include <sstream>

#include "engine/design_model.h"
#include "platform/failure.h"
#include "support/fresh_program.h"

namespace halvorne::testing {
namespace {

class TouchstoneFile : public FreshProgram {
 protected:
  TouchstoneFile() {
    MakeSimpleDesign(2, 256);  // 1, 5 and 9 MHz
    design.DesignTitle = "A probe";
    design.DataFileName = "/data/probe.dat";
    design.CalcDateTime = "1/2/2026 10:00";
    Put(0, 50, 0);
    Put(1, 100, -50);
    Put(2, 0, 0);
  }
  static void Put(int point, double re, double im) {
    curves.ZinElecRe(point) = re;
    curves.ZinElecIm(point) = im;
  }
  static std::vector<std::string> Lines(double reference) {
    std::istringstream text(TouchstoneText(reference));
    std::vector<std::string> lines;
    for (std::string line; std::getline(text, line);) {
      lines.push_back(line);
    }
    return lines;
  }
};

TEST_F(TouchstoneFile, TellsWhoseItIsThenUnitParameterFormatAndReference) {
  const auto lines = Lines(50);
  ASSERT_EQ(lines.size(), 8U);
  EXPECT_EQ(lines[0].substr(0, 2), "! ");
  EXPECT_EQ(lines[1], "! Title: A probe");
  EXPECT_EQ(lines[2], "! Design: probe.dat");
  EXPECT_EQ(lines[3], "! Calculated: 1/2/2026 10:00");
  EXPECT_EQ(lines[4], "# HZ S RI R 50");
}

TEST_F(TouchstoneFile, HoldsTheReflectionCoefficientAtEachFrequency) {
  const auto lines = Lines(50);
  EXPECT_EQ(lines[5], "1e+06 0 0") << "matched";
  // (50 - 50j)/(150 - 50j) = (50 - 50j)(150 + 50j)/25000 = 0.4 - 0.2j
  std::istringstream second(lines[6]);
  double frequency = 0;
  double re = 0;
  double im = 0;
  second >> frequency >> re >> im;
  EXPECT_EQ(frequency, 5e6);
  EXPECT_NEAR(re, 0.4, 1e-15);
  EXPECT_NEAR(im, -0.2, 1e-15);
  EXPECT_EQ(lines[7], "9e+06 -1 0") << "a short circuit";
}

TEST_F(TouchstoneFile, TakesAnotherReference) {
  const auto lines = Lines(75.5);
  EXPECT_EQ(lines[4], "# HZ S RI R 75.5");
  std::istringstream first(lines[5]);
  double frequency = 0;
  double re = 0;
  first >> frequency >> re;
  EXPECT_NEAR(re, (50 - 75.5) / (50 + 75.5), 1e-15);
}

TEST_F(TouchstoneFile, HoldsNoCharacterOfEightBitsNorALineEndOfATitle) {
  design.DesignTitle = "Wandler f\xC3\xBCr\r\n# HZ Z RI R 1";
  const auto lines = Lines(50);
  ASSERT_EQ(lines.size(), 8U);
  EXPECT_EQ(lines[1], "! Title: Wandler f??r??# HZ Z RI R 1");
}

TEST_F(TouchstoneFile, RefusesAReferenceThatIsNoneAndAnImpedanceThatCancelsIt) {
  for (const double reference : {0.0, -50.0, std::numeric_limits<double>::infinity(),
                                 std::numeric_limits<double>::quiet_NaN()}) {
    EXPECT_THROW(TouchstoneText(reference), Failure) << reference;
  }
  Put(1, -50, 0);
  try {
    TouchstoneText(50);
    ADD_FAILURE();
  } catch (const Failure& failure) {
    EXPECT_EQ(failure.Number(), failure_number::kDivisionByZero);
  }
}

}  // namespace
}  // namespace halvorne::testing
