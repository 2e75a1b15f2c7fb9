#include "plot/axis_end_rounding.h"

#include <limits>

#include "plot/plot_state.h"
#include "support/fresh_program.h"

namespace halvorne::testing {
namespace {

class AxisEndRounding : public FreshProgram {
 protected:
  /// Fills the first points of PlotData; the rest stays zero.
  static void Points(const std::vector<PlotPoint>& values) {
    for (std::size_t i = 0; i < values.size(); ++i) {
      points.PlotData(static_cast<long>(i)) = values[i];
    }
  }
  static std::vector<float> Left() { return {scale.LeftMax, scale.LeftMin, scale.LeftMag}; }
  static std::vector<float> Right() { return {scale.RightMax, scale.RightMin, scale.RightMag}; }
};

TEST_F(AxisEndRounding, RoundOffMovesOutwardToTheTableOfMantissas) {
  struct Row {
    float x;
    bool up;
    float expected;
  };
  const Row rows[] = {
      {1.2F, true, 1.5F},  {1.2F, false, 1},       {1.7F, true, 2},
      {1.7F, false, 1.5F}, {2.5F, true, 3},        {2.5F, false, 2},
      {4.04F, true, 5},    {3.96F, false, 3},      {7, true, 7.5F},
      {7, false, 5},       {8, true, 10},          {8, false, 7.5F},
      {70, true, 75},      {0.0317F, true, 0.05F}, {0.0317F, false, 0.03F},
      {-4.04F, true, -3},  {-3.96F, false, -5},    {-8, true, -7.5F},
      {-8, false, -10},    {2.5e9F, true, 3e9F},   {-2.5e-9F, false, -3e-9F},
  };
  for (const Row& row : rows) {
    float x = row.x;
    EXPECT_EQ(RoundOff(x, row.up), row.expected) << row.x << (row.up ? " up" : " down");
    EXPECT_EQ(x, row.x) << "the argument changes only when it is zero";
  }
}

TEST_F(AxisEndRounding, RoundOffStepsTowardsZeroEvenFromAMantissaOfTheTable) {
  float five = 5;
  EXPECT_EQ(RoundOff(five, true), 5);
  EXPECT_EQ(RoundOff(five, false), 3) << "5 rounded down is 3, not 5";
  float minusFive = -5;
  EXPECT_EQ(RoundOff(minusFive, false), -5);
  EXPECT_EQ(RoundOff(minusFive, true), -3);
}

TEST_F(AxisEndRounding, RoundOffLeavesAMantissaOfExactlyOne) {
  for (const float x : {1.0F, -1.0F, 10.0F, -100.0F}) {
    float up = x;
    float down = x;
    EXPECT_EQ(RoundOff(up, true), x);
    EXPECT_EQ(RoundOff(down, false), x) << "there is no smaller mantissa";
  }
}

TEST_F(AxisEndRounding, RoundOffFeelsTheLastBitOfTheLogarithmOf1000) {
  // Log(1000)/Log(10) lies below 3, so 1000 is 10 x 100 and has a smaller mantissa below it.
  float x = 1000;
  EXPECT_EQ(RoundOff(x, true), 1000);
  EXPECT_EQ(RoundOff(x, false), 750);
}

TEST_F(AxisEndRounding, RoundOffTakesZeroAs1e30thAndWritesItBack) {
  for (const bool up : {true, false}) {
    float x = 0;
    EXPECT_EQ(RoundOff(x, up), 1e-30F);
    EXPECT_EQ(x, 1e-30F);
  }
}

TEST_F(AxisEndRounding, LimitBoundsBothEndsAndPartsEqualOnes) {
  struct Row {
    float max, min, expectedMax, expectedMin;
  };
  const Row rows[] = {
      {70, 3, 70, 3},
      {2e12F, -3e12F, 1e12F, -1e12F},
      {1e12F, -1e12F, 1e12F, -1e12F},
      {1e-13F, -1e-20F, 1e-12F, -1e-12F},
      {5, 0, 5, 0},
      {0, 0, 0, 0},
      {4, 4, 4.04F, 3.96F},
      // A negative pair changes places: its top lies below its bottom until it is rounded.
      {-4, -4, -4.04F, -3.96F},
      {3e12F, 2e12F, 1.01e12F, 0.99e12F},
  };
  for (const Row& row : rows) {
    float max = row.max;
    float min = row.min;
    Limit(max, min);
    EXPECT_FLOAT_EQ(max, row.expectedMax) << row.max << ", " << row.min;
    EXPECT_FLOAT_EQ(min, row.expectedMin) << row.max << ", " << row.min;
  }
}

TEST_F(AxisEndRounding, AdjustMagTiesTheEndsAndGivesThePowerOf1000) {
  struct Row {
    float max, min, expectedMax, expectedMin, magnitude;
  };
  const Row rows[] = {
      {75, 3, 75, 0, 1},        // one sign, a decade apart: from zero
      {-3, -75, 0, -75, 1},     //
      {75, -3, 75, -10, 1},     // two signs: the same decade beyond zero
      {3, -75, 10, -75, 1},     //
      {75, 30, 75, 30, 1},      // one decade: left alone
      {75, 0, 75, 0, 1},        // an end at zero stays there
      {0, -75, 0, -75, 1},      //
      {7.5F, -5, 7.5F, -5, 1},  //
      {5000, 3000, 5000, 3000, 1e3F},
      {2e7F, -3e7F, 2e7F, -3e7F, 1e6F},
      {0.005F, 0.003F, 0.005F, 0.003F, 1e-3F},
      {5e-7F, 3e-7F, 5e-7F, 3e-7F, 1e-9F},
      {1e-30F, 1e-30F, 1e-30F, 1e-30F, 1e-30F},
  };
  for (const Row& row : rows) {
    float max = row.max;
    float min = row.min;
    float magnitude = 0;
    AdjustMag(max, min, magnitude);
    EXPECT_EQ(max, row.expectedMax) << row.max << ", " << row.min;
    EXPECT_EQ(min, row.expectedMin) << row.max << ", " << row.min;
    EXPECT_FLOAT_EQ(magnitude, row.magnitude) << row.max << ", " << row.min;
  }
}

TEST_F(AxisEndRounding, AdjustMagLeavesAnAxisOfExactly1000WithoutADivisor) {
  // The logarithm of 1000 lies a little below 3.
  float max = 1000;
  float min = 100;
  float magnitude = 0;
  AdjustMag(max, min, magnitude);
  EXPECT_EQ(magnitude, 1);
  EXPECT_EQ(min, 100) << "and 100 counts as of the same decade";
}

TEST_F(AxisEndRounding, EndsWithoutBoundAreReported) {
  float end = std::numeric_limits<float>::infinity();
  EXPECT_EQ(RoundOff(end, true), 0);
  float other = 1;
  float magnitude = 7;
  AdjustMag(end, other, magnitude);
  EXPECT_EQ(magnitude, 7);
  EXPECT_EQ(shownMessages.Lines(),
            (std::vector<std::string>{"ERROR in RoundOff of PLOTIT|Error: 6. Overflow",
                                      "ERROR in AdjustMag of PLOTIT|Error: 6. Overflow"}));
}

TEST_F(AxisEndRounding, AutoRangeOfAConstant4RunsFrom3To5) {
  Points({{4, 4}, {4, 4}});
  AutoRange(0, 1, points.PlotData);
  EXPECT_EQ(Left(), (std::vector<float>{5, 3, 1}));
  EXPECT_EQ(Right(), Left()) << "equal ends are parted on both sides";
}

TEST_F(AxisEndRounding, AutoRangeOfAConstantMinus1RaisesTheTopOfAnEmptyAxis) {
  // -1.01 upward and -0.99 downward both come to -1.
  Points({{-1, -1}, {-1, -1}});
  AutoRange(0, 1, points.PlotData);
  EXPECT_EQ(Left(), (std::vector<float>{-0.8F, -1, 1}));
  EXPECT_EQ(Right(), Left());
}

TEST_F(AxisEndRounding, AutoRangeBoundsBothChannels) {
  Points({{2e13, 2e13}, {3e13, 3e13}});
  AutoRange(0, 1, points.PlotData);
  // Both ends come to 1e12 and are parted: 1.01e12 and 0.99e12, a decade below.
  EXPECT_EQ(Left(), (std::vector<float>{1.5e12F, 0, 1e12F}));
  EXPECT_EQ(Right(), Left());
}

TEST_F(AxisEndRounding, AutoRangeOfANegativeConstantRunsTheRightWayRound) {
  Points({{-4, -4}, {-4, -4}});
  AutoRange(0, 1, points.PlotData);
  EXPECT_EQ(Left(), (std::vector<float>{-3, -5, 1}));
}

TEST_F(AxisEndRounding, AutoRangeOfAllZeroDataEndsAt1Point2e30th) {
  AutoRange(0, 10, points.PlotData);
  EXPECT_FLOAT_EQ(scale.LeftMax, 1.2e-30F);
  EXPECT_FLOAT_EQ(scale.LeftMin, 1e-30F);
  EXPECT_FLOAT_EQ(scale.LeftMag, 1e-30F);
  EXPECT_EQ(Right(), Left());
  EXPECT_TRUE(shownMessages.Shown().empty());
}

TEST_F(AxisEndRounding, AutoRangeScalesBothChannelsOfTheNamedPointsOnly) {
  Points({{999, 999}, {3, -2.2e-4}, {70, 1.9e-4}, {-999, 999}});
  AutoRange(1, 2, points.PlotData);
  EXPECT_EQ(Left(), (std::vector<float>{75, 0, 1}));
  EXPECT_FLOAT_EQ(scale.RightMax, 2e-4F);
  EXPECT_FLOAT_EQ(scale.RightMin, -3e-4F);
  EXPECT_FLOAT_EQ(scale.RightMag, 1e-6F);
}

TEST_F(AxisEndRounding, AutoRangeSeesTheValuesAs32BitNumbers) {
  Points({{5.00000001, 0}, {2, 0}});  // the same 32-bit number as 5
  AutoRange(0, 1, points.PlotData);
  EXPECT_EQ(scale.LeftMax, 5) << "in 64 bits it would round up to 7.5";
}

TEST_F(AxisEndRounding, AutoRangeReportsAValueBeyond32Bits) {
  Points({{1, 1}, {1e39, 1}});
  AutoRange(0, 1, points.PlotData);
  EXPECT_EQ(shownMessages.Lines(),
            std::vector<std::string>{"ERROR in AutoRange of PLOTIT|Error: 6. Overflow"});
  EXPECT_EQ(scale.LeftMax, 1) << "what was found before the failure stays";
}

TEST_F(AxisEndRounding, RangesReportPointsOutsideTheArray) {
  AutoRange(65535, 65536, points.PlotData);
  LogAutoRange(-1, 0, points.PlotData);
  EXPECT_EQ(shownMessages.Lines(),
            (std::vector<std::string>{
                "ERROR in AutoRange of PLOTIT|Error: 9. Subscript out of range",
                "ERROR in LogAutoRange of PLOTIT|Error: 9. Subscript out of range"}));
}

TEST_F(AxisEndRounding, LogAutoRangeAlwaysRaisesTheTopByAPartOfAStep) {
  Points({{20, -20}, {-31, -33.5}});
  LogAutoRange(0, 1, points.PlotData);
  EXPECT_EQ(Left(), (std::vector<float>{25, -35, 1})) << "20 gives 25";
  EXPECT_EQ(Right(), (std::vector<float>{-15, -35, 1})) << "-20 gives -15";
}

TEST_F(AxisEndRounding, LogAutoRangePartsEqualEnds) {
  // -20.2 and -19.8 after the parting of equal ends: both come to -20.
  Points({{-20, 12}, {-20, 12}});
  LogAutoRange(0, 1, points.PlotData);
  EXPECT_EQ(Left(), (std::vector<float>{-20, -25, 1}));
  EXPECT_EQ(Right(), (std::vector<float>{15, 10, 1}));
}

}  // namespace
}  // namespace halvorne::testing
