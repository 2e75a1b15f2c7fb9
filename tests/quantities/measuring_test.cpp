#include "quantities/measuring.h"

#include <cmath>

#include "plot/plot_state.h"
#include "support/fresh_program.h"

namespace halvorne::testing {
namespace {

/// A two-way transfer function that is a triangle of height 1 over 1 to 2 MHz, and an impedance of
/// 3 + 4j ohms.
class Measures : public FreshProgram {
 protected:
  Measures() {
    MakeSimpleDesign(10, 64);
    design.FreqStart = 1e6;
    design.FreqStop = 2e6;
    design.FreqStep = 1e5;
    design.SampleRateHz = 6.4e6;
    for (int i = 0; i <= 10; ++i) {
      curves.TwoWayTFRe(i) = 0;
      curves.TwoWayTFIm(i) = 1 - std::abs(i - 5) / 5.0;
      curves.ZinElecRe(i) = 3;
      curves.ZinElecIm(i) = 4;
    }
  }

  double Value(const std::string& name) const {
    double value = 0;
    MeasureList({ReadMeasure(name)}).Take({&value, 1});
    return value;
  }
};

TEST_F(Measures, OfABandAreTakenBetweenItsCrossings) {
  // Half the height is crossed 2.5 intervals off the peak, a tenth of it 4.5 and a hundredth 4.95.
  EXPECT_NEAR(Value("bandwidth6"), 5e5, 1);
  EXPECT_NEAR(Value("bandwidth20"), 9e5, 1);
  EXPECT_NEAR(Value("bandwidth40"), 9.9e5, 1);
  EXPECT_NEAR(Value("centre6"), 1.5e6, 1);
  EXPECT_NEAR(Value("relativeBandwidth6"), 100.0 / 3, 1e-4);
  EXPECT_NEAR(Value("lowerEdge6"), 1.25e6, 1);
  EXPECT_NEAR(Value("upperEdge6"), 1.75e6, 1);
}

TEST_F(Measures, OfThePeakAreInDecibelsAndHertz) {
  EXPECT_NEAR(Value("peak"), 0, 1e-12);
  EXPECT_EQ(Value("peakFrequency"), 1.5e6);
  curves.TwoWayTFIm(5) = 10;
  EXPECT_NEAR(Value("peak"), 20, 1e-12);
  curves.TxEff(3) = 0.1;
  EXPECT_NEAR(Value("peak:13"), -10, 1e-12) << "a ratio of powers";
  EXPECT_EQ(Value("peakFrequency:13"), 1.3e6);
}

TEST_F(Measures, InsertionLossIsAQuarterOverTheTransferFunction) {
  EXPECT_NEAR(Value("insertionLoss"), 20 * std::log10(0.25), 1e-9);
  EXPECT_NEAR(Value("insertionLoss@1.2e6"), 20 * std::log10(0.25 / 0.4), 1e-9);
  EXPECT_NEAR(Value("bandwidth6:32"), 5e5, 1) << "measured on the inverse";
}

TEST_F(Measures, OfAPointStandOnTheLineBetweenItsNeighbours) {
  EXPECT_NEAR(Value("value:31.0@1.3e6"), 0.6, 1e-12);
  EXPECT_NEAR(Value("value:31.0@1.35e6"), 0.7, 1e-9);
  EXPECT_NEAR(Value("value:31.0@1.5e6"), 1, 1e-12);
  EXPECT_NEAR(Value("value:31.0@2e6"), 0, 1e-12);
  EXPECT_NEAR(Value("secondValue:31.0@1.3e6"), 90, 1e-6);
  EXPECT_TRUE(std::isnan(Value("value:31.0@0.99e6")));
  EXPECT_TRUE(std::isnan(Value("value:31.0@2.01e6")));
  EXPECT_TRUE(std::isnan(Value("secondValue:13.0@1.5e6"))) << "the plot has one trace";
}

TEST_F(Measures, OfTheImpedanceAreMagnitudeAndPhase) {
  EXPECT_NEAR(Value("impedance@1.5e6"), 5, 1e-12);
  EXPECT_NEAR(Value("impedancePhase@1.5e6"), 53.13010235415598, 1e-9);
  EXPECT_NEAR(Value("value:11.2@1.5e6"), 3, 1e-12);
  EXPECT_NEAR(Value("secondValue:11.2@1.5e6"), 4, 1e-12);
}

TEST_F(Measures, OfAPulseAreThoseOfTheGrid) {
  // A band of one line is a pulse of constant envelope: 2/64 of its amplitude at each sample, and
  // nowhere below half of it within the first half of the record, samples 0 to 32.
  for (int i = 0; i <= 10; ++i) {
    curves.TwoWayTFIm(i) = i == 5 ? 1 : 0;
  }
  EXPECT_NEAR(Value("pulsePeak"), 2.0 / 64, 1e-12);
  EXPECT_NEAR(Value("pulseWidth6"), 32 / 6.4e6, 1e-15);
  EXPECT_TRUE(shownMessages.Shown().empty());
}

TEST_F(Measures, OfARefusedWaveformAreNone) {
  design.SampleRateHz = 3.9e6;  // less than twice the upper limit
  EXPECT_TRUE(std::isnan(Value("pulseWidth6")));
  EXPECT_EQ(shownMessages.Shown().size(), 1u);
}

TEST_F(Measures, OfALayerThatIsNotThereAreNone) {
  design.NoFace = 1;
  design.VelDisp(1, 5) = 1.25;
  EXPECT_EQ(Value("value:51.0@1.5e6"), 1.25);
  EXPECT_TRUE(std::isnan(Value("value:51.1@1.5e6")));
  EXPECT_TRUE(std::isnan(Value("value:53.0@1.5e6")));
  design.VelDisp(0, 5) = 0.75;
  EXPECT_EQ(Value("value:52.0@1.5e6"), 0.75);
}

TEST_F(Measures, OfAResponseThatIsZeroAreNone) {
  for (int i = 0; i <= 10; ++i) {
    curves.TwoWayTFIm(i) = 0;
  }
  EXPECT_TRUE(std::isnan(Value("bandwidth6")));
  EXPECT_TRUE(std::isnan(Value("centre40")));
  EXPECT_TRUE(std::isnan(Value("peak")));
}

TEST_F(Measures, ComeInTheOrderInWhichTheyWereNamed) {
  std::vector<double> values(5);
  MeasureList({ReadMeasure("value:31.0@1.3e6"), ReadMeasure("impedance@1.5e6"),
               ReadMeasure("peakFrequency"), ReadMeasure("value:31.1@1.5e6"),
               ReadMeasure("bandwidth6")})
      .Take(values);
  EXPECT_NEAR(values[0], 0.6, 1e-12);
  EXPECT_NEAR(values[1], 5, 1e-12);
  EXPECT_EQ(values[2], 1.5e6);
  EXPECT_NEAR(values[3], 0, 1e-12);
  EXPECT_NEAR(values[4], 5e5, 1);
}

}  // namespace
}  // namespace halvorne::testing
