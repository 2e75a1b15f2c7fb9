#include <algorithm>
#include <cmath>
#include <limits>

#include "engine/acoustic_sections.h"
#include "engine/frequency_sweep.h"
#include "engine/piezo_section.h"
#include "engine_fixture.h"

// What a sweep shows and leaves when a step of it fails.

namespace halvorne::testing {
namespace {

constexpr double kOld = -77;

class FailingSweep : public EngineTest {
 protected:
  FailingSweep() {
    MakePlainDesign(8);
    PiezoConstants();
    PiezoLayers();
    CmplxLoad();
    PrelimCalc();
    for (FreqCurve* curve :
         {&curves.ZinElecRe, &curves.ZinElecIm, &curves.ZinAcRe, &curves.ZinAcIm, &curves.TxEff,
          &curves.RxEff, &curves.TxTFRe, &curves.TxTFIm, &curves.RxTFRe, &curves.RxTFIm,
          &curves.TwoWayTFRe, &curves.TwoWayTFIm}) {
      std::fill(curve->begin(), curve->end(), kOld);
    }
  }
};

TEST_F(FailingSweep, FromZeroHertzOnlyPointZeroFailsAndOnlyInThePiezoSection) {
  design.FreqStart = 0;
  MainCalc();
  EXPECT_EQ(shown.Lines(), Boxes{"ERROR in TPiezo of CALCS|Error: 11. Division by zero"});
  const SweptCurves fromZero = CurrentCurves();
  EXPECT_NE(fromZero.ZinElec[0].real(), kOld) << "the sweep goes on with what stands";
  design.FreqStart = design.FreqStop / 8;
  design.NoFreqPts = 7;
  MainCalc();
  const SweptCurves fromOne = CurrentCurves();
  for (int i = 0; i <= 7; ++i) {
    EXPECT_TRUE(Near(fromZero.ZinElec[i + 1], fromOne.ZinElec[i], 1e-9));
    EXPECT_TRUE(Near(fromZero.RxTF[i + 1], fromOne.RxTF[i], 1e-9));
  }
}

TEST_F(FailingSweep, TwoLayersFromZeroHertzShowABoxForEachLayer) {
  design.NoPiezo = 2;
  design.PZConnect = 1;
  design.PZMatl(2) = design.PZMatl(1);
  design.PZThick(2) = design.PZThick(1);
  design.PZPolarity(2) = 1;
  PiezoConstants();
  PiezoLayers();
  PrelimCalc();
  design.FreqStart = 0;
  MainCalc();
  const Boxes lines = shown.Lines();
  EXPECT_EQ(std::count(lines.begin(), lines.end(), Box("TPiezo", 11)), 2);
  EXPECT_NE(curves.ZinElecRe(8), kOld);
}

TEST_F(FailingSweep, AFailureOfItsOwnEndsItWithNewValuesBeforeAndOldOnesBehind) {
  design.ZBackRe(3) = std::numeric_limits<double>::infinity();
  MainCalc();
  EXPECT_EQ(shown.Lines(), Boxes{"ERROR in MainCalc of CALCS|Error: 6. Overflow"});
  for (int i = 0; i <= 2; ++i) {
    EXPECT_GT(curves.ZinElecRe(i), 0) << i;
    EXPECT_GT(curves.RxEff(i), 0) << i;
  }
  for (int i = 3; i <= 8; ++i) {
    EXPECT_EQ(curves.ZinElecRe(i), kOld) << i;
    EXPECT_EQ(curves.RxTFIm(i), kOld) << i;
  }
}

TEST_F(FailingSweep, AFailingPointHoldsWhatItsStepsHadStored) {
  design.TermRx = 1e200;  // the square of Y overflows
  MainCalc();
  EXPECT_EQ(shown.Lines(), Boxes{Box("MainCalc", 6)});
  EXPECT_GT(curves.ZinElecRe(0), 0);
  EXPECT_GT(curves.TxEff(0), 0);
  EXPECT_NE(curves.TxTFIm(0), kOld);
  EXPECT_EQ(curves.RxTFRe(0), kOld);
  EXPECT_EQ(curves.TwoWayTFRe(0), kOld);
  EXPECT_EQ(curves.ZinAcRe(0), kOld);
}

TEST_F(FailingSweep, ATerminationThatFailsLeavesTheSizeOfTheRearBranch) {
  design.ElNet(1, 1) = 8;  // n grows to 1e160 and more, its square overflows before that of d
  design.ElNet(1, 2) = 1e160;
  design.ElNet(1, 3) = 1;
  MainCalc();
  EXPECT_EQ(shown.Lines(), (Boxes{Box("CmplxUtil", 6), Box("MainCalc", 6)}));

  const double phase = 2 * 3.14159265358979 * 1e6 * 5e-8;
  const Value rearD = Value(0, std::sin(phase) / 3000) * 300.0 + std::cos(phase);
  const double load = 150;
  const Value n =
      Entry(sweep.MatRe, sweep.MatIm, 1, 1) * load + Entry(sweep.MatRe, sweep.MatIm, 1, 2);
  const Value d =
      Entry(sweep.MatRe, sweep.MatIm, 2, 1) * load + Entry(sweep.MatRe, sweep.MatIm, 2, 2);
  const double pRe = n.real() * d.real() + n.imag() * d.imag();
  EXPECT_NEAR(curves.ZinElecRe(0) * std::norm(rearD) / pRe, 1, 1e-10);
}

TEST_F(FailingSweep, NoIntervalsAreADivisionByZeroBeforeTheFirstPoint) {
  design.NoFreqPts = 0;
  MainCalc();
  EXPECT_EQ(shown.Lines(), Boxes{Box("MainCalc", 11)});
  EXPECT_EQ(curves.ZinElecRe(0), kOld);
}

TEST_F(FailingSweep, BeyondTheLastPointEverySectionAndThenTheSweepItselfFails) {
  design.NoFreqPts = 16001;
  for (int slot = 0; slot < kDispersionSlots; ++slot) {
    for (int i = 0; i <= kLastFreqPoint; ++i) {
      design.VelDisp(slot, i) = 1;
    }
  }
  for (int i = 0; i <= kLastFreqPoint; ++i) {
    design.ZFrontRe(i) = 1.5e6;
    design.ZBackRe(i) = 3e6;
  }
  MainCalc();
  EXPECT_EQ(shown.Lines(), (Boxes{Box("Tline", 9), Box("MainCalc", 9)}));
  EXPECT_GT(curves.RxEff(16000), 0);
}

TEST_F(FailingSweep, MorePlatesThanTheChainsHoldAreABadIndex) {
  design.NoFace = 26;
  MainCalc();
  design.NoFace = 11;
  for (AcousticMaterial& plate : design.FaceMatl) {
    plate.Velocity = 2000;
  }
  PrelimCalc();
  EXPECT_EQ(shown.Lines(), (Boxes{Box("MainCalc", 9), Box("PrelimCalc", 9)}));
}

TEST_F(FailingSweep, AnElementWithoutValueIsReportedInItsNameAndTheSweepGoesOn) {
  design.ElNet(1, 1) = 2;
  MainCalc();
  EXPECT_EQ(shown.Lines(), (Boxes(9, "ERROR in Rnet of CALCS|Error: 11. Division by zero")));
  const SweptCurves withElement = CurrentCurves();
  design.ElNet(1, 1) = 0;
  MainCalc();
  // Only points at which nothing fails are worked on several at a time.
  ExpectSameCurves(withElement, CurrentCurves(), 1e-13);
}

/// A layer that neither radiates nor loses anything, with every real part exactly zero.
void MakePurelyReactive() {
  design.PZRp(1) = 0;
  for (int i = 0; i <= design.NoFreqPts; ++i) {
    design.ZFrontRe(i) = design.ZBackRe(i) = 0;
  }
}

TEST_F(FailingSweep, WithoutAnyRealPowerTheEfficienciesAreZeroNotAFailure) {
  MakePurelyReactive();
  MainCalc();
  EXPECT_EQ(shown.Lines(), Boxes{});
  EXPECT_EQ(curves.ZinElecRe(3), 0);
  EXPECT_EQ(curves.TxEff(3), 0);
  EXPECT_NE(curves.RxEff(3), kOld);
}

TEST_F(FailingSweep, AReceiverThatSeesNoRealPartEndsTheSweepInTheDivision) {
  MakePurelyReactive();
  design.TermRx = 0;
  MainCalc();
  EXPECT_EQ(shown.Lines(), Boxes{Box("MainCalc", 11)});
  EXPECT_EQ(curves.RxTFRe(0), 0) << "the real part is stored before the imaginary one divides";
  EXPECT_EQ(curves.RxTFIm(0), kOld);
  EXPECT_NE(curves.TxTFIm(0), kOld);
  EXPECT_EQ(curves.ZinElecIm(1), kOld);
}

TEST_F(FailingSweep, ThePathBetweenTwoCentresIsForTwoLayersOnly) {
  // Every line fails and shows its box, so the boxes count the lines of a point.
  design.NoFreqPts = 1;
  for (int slot = 0; slot < kDispersionSlots; ++slot) {
    design.VelDisp(slot, 0) = design.VelDisp(slot, 1) = 0;
  }
  const auto lines = [this](std::int16_t layers) {
    shown.Forget();
    design.NoPiezo = layers;
    MainCalc();
    const Boxes boxes = shown.Lines();
    return std::count(boxes.begin(), boxes.end(), Box("Tline", 11)) / 2;
  };
  EXPECT_EQ(lines(1), 2) << "the rear half and the front half";
  EXPECT_EQ(lines(2), 4);
  EXPECT_EQ(lines(3), 2);
}

TEST_F(FailingSweep, ASweepInWhichEveryPointFailsStaysUsable) {
  for (int slot = 0; slot < kDispersionSlots; ++slot) {
    for (int i = 0; i <= 8; ++i) {
      design.VelDisp(slot, i) = 0;  // as before any file was read
    }
  }
  MainCalc();
  EXPECT_EQ(shown.Lines(), (Boxes(18, Box("Tline", 11)))) << "one box per half line and point";
  shown.Forget();
  NeutralDispersion();
  MainCalc();
  EXPECT_EQ(shown.Lines(), Boxes{});
  EXPECT_GT(curves.ZinElecRe(8), 0);
}

}  // namespace
}  // namespace halvorne::testing
