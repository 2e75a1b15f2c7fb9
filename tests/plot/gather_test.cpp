#include <cmath>
#include <functional>
#include <gtest/gtest.h>

#include "plot/curves_by_formula.h"
#include "plot/plot_select.h"
#include "plot/plot_state.h"
#include "support/fresh_program.h"

namespace halvorne {
namespace {

using testing::CurveValue;
using Value = std::complex<double>;

constexpr double kTermTx = 0.3;
constexpr double kTermRx = 0.7;
constexpr double kArea = 2e-4;
constexpr double kLayerArea = 0.8;

double Degrees(const Value& value) {
  return std::arg(value) * 180 / std::acos(-1.0);
}

PlotPoint Rectangular(const Value& value) {
  return {value.real(), value.imag()};
}
PlotPoint Polar(const Value& value) {
  return {std::abs(value), Degrees(value)};
}

/// What is gathered for a point, without loss in the medium, and the parts of a one-way
/// attenuation in dB that its first and second channel lose: decibels and divisor.
struct ExpectedPlot {
  int number;
  std::function<PlotPoint(int)> value;
  double decibels;  ///< by which the first channel falls per dB of one-way loss, in 20 log10
  bool bothChannels;
};

Value Z(int curve, int i) {
  return CurveValue(curve, i);
}

Value Reflection(const Value& z, const Value& z0) {
  return (z - z0) / (z + z0);
}

PlotPoint TransmitPower(int i) {
  const Value load = Z(testing::kZFront, i);
  const double k = kArea * kLayerArea * 4 * kTermTx;
  return {std::norm(Z(testing::kTxTF, i)) * k * (1.0 / load).real(), 0};
}

PlotPoint ReceivePower(int i) {
  const double k = 4e-12 / (kTermRx * kArea * kLayerArea);
  return {std::norm(Z(testing::kRxTF, i)) * k * Z(testing::kZFront, i).real(), 0};
}

PlotPoint InsertionLoss(int i) {
  const PlotPoint transfer = Polar(Z(testing::kTwoWayTF, i));
  return {1 / (4 * transfer.Y1), transfer.Y2};
}

const ExpectedPlot kPlots[] = {
    {11, [](int i) { return Rectangular(Z(testing::kZinElec, i)); }, 0, false},
    {12, [](int i) { return Polar(Reflection(Z(testing::kZinElec, i), kTermTx)); }, 0, false},
    {13,
     [](int i) {
       return PlotPoint{testing::TxEffValue(i), 0};
     },
     2, false},
    {14, [](int i) { return Polar(Z(testing::kTxTF, i)); }, 1, false},
    {15, TransmitPower, 2, false},
    {16, [](int i) { return Rectangular(Z(testing::kTxTF, i)); }, 1, true},
    {17, [](int i) { return Rectangular(Z(testing::kTxTF, i)); }, 1, true},
    {21, [](int i) { return Rectangular(Z(testing::kZinAc, i)); }, 0, false},
    {22, [](int i) { return Polar(Reflection(Z(testing::kZinAc, i), Z(testing::kZFront, i))); }, 0,
     false},
    {23,
     [](int i) {
       return PlotPoint{testing::RxEffValue(i), 0};
     },
     2, false},
    {24, [](int i) { return Polar(2.0 * Z(testing::kRxTF, i)); }, 1, false},
    {25, ReceivePower, 2, false},
    {26, [](int i) { return Rectangular(2.0 * Z(testing::kRxTF, i)); }, 1, true},
    {27, [](int i) { return Rectangular(2.0 * Z(testing::kRxTF, i)); }, 1, true},
    {31, [](int i) { return Polar(Z(testing::kTwoWayTF, i)); }, 2, false},
    {32, InsertionLoss, -2, false},
    {33, [](int i) { return Rectangular(Z(testing::kTwoWayTF, i)); }, 2, true},
    {34, [](int i) { return Rectangular(Z(testing::kTwoWayTF, i)); }, 2, true},
    {41, [](int i) { return Rectangular(Z(testing::kZFront, i)); }, 0, false},
    {42, [](int i) { return Rectangular(Z(testing::kZBack, i)); }, 0, false},
    {51,
     [](int i) {
       return PlotPoint{testing::DispersionValue(2, i), 0};
     },
     0, false},
    {52,
     [](int i) {
       return PlotPoint{testing::DispersionValue(0, i), 0};
     },
     0, false},
    {53,
     [](int i) {
       return PlotPoint{testing::DispersionValue(14, i), 0};
     },
     0, false},
};

class GatherTest : public testing::FreshProgram {
 protected:
  GatherTest() {
    testing::MakeSimpleDesign(kIntervals, 64);
    testing::SetAllCurves();
    design.TermTx = kTermTx;
    design.TermRx = kTermRx;
    design.ElementArea = kArea;
    design.NoFace = 3;
    design.NoBack = 4;
    design.FrontArea(3) = kLayerArea;
    setup.DispFaceLayer = 2;
    setup.DispBackLayer = 14;
  }

