#include "plot/measures.h"

#include <cmath>
#include <limits>

#include "platform/numbers.h"
#include "support/fresh_program.h"

namespace halvorne::testing {
namespace {

/// A sweep of 0 to 40 MHz in 400 steps; a record of 512 samples, 10 in a microsecond.
class Measures : public FreshProgram {
 protected:
  Measures() {
    design.FreqUnit = "MHz";
    design.FreqScale = 1e6F;
    design.FreqStart = 0;
    design.FreqStep = 1e5;
    design.NoFreqPts = 400;
    design.NoTimePts = 512;
    design.SampleRateHz = 1e7;
    view.TimeUnit = "usec";
    view.TimeScale = 1e-6;
  }
  /// Adds a triangle of a height at its middle that falls to 0 over `half` points on both sides.
  static void AddTriangle(long middle, long half, double height) {
    for (long i = middle - half; i <= middle + half; ++i) {
      if (i >= 0) {
        plot.MeasBuf(i) +=
            height * (1 - static_cast<double>(std::abs(i - middle)) / static_cast<double>(half));
      }
    }
  }
  static std::vector<std::string> Row(int row) {
    const auto& cells = measured.CFBWText[static_cast<std::size_t>(row)];
    return {cells.begin(), cells.end()};
  }
  static std::vector<std::string> WidthRow(int row) {
    const auto& cells = measured.PulseWidthText[static_cast<std::size_t>(row)];
    return {cells.begin(), cells.end()};
  }
  using Strings = std::vector<std::string>;
};

// --- CrossLevel ---

TEST_F(Measures, CrossingsAreInterpolatedLinearly) {
  AddTriangle(100, 50, 10);
  float lower = 0;
  float upper = 0;
  CrossLevel(plot.MeasBuf, 0, 400, 4.1F, lower, upper);
  // Height 4.1 is reached 4.1/10 of 50 points from the feet at 50 and 150.
  EXPECT_FLOAT_EQ(lower, 70.5F);
  EXPECT_FLOAT_EQ(upper, 129.5F);
}

TEST_F(Measures, ADipBetweenTwoLobesDoesNotSplitTheBand) {
  AddTriangle(100, 20, 10);
  AddTriangle(200, 20, 8);
  float lower = 0;
  float upper = 0;
  CrossLevel(plot.MeasBuf, 0, 400, 5, lower, upper);
  EXPECT_FLOAT_EQ(lower, 90);
  EXPECT_FLOAT_EQ(upper, 207.5F) << "8 falls to 5 within 3/8 of 20 points";
}

TEST_F(Measures, AnEndAboveTheLevelIsTakenAsItIs) {
  for (long i = 10; i <= 20; ++i) {
    plot.MeasBuf(i) = 7;
  }
  float lower = 0;
  float upper = 0;
  CrossLevel(plot.MeasBuf, 10, 20, 3.5F, lower, upper);
  EXPECT_EQ(lower, 10);
  EXPECT_EQ(upper, 20);
}

TEST_F(Measures, WithoutACrossingTheEndsChangePlaces) {
  float lower = 0;
  float upper = 0;
  CrossLevel(plot.MeasBuf, 10, 20, 0, lower, upper);
  EXPECT_EQ(lower, 20);
  EXPECT_EQ(upper, 10);
}

TEST_F(Measures, ValuesAreComparedAs32BitNumbers) {
  plot.MeasBuf(5) = 1 + 1e-9;  // as a 32-bit number no more than 1
  float lower = 0;
  float upper = 0;
  CrossLevel(plot.MeasBuf, 0, 10, 1, lower, upper);
  EXPECT_EQ(lower, 10);
  EXPECT_EQ(upper, 0);
}

TEST_F(Measures, AValueBeyond32BitsIsReportedAndLeavesTheUpperEnd) {
  plot.MeasBuf(3) = 1e39;
  float lower = -1;
  float upper = -1;
  CrossLevel(plot.MeasBuf, 0, 10, 1, lower, upper);
  EXPECT_EQ(shownMessages.Lines(),
            std::vector<std::string>{"ERROR in CrossLevel of PLOTIT|Error: 6. Overflow"});
  EXPECT_EQ(lower, 10);
  EXPECT_EQ(upper, -1);
}

// --- CFBWCalc ---

TEST_F(Measures, BandsOfATriangleAtThreeLevels) {
  AddTriangle(50, 40, 3);  // 1 to 9 MHz
  CFBWCalc(plot.MeasBuf, 10);
  EXPECT_EQ(Row(2), (Strings{"dB", "MHz", "MHz", "% CF"}));
  // The full width of 8 MHz shrinks by the level's share.
  EXPECT_EQ(Row(3), (Strings{"-3", "5.000", "4.000", "80.00"}));
  EXPECT_EQ(Row(4), (Strings{"-10", "5.000", "7.200", "144.00"}));
  EXPECT_EQ(Row(5), (Strings{"-20", "5.000", "7.920", "158.40"}));
}

TEST_F(Measures, AnAmplitudeCurveHasTheSameBandsUnderTwiceTheLevels) {
  AddTriangle(50, 40, 3);
  CFBWCalc(plot.MeasBuf, 20);
  EXPECT_EQ(Row(3), (Strings{"-6", "5.000", "4.000", "80.00"}));
  EXPECT_EQ(Row(4)[0], "-20");
  EXPECT_EQ(Row(5)[0], "-40");
}

TEST_F(Measures, TheBandOfAResonanceIsItsHalfPowerWidth) {
  // |H|^2 = 1 / (1 + (2 Q d)^2) with d = f/f0 - 1: half power at d = 1/(2 Q), here f0/Q = 2 MHz.
  design.FreqStep = 1e4;
  design.NoFreqPts = 4000;
  for (long i = 0; i <= 4000; ++i) {
    const double x = 2 * 5 * (static_cast<double>(i) * 1e4 / 10e6 - 1);
    plot.MeasBuf(i) = 1 / (1 + x * x);
  }
  CFBWCalc(plot.MeasBuf, 10);
  EXPECT_EQ(Row(3), (Strings{"-3", "10.000", "2.000", "20.00"}));
  // A tenth of the power at 2 Q d = 3, three times the width.
  EXPECT_EQ(Row(4), (Strings{"-10", "10.000", "6.000", "60.00"}));
}

TEST_F(Measures, TwoLobesAboveTheLevelAreOneBand) {
  AddTriangle(50, 10, 1);
  AddTriangle(90, 10, 1);
  CFBWCalc(plot.MeasBuf, 20);
  EXPECT_EQ(Row(3), (Strings{"-6", "7.000", "5.000", "71.43"})) << "4.5 to 9.5 MHz";
}

TEST_F(Measures, AResponseThatStartsAboveTheLevelHasFreqStartAsItsLowerEdge) {
  design.FreqStart = 2e6;
  for (long i = 0; i <= 100; ++i) {
    plot.MeasBuf(i) = 100 - static_cast<double>(i);
  }
  CFBWCalc(plot.MeasBuf, 20);
  // 50 at point 50: 2 to 7 MHz, the lower edge exact.
  EXPECT_EQ(Row(3), (Strings{"-6", "4.500", "5.000", "111.11"}));
}

TEST_F(Measures, EdgesThatSumTo100TakeTwoDecimals) {
  design.FreqScale = 1e5F;  // points 490 and 510 of 0.1 MHz are 490 and 510 units
  design.FreqStep = 1e4;
  design.NoFreqPts = 2000;
  AddTriangle(500, 20, 1);
  CFBWCalc(plot.MeasBuf, 20);
  EXPECT_EQ(Row(3), (Strings{"-6", "50.00", "2.00", "4.00"})) << "49 + 51 is not below 100";

  Reset(plot);
  AddTriangle(499, 20, 1);
  CFBWCalc(plot.MeasBuf, 20);
  EXPECT_EQ(Row(3), (Strings{"-6", "49.900", "2.000", "4.01"}));
}

TEST_F(Measures, ACurveOfZerosHasANegativeWidth) {
  CFBWCalc(plot.MeasBuf, 20);
  EXPECT_EQ(Row(3), (Strings{"-6", "20.000", "-40.000", "-200.00"})) << "ends 40 and 0 MHz";
  EXPECT_TRUE(shownMessages.Shown().empty());
}

TEST_F(Measures, EdgesThatSumToZeroAreReportedAndEndTheTable) {
  design.FreqStep = 0;
  AddTriangle(50, 40, 3);
  CFBWCalc(plot.MeasBuf, 20);
  EXPECT_EQ(shownMessages.Lines(),
            std::vector<std::string>{"ERROR in CFBWCalc of PLOTIT|Error: 11. Division by zero"});
  EXPECT_EQ(Row(3), (Strings{"-6", "0.000", "0.000", ""}));
  EXPECT_EQ(Row(4), (Strings{"", "", "", ""}));
}

// --- PulseWidthCalc ---

TEST_F(Measures, PulseWidthsOfATriangleAtThreeLevels) {
  AddTriangle(60, 50, 4);  // 10 usec wide at its foot
  PulseWidthCalc(plot.MeasBuf);
  EXPECT_EQ(WidthRow(1), (Strings{"dB", "usec"}));
  EXPECT_EQ(WidthRow(2), (Strings{"-6", "5.000"}));
  EXPECT_EQ(WidthRow(3), (Strings{"-20", "9.000"}));
  EXPECT_EQ(WidthRow(4), (Strings{"-40", "9.900"}));
  EXPECT_EQ(measured.PeakAmpl, 4);
}

TEST_F(Measures, ThePeakIsTheLargestMagnitude) {
  plot.MeasBuf(20) = 3;
  plot.MeasBuf(400) = -8;
  PulseWidthCalc(plot.MeasBuf);
  EXPECT_EQ(measured.PeakAmpl, 8);
  EXPECT_EQ(WidthRow(2)[1], "-25.600") << "3 doesn't reach half of 8";
}

TEST_F(Measures, ATroughLessDeepThanThePeakIsHighIsNotThePeak) {
  plot.MeasBuf(20) = 8;
  plot.MeasBuf(400) = -3;
  PulseWidthCalc(plot.MeasBuf);
  EXPECT_EQ(measured.PeakAmpl, 8);
  EXPECT_EQ(WidthRow(2)[1], "0.100") << "8 falls to its half after half a sample on both sides";
}

TEST_F(Measures, APulseInTheSecondHalfHasItsLevelButNoWidth) {
  AddTriangle(400, 20, 10);
  PulseWidthCalc(plot.MeasBuf);
  EXPECT_EQ(measured.PeakAmpl, 10);
  EXPECT_EQ(WidthRow(2)[1], "-25.600") << "lower = 256, upper = 0, ten samples a microsecond";
}

TEST_F(Measures, ThePeakLooksAtAllSamplesOfTheRecordAndNoFurther) {
  plot.MeasBuf(511) = 2;
  plot.MeasBuf(512) = 50;
  PulseWidthCalc(plot.MeasBuf);
  EXPECT_EQ(measured.PeakAmpl, 2);
  plot.MeasBuf(0) = 3;
  PulseWidthCalc(plot.MeasBuf);
  EXPECT_EQ(measured.PeakAmpl, 3);
}

TEST_F(Measures, ABandThatReachesTheStartOfTheSweepBeginsThereExactly) {
  design.FreqStart = 2.5e6;
  for (long i = 0; i <= 50; ++i) {
    plot.MeasBuf(i) = 1;  // falls to 0 behind 2.5 + 5 MHz
  }
  CFBWCalc(plot.MeasBuf, 20);
  // Half is reached half a point further: from 2.5 to 7.55 MHz.
  EXPECT_EQ(Row(3), (Strings{"-6", "5.025", "5.050", "100.50"}));
}

TEST_F(Measures, TwoLobesAboveHalfAreOneBandFromTheFirstToTheLast) {
  AddTriangle(100, 20, 10);
  AddTriangle(200, 20, 8);
  CFBWCalc(plot.MeasBuf, 20);
  // 9.0 MHz, and 20.75 MHz where 8 has fallen to 5.
  EXPECT_EQ(Row(3), (Strings{"-6", "14.875", "11.750", "78.99"}));
}

TEST_F(Measures, TheWidthSearchIncludesTheMiddleSample) {
  plot.MeasBuf(255) = 0.25;
  plot.MeasBuf(256) = 1;
  PulseWidthCalc(plot.MeasBuf);
  // Lower and upper are the last point of the search: it is an end, not interpolated.
  EXPECT_EQ(WidthRow(2)[1], "0.000");
}

TEST_F(Measures, ATimeScaleOfZeroIsReportedAndLeavesThePeak) {
  view.TimeScale = 0;
  measured.PeakAmpl = 77;
  AddTriangle(60, 50, 4);
  PulseWidthCalc(plot.MeasBuf);
  EXPECT_EQ(
      shownMessages.Lines(),
      std::vector<std::string>{"ERROR in PulseWidthCalc of PLOTIT|Error: 11. Division by zero"});
  EXPECT_EQ(measured.PeakAmpl, 77);
}

TEST_F(Measures, AWaveformOfTheSmallestOfAllCountsHasNoWidth) {
  design.NoTimePts = std::numeric_limits<std::int32_t>::min();
  PulseWidthCalc(plot.MeasBuf);
  EXPECT_EQ(shownMessages.Lines(),
            std::vector<std::string>{"ERROR in PulseWidthCalc of PLOTIT|Error: 6. Overflow"});
}

}  // namespace
}  // namespace halvorne::testing
