#include "plot/conversions.h"

#include <cmath>
#include <complex>
#include <gtest/gtest.h>

#include "platform/numbers.h"
#include "plot/plot_state.h"
#include "support/fresh_program.h"

namespace halvorne {
namespace {

using Lines = std::vector<std::string>;

class ConversionsTest : public testing::FreshProgram {
 protected:
  ConversionsTest() { testing::MakeSimpleDesign(2, 64); }

  void ExpectPoint(const PlotPoint& point, double y1, double y2) {
    EXPECT_NEAR(point.Y1, y1, 1e-11 * std::fabs(y1));
    EXPECT_NEAR(point.Y2, y2, 1e-10);
  }
};

class AttenCalcTest : public ConversionsTest {
 protected:
  AttenCalcTest() {
    design.FreqStart = 1e6;
    design.FreqStop = 3e6;
    design.AttenOn = true;
    design.AttenLength = 2;
    design.AttenRate = 0.5;
    design.AttenFreq = 1e6F;
    design.AttenExp = 1;
    for (int i = 0; i <= 2; ++i) {
      points.RawData(i) = {4, -8};
    }
  }
};

TEST_F(AttenCalcTest, TakesOneDecibelPerMegahertzOffBothChannels) {
  AttenCalc(20, 1);
  for (int i = 0; i <= 2; ++i) {
    const double factor = std::exp(-std::log(10.0) * (i + 1) / 20);
    ExpectPoint(points.RawData(i), 4 * factor, -8 * factor);
  }
}

TEST_F(AttenCalcTest, CountsBothWaysOfAnEcho) {
  AttenCalc(20, 2);
  ExpectPoint(points.RawData(2), 4 * std::exp(-std::log(10.0) * 6 / 20),
              -8 * std::exp(-std::log(10.0) * 6 / 20));
}

TEST_F(AttenCalcTest, TakesTenDecibelsOfAPowerAsATenth) {
  design.AttenLength = 20;
  AttenCalc(10, 1);
  ExpectPoint(points.RawData(0), 0.4, -0.8);
}

TEST_F(AttenCalcTest, FollowsTheFrequencyLaw) {
  design.AttenExp = 2;
  AttenCalc(20, 1);
  ExpectPoint(points.RawData(2), 4 * std::exp(-std::log(10.0) * 9 / 20),
              -8 * std::exp(-std::log(10.0) * 9 / 20));
}

TEST_F(AttenCalcTest, MultipliesLengthAndRateIn64Bits) {
  design.AttenLength = 33.3F;
  design.AttenRate = 1.7F;
  AttenCalc(20, 1);
  const double decibels = static_cast<double>(33.3F) * static_cast<double>(1.7F);
  const double expected = 4 * std::exp(-std::log(10.0) * decibels / 20);
  EXPECT_NEAR(points.RawData(0).Y1 / expected, 1, 1e-12);
}

TEST_F(AttenCalcTest, DoesNothingWhenSwitchedOff) {
  design.AttenOn = false;
  design.AttenFreq = 0;
  AttenCalc(20, 1);
  EXPECT_EQ(points.RawData(1).Y1, 4);
  EXPECT_EQ(shownMessages.Lines(), Lines{});
}

TEST_F(AttenCalcTest, AReferenceOfZeroHertzFails) {
  design.AttenFreq = 0;
  AttenCalc(20, 1);
  EXPECT_EQ(shownMessages.Lines(),
            Lines{"ERROR in AttenCalc of PLOTIT|Error: 11. Division by zero"});
  EXPECT_EQ(points.RawData(0).Y1, 4);
}

TEST_F(AttenCalcTest, AGainBeyondAllNumbersFailsAtItsPoint) {
  design.AttenLength = -2000;
  design.AttenExp = 2;
  AttenCalc(20, 2);
  EXPECT_EQ(shownMessages.Lines(), Lines{"ERROR in AttenCalc of PLOTIT|Error: 6. Overflow"});
  EXPECT_NEAR(points.RawData(0).Y1 / 4e100, 1, 1e-11);
  EXPECT_EQ(points.RawData(1).Y1, 4) << "400 decades are too many";
}

TEST_F(ConversionsTest, PolarConvertAgreesWithTheComplexNumbersOffTheNegativeAxis) {
  design.NoFreqPts = 15;
  for (int i = 0; i <= 15; ++i) {
    const std::complex<double> value = std::polar(1.0 + i, 0.1 + 0.4 * i);
    points.RawData(i) = {value.real(), value.imag()};
  }
  PolarConvert(15, points.RawData, points.RawData, 0);
  for (int i = 0; i <= 15; ++i) {
    const double angle = std::arg(std::polar(1.0, 0.1 + 0.4 * i)) * 180 / std::acos(-1.0);
    ExpectPoint(points.RawData(i), 1.0 + i, angle);
  }
}

TEST_F(ConversionsTest, PolarConvertOnTheAxes) {
  points.RawData(0) = {0, 3};
  points.RawData(1) = {0, -3};
  points.RawData(2) = {0, 0};
  points.RawData(3) = {-3, 0};
  points.RawData(4) = {3, 0};
  PolarConvert(4, points.RawData, points.RawData, 0);
  ExpectPoint(points.RawData(0), 3, 90);
  ExpectPoint(points.RawData(1), 3, -90);
  ExpectPoint(points.RawData(2), 0, 0);
  ExpectPoint(points.RawData(3), 3, 0);
  ExpectPoint(points.RawData(4), 3, 0);
}

TEST_F(ConversionsTest, PolarConvertRoundsItsOffsetAndReadsFromThere) {
  points.RawData(2) = {0, 5};
  points.RawData(3) = {7, 0};
  static Bounded<PlotPoint, 0, kLastFreqPoint> destination;
  PolarConvert(1, points.RawData, destination, 1.6);
  ExpectPoint(destination(0), 5, 90);
  ExpectPoint(destination(1), 7, 0);
}

TEST_F(ConversionsTest, PolarConvertStopsAtAMagnitudeThatOverflows) {
  points.RawData(0) = {3, 4};
  points.RawData(1) = {1e200, 1e200};
  PolarConvert(1, points.RawData, points.RawData, 0);
  EXPECT_EQ(points.RawData(0).Y1, 5);
  EXPECT_EQ(points.RawData(1).Y1, 1e200);
  EXPECT_EQ(shownMessages.Lines(), Lines{"ERROR in PolarConvert of PLOTIT|Error: 6. Overflow"});
}

struct ImpedanceRow {
  int index;
  double y1;
  double y2;
};

TEST_F(ConversionsTest, ReImConvertMakesTheSixFormsOfAnImpedance) {
  const double angle = std::atan2(4.0, 3.0) * 180 / std::acos(-1.0);
  for (const ImpedanceRow& row :
       {ImpedanceRow{0, 5, angle}, ImpedanceRow{1, 0.2, -angle}, ImpedanceRow{2, 3, 4},
        ImpedanceRow{3, 0.12, -0.16}, ImpedanceRow{4, 20 * std::log10(5), angle},
        ImpedanceRow{5, -20 * std::log10(5), -angle}}) {
    SCOPED_TRACE(row.index);
    points.RawData(1) = {3, 4};
    plot.AmplLog = false;
    ReImConvert(static_cast<std::int16_t>(row.index));
    ExpectPoint(points.PlotData(1), row.y1, row.y2);
    EXPECT_EQ(plot.AmplLog, row.index >= 4);
  }
}

TEST_F(ConversionsTest, ReImConvertTakesEveryPointOfTheSweepAndNoOther) {
  for (const int index : {0, 1, 2, 3, 4, 5}) {
    SCOPED_TRACE(index);
    for (int i = 0; i <= 3; ++i) {
      points.RawData(i) = {3, 4};
      points.PlotData(i) = {77, 78};
    }
    ReImConvert(static_cast<std::int16_t>(index));
    for (const int i : {0, 2}) {
      EXPECT_EQ(points.PlotData(i).Y1, points.PlotData(1).Y1);
      EXPECT_EQ(points.PlotData(i).Y2, points.PlotData(1).Y2);
    }
    EXPECT_EQ(points.PlotData(3).Y1, 77);
  }
}

TEST_F(ConversionsTest, ReImConvertReadsTheLeftHalfPlaneTheOtherWayRound) {
  points.RawData(0) = {-1, 1};
  points.RawData(1) = {-1, -1};
  points.RawData(2) = {-2, 0};
  ReImConvert(0);
  ExpectPoint(points.PlotData(0), std::sqrt(2), -225);
  ExpectPoint(points.PlotData(1), std::sqrt(2), 225);
  ExpectPoint(points.PlotData(2), 2, 0);
  ReImConvert(1);
  ExpectPoint(points.PlotData(0), 1 / std::sqrt(2), 225);
}

TEST_F(ConversionsTest, ReImConvertPutsSmallNumbersForZeroDivisors) {
  points.RawData(0) = {0, 50};
  points.RawData(1) = {0, -50};
  points.RawData(2) = {0, 0};
  ReImConvert(0);
  ExpectPoint(points.PlotData(0), 50, 90);
  ExpectPoint(points.PlotData(1), 50, -90);
  ExpectPoint(points.PlotData(2), 0, 0);
  ReImConvert(1);
  EXPECT_EQ(points.PlotData(2).Y1, 1e38) << "1e44, limited";
  ReImConvert(3);
  ExpectPoint(points.PlotData(2), 0, 0);
  ReImConvert(4);
  ExpectPoint(points.PlotData(2), -760, 0);
  ReImConvert(5);
  ExpectPoint(points.PlotData(2), 880, 0);
}

TEST_F(ConversionsTest, ReImConvertLimitsEveryForm) {
  points.RawData(1) = {1e60, -1e-60};
  ReImConvert(2);
  EXPECT_EQ(points.PlotData(1).Y1, 1e38);
  EXPECT_EQ(points.PlotData(1).Y2, -1e-38);
}

TEST_F(ConversionsTest, ReImConvertMeasuresNothing) {
  plot.MeasBuf(0) = 77;
  ReImConvert(0);
  EXPECT_EQ(plot.MeasBuf(0), 77);
  EXPECT_FALSE(measured.CFBWValid || measured.PulseWidthValid || measured.AttenValid);
}

TEST_F(ConversionsTest, ReImConvertStopsWhereTheSquareOverflows) {
  points.RawData(0) = {3, 4};
  points.RawData(1) = {1e200, 0};
  points.PlotData(1) = {77, 78};
  ReImConvert(4);
  EXPECT_EQ(shownMessages.Lines(), Lines{"ERROR in ReImConvert of PLOTIT|Error: 6. Overflow"});
  EXPECT_EQ(points.PlotData(0).Y1, 5) << "the logarithms come behind all points";
  EXPECT_EQ(points.PlotData(1).Y1, 77);
  EXPECT_FALSE(plot.AmplLog);
}

class LinLogConvertTest : public ConversionsTest {
 protected:
  LinLogConvertTest() {
    view.CurrentPlot = 14;
    points.RawData(0) = {10, 30};
    points.RawData(1) = {1000, -40};
    points.RawData(2) = {0.1, 50};
  }
};

TEST_F(LinLogConvertTest, LinearCopiesBothChannelsOfEveryPoint) {
  LinLogConvert(0, 20);
  ExpectPoint(points.PlotData(0), 10, 30);
  ExpectPoint(points.PlotData(1), 1000, -40);
  ExpectPoint(points.PlotData(2), 0.1, 50);
  EXPECT_EQ(plot.MeasBuf(0), 10);
  EXPECT_EQ(plot.MeasBuf(1), 1000);
  EXPECT_EQ(plot.MeasBuf(2), 0.1);
  EXPECT_FALSE(plot.AmplLog);
  EXPECT_TRUE(measured.CFBWValid);
  EXPECT_TRUE(measured.AttenValid);
  EXPECT_FALSE(measured.PulseWidthValid);
}

TEST_F(LinLogConvertTest, LogIsInDecibelsAndLeavesThePhase) {
  LinLogConvert(1, 20);
  ExpectPoint(points.PlotData(0), 20, 30);
  ExpectPoint(points.PlotData(2), -20, 50);
  EXPECT_TRUE(plot.AmplLog);
  LinLogConvert(1, 10);
  ExpectPoint(points.PlotData(0), 10, 30);
}

TEST_F(LinLogConvertTest, AThousandGivesALittleLessThanSixtyDecibels) {
  LinLogConvert(1, 20);
  EXPECT_LT(points.PlotData(1).Y1, 60);
  EXPECT_NEAR(points.PlotData(1).Y1, 60, 1e-13);
}

TEST_F(LinLogConvertTest, LogarithmsWriteBackIntoWhatWasGathered) {
  points.RawData(0).Y1 = 0;
  points.RawData(1).Y1 = -10;
  LinLogConvert(1, 20);
  ExpectPoint(points.PlotData(0), -760, 30);
  ExpectPoint(points.PlotData(1), 20, -40);
  EXPECT_EQ(points.RawData(0).Y1, 1e-38);
  EXPECT_EQ(points.RawData(1).Y1, 10);
  EXPECT_EQ(plot.MeasBuf(0), 0) << "the measure was filled before";
  LinLogConvert(1, 10);
  ExpectPoint(points.PlotData(0), -380, 30);
}

TEST_F(LinLogConvertTest, LinearWritesNothingBack) {
  points.RawData(0).Y1 = 0;
  LinLogConvert(0, 20);
  EXPECT_EQ(points.RawData(0).Y1, 0);
}

TEST_F(LinLogConvertTest, AnotherIndexLeavesThePlotButMeasures) {
  points.PlotData(0) = {77, 78};
  LinLogConvert(2, 20);
  EXPECT_EQ(points.PlotData(0).Y1, 77);
  EXPECT_TRUE(measured.CFBWValid);
}

TEST_F(LinLogConvertTest, TheBandOfTheInsertionLossIsMeasuredOnItsInverse) {
  LinLogConvert(0, 20);
  EXPECT_EQ(plot.MeasBuf(1), 1000);
  view.CurrentPlot = 32;
  LinLogConvert(0, 20);
  EXPECT_EQ(plot.MeasBuf(1), 0.001);
  EXPECT_EQ(points.PlotData(1).Y1, 1000);
}

TEST_F(LinLogConvertTest, AnInsertionLossOfZeroFails) {
  view.CurrentPlot = 32;
  points.RawData(1).Y1 = 0;
  points.PlotData(0).Y1 = 77;
  LinLogConvert(0, 20);
  EXPECT_EQ(shownMessages.Lines(),
            Lines{"ERROR in LinLogConvert of PLOTIT|Error: 11. Division by zero"});
  EXPECT_EQ(points.PlotData(0).Y1, 77);
  EXPECT_FALSE(measured.CFBWValid);
}

TEST_F(ConversionsTest, LimitPdataBoundsMagnitudesAndLeavesZero) {
  struct Row {
    double value;
    double limited;
  };
  design.NoFreqPts = 0;
  for (const Row& row :
       {Row{2e38, 1e38}, Row{-2e38, -1e38}, Row{1e38, 1e38}, Row{5e-39, 1e-38}, Row{-5e-39, -1e-38},
        Row{1e-38, 1e-38}, Row{0, 0}, Row{-7, -7}, Row{9e37, 9e37}, Row{2e-38, 2e-38}}) {
    points.PlotData(0) = {row.value, -row.value};
    points.PlotData(1) = {1e50, 1e50};
    LimitPdata();
    EXPECT_EQ(points.PlotData(0).Y1, row.limited);
    EXPECT_EQ(points.PlotData(0).Y2, -row.limited);
    EXPECT_EQ(points.PlotData(1).Y1, 1e50) << "beyond the sweep";
  }
}

TEST_F(ConversionsTest, LimitPdataReportsMorePointsThanThereAre) {
  design.NoFreqPts = 65536;
  points.PlotData(65535).Y1 = 1e50;
  LimitPdata();
  EXPECT_EQ(points.PlotData(65535).Y1, 1e38);
  EXPECT_EQ(shownMessages.Lines(),
            Lines{"ERROR in LimitPdata of PLOTIT|Error: 9. Subscript out of range"});
}

TEST_F(ConversionsTest, VDispConvertShowsTheFactorsOfAllPointsAndNoSecondTrace) {
  view.CurrentPlot = 52;
  window.AddPlotType("Piezo Layer");
  for (int i = 0; i <= 3; ++i) {
    design.VelDisp(0, i) = 1.5 + i;
    points.PlotData(i) = {77, 77};
  }
  VDispConvert();
  for (int i = 0; i <= 2; ++i) {
    EXPECT_EQ(points.PlotData(i).Y1, 1.5 + i);
    EXPECT_EQ(points.PlotData(i).Y2, 0);
  }
  EXPECT_EQ(points.PlotData(3).Y1, 77) << "beyond the sweep";
}

TEST_F(ConversionsTest, VDispConvertReportsMorePointsThanThereAre) {
  view.CurrentPlot = 53;
  design.NoFreqPts = kLastFreqPoint + 1;
  VDispConvert();
  EXPECT_EQ(shownMessages.Lines().back(),
            "ERROR in VDispConvert of PLOTIT|Error: 9. Subscript out of range");
}

TEST_F(ConversionsTest, ArrayMaxMinFindsTheExtremesOfItsRange) {
  static MeasureBuffer array;
  for (int i = 0; i < 6; ++i) {
    array(i) = i * (5 - i);
  }
  array(0) = -100;
  array(5) = 100;
  double max = 0;
  double min = 0;
  ArrayMaxMin(array, 1, 4, max, min);
  EXPECT_EQ(max, 6);
  EXPECT_EQ(min, 4);
  ArrayMaxMin(array, 4, 1, max, min);
  EXPECT_EQ(max, -1e100);
  EXPECT_EQ(min, 1e100);
  ArrayMaxMin(array, kLastTimePoint, kLastTimePoint + 1, max, min);
  EXPECT_EQ(shownMessages.Lines(),
            Lines{"ERROR in ArrayMaxMin of PLOTIT|Error: 9. Subscript out of range"});
  EXPECT_EQ(max, 0) << "what was seen before the failure counts";
}

}  // namespace
}  // namespace halvorne