  void Select(int plotNumber) {
    view.CurrentPlot = static_cast<std::int16_t>(plotNumber);
    PlotSelect(view.CurrentPlot);
  }

  void ExpectPoint(int i, const PlotPoint& expected) {
    EXPECT_NEAR(points.RawData(i).Y1, expected.Y1, 1e-11 * std::fabs(expected.Y1)) << i;
    EXPECT_NEAR(points.RawData(i).Y2, expected.Y2, 1e-10) << i;
  }

  static constexpr int kIntervals = 8;
};

TEST_F(GatherTest, EveryPlotGathersItsCurve) {
  for (const ExpectedPlot& expected : kPlots) {
    SCOPED_TRACE(expected.number);
    Select(expected.number);
    for (int i = 0; i <= kIntervals; ++i) {
      ExpectPoint(i, expected.value(i));
    }
    EXPECT_TRUE(shownMessages.Lines().empty());
  }
}

TEST_F(GatherTest, EveryPlotLosesItsShareInTheMedium) {
  design.AttenOn = true;
  design.AttenLength = 2;
  design.AttenRate = 0.5;
  design.AttenFreq = 2e6F;
  design.AttenExp = 1.5;
  for (const ExpectedPlot& expected : kPlots) {
    SCOPED_TRACE(expected.number);
    Select(expected.number);
    for (int i = 0; i <= kIntervals; ++i) {
      const double oneWay = 2 * 0.5 * std::pow((1 + i) / 2.0, 1.5);
      const double factor = std::exp(-std::log(10.0) * oneWay * expected.decibels / 20);
      PlotPoint value = expected.value(i);
      value.Y1 *= factor;
      if (expected.bothChannels) {
        value.Y2 *= factor;
      }
      ExpectPoint(i, value);
    }
    EXPECT_TRUE(shownMessages.Lines().empty()) << "plots without decibels ask for no loss";
  }
}

TEST_F(GatherTest, OnlyPointsOfTheSweepAreTouched) {
  points.RawData(kIntervals + 1) = {77, 78};
  for (const ExpectedPlot& expected : kPlots) {
    Select(expected.number);
    EXPECT_EQ(points.RawData(kIntervals + 1).Y1, 77) << expected.number;
    EXPECT_EQ(points.RawData(kIntervals + 1).Y2, 78) << expected.number;
  }
}

TEST_F(GatherTest, ALoadOfNothingTakesTheSmallestSquareInTheTransmitPower) {
  design.ZFrontRe(3) = 1e-30;
  design.ZFrontIm(3) = 0;
  design.ZFrontRe(4) = 1e-3;
  design.ZFrontIm(4) = 0;
  design.ZFrontRe(5) = 7e-26;  // a square of 4.9e-51
  design.ZFrontIm(5) = 0;
  Select(15);
  const double k = kArea * kLayerArea * 4 * kTermTx;
  const double expected = std::norm(Z(testing::kTxTF, 3)) * k * (1e-30 / 1e-50);
  EXPECT_NEAR(points.RawData(3).Y1 / expected, 1, 1e-12);
  const double nearly = std::norm(Z(testing::kTxTF, 5)) * k * (7e-26 / 1e-50);
  EXPECT_NEAR(points.RawData(5).Y1 / nearly, 1, 1e-12);
  const double soft = std::norm(Z(testing::kTxTF, 4)) * k * 1e3;
  EXPECT_NEAR(points.RawData(4).Y1 / soft, 1, 1e-12) << "a soft load is taken as it is";
}

TEST_F(GatherTest, NoTransferIsTheLargestInsertionLoss) {
  curves.TwoWayTFRe(2) = curves.TwoWayTFIm(2) = 0;
  Select(32);
  EXPECT_NEAR(points.RawData(2).Y1 / 0.25e100, 1, 1e-12);
}

TEST_F(GatherTest, ReceiverOfNoResistanceFailsBeforeAnythingIsGathered) {
  points.RawData(0) = {77, 78};
  design.TermRx = 0;
  window.OwnPicture().Forget();
  Select(25);
  EXPECT_EQ(shownMessages.Lines(),
            std::vector<std::string>{"ERROR in PlotSelect of PLOTIT|Error: 11. Division by zero"});
  EXPECT_EQ(points.RawData(0).Y1, 77);
  EXPECT_TRUE(window.OwnPicture().Operations().empty());
}

TEST_F(GatherTest, APoleOfTheReflectionEndsTheGatheringAtItsPoint) {
  curves.ZinElecRe(4) = -kTermTx;
  curves.ZinElecIm(4) = 0;
  points.RawData(4) = {77, 78};
  plot.PlotTitle = "the plot before";
  Select(12);
  EXPECT_EQ(shownMessages.Lines(),
            std::vector<std::string>{"ERROR in PlotSelect of PLOTIT|Error: 11. Division by zero"});
  const Value last = Reflection(Z(testing::kZinElec, 3), kTermTx);
  EXPECT_NEAR(points.RawData(3).Y1, last.real(), 1e-12);
  EXPECT_EQ(points.RawData(4).Y1, 77);
  EXPECT_EQ(plot.PlotTitle, "the plot before");
}

TEST_F(GatherTest, OneTracePlotsSayThatTheyHaveNoSecondOne) {
  for (const int plotNumber : {13, 15, 23, 25, 51, 52, 53}) {
    plot.DualTrace = true;
    Select(plotNumber);
    EXPECT_FALSE(plot.DualTrace) << plotNumber;
  }
  for (const int plotNumber : {11, 12, 14, 21, 22, 24, 31, 32, 41, 42}) {
    plot.DualTrace = false;
    Select(plotNumber);
    EXPECT_TRUE(plot.DualTrace) << plotNumber;
  }
}

TEST_F(GatherTest, ImpulsePlotsMakeTheWaveformAndExcitationPlotsTheResponseToo) {
  for (const int plotNumber : {16, 17, 26, 27, 33, 34}) {
    SCOPED_TRACE(plotNumber);
    wave.ImpulseRe(0) = wave.ResponseRe(0) = 77;
    Select(plotNumber);
    EXPECT_NE(wave.ImpulseRe(0), 77);
    EXPECT_EQ(wave.ResponseRe(0) != 77, IsExcitationPlot(plotNumber));
  }
}

TEST_F(GatherTest, WaveformsAreMadeOfTheCurveAsItArrives) {
  design.AttenOn = true;
  design.AttenLength = 1;
  design.AttenRate = 20;
  design.AttenFreq = 1e6F;
  design.AttenExp = 0;
  Select(33);
  // Sample 0 sums the whole curve, here a hundredth of it: 20 dB there and 20 dB back.
  Value sum = 0;
  for (int i = 0; i <= kIntervals; ++i) {
    sum += Z(testing::kTwoWayTF, i) * 0.01;
  }
  EXPECT_NEAR(wave.ImpulseRe(0), (sum * 2.0 / 64.0).real(), 1e-13);
  EXPECT_NEAR(wave.ImpulseIm(0), (sum * 2.0 / 64.0).imag(), 1e-13);
}

}  // namespace
}  // namespace halvorne
