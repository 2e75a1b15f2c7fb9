#include "engine/frequency_sweep.h"

#include <cmath>
#include <limits>
#include <string>

#include "engine/acoustic_sections.h"
#include "engine/piezo_section.h"
#include "engine_fixture.h"

namespace halvorne::testing {
namespace {

constexpr double kTurn = 6.283185307179586;
const Value kJ{0, 1};

class FrequencySweep : public EngineTest {
 protected:
  FrequencySweep() { MakePlainDesign(); }

  static void SetPlate(AcousticMaterial& plate, double velocity, double density) {
    plate.Velocity = velocity;
    plate.Density = density;
    plate.Loss = 4;
    plate.LossFreq = 2.5F;
    plate.LossExp = 1.25F;
  }
};

TEST_F(FrequencySweep, PlateEntriesOfTheChains) {
  design.NoFace = 2;
  design.NoBack = 1;
  SetPlate(design.FaceMatl(1), 2500, 1200);
  SetPlate(design.FaceMatl(2), 3000, 1500);
  SetPlate(design.BackMatl(1), 2000, 4000);
  design.FrontThick(1) = 1e-4;
  design.FrontThick(2) = 1.5e-4;
  design.BackThick(1) = 5e-3;
  design.FrontArea(1) = 2;
  design.FrontArea(2) = design.BackArea(1) = 0.5;
  PrelimCalc();
  EXPECT_DOUBLE_EQ(design.FrontLoss(2), 4 * 1.5e-4 * 11.51293);
  EXPECT_NEAR(design.BackLoss(1), 4 * 0.5 * std::log(10) / 20, 1e-6) << "2 dB in 5 mm";
  EXPECT_EQ(design.FrontLossFreq(2), 2.5e6);
  EXPECT_EQ(design.BackLossExp(1), 1.25F);
  EXPECT_DOUBLE_EQ(design.FrontZ(1), 2500 * 1200 * 1e-4 * 2);
  EXPECT_DOUBLE_EQ(design.FrontZ(2), 3000 * 1500 * 1e-4 * 0.5);
  EXPECT_DOUBLE_EQ(design.BackZ(1), 8e6 * 0.5e-4);
  EXPECT_DOUBLE_EQ(design.FrontDelay(1), 4e-8);
  EXPECT_DOUBLE_EQ(design.BackDelay(1), 2.5e-6);
  EXPECT_EQ(design.FrontZ(3), 0) << "plates that are not there are left alone";
}

TEST_F(FrequencySweep, HalfLayersOfASingleLayerAreBothOfLayerOne) {
  design.PZMatl(1).TanDm = 0.02;
  PrelimCalc();
  EXPECT_DOUBLE_EQ(design.FrontLoss(0), 4e-4 * 1.570796326794895 * 0.02 / 4000);
  EXPECT_EQ(design.FrontLoss(0), design.BackLoss(0));
  EXPECT_EQ(design.FrontLossFreq(0), 1);
  EXPECT_EQ(design.FrontLossExp(0), 1);
  EXPECT_DOUBLE_EQ(design.FrontZ(0), 3000);
  EXPECT_EQ(design.BackZ(0), design.FrontZ(0));
  EXPECT_DOUBLE_EQ(design.BackDelay(0), 5e-8);
  EXPECT_EQ(design.FrontDelay(0), design.BackDelay(0));
}

TEST_F(FrequencySweep, HalfLayersOfTwoLayersAreTheirOwn) {
  design.NoPiezo = 2;
  design.PZMatl(2) = design.PZMatl(1);
  design.PZMatl(2).Velocity = 5000;
  design.PZMatl(2).TanDm = 0.04;
  design.PZThick(2) = 2e-4;
  PrelimCalc();
  EXPECT_DOUBLE_EQ(design.FrontZ(0), 7500 * 5000 * 1e-4);
  EXPECT_DOUBLE_EQ(design.FrontDelay(0), 2e-8);
  EXPECT_DOUBLE_EQ(design.FrontLoss(0), 2e-4 * 1.570796326794895 * 0.04 / 5000);
  EXPECT_DOUBLE_EQ(design.BackZ(0), 3000);
  EXPECT_EQ(design.BackLoss(0), 0);
}

TEST_F(FrequencySweep, APlateWithoutVelocityStopsThePreparationThere) {
  design.NoFace = 1;
  design.FrontThick(1) = 1e-4;
  PrelimCalc();
  EXPECT_EQ(shown.Lines(), Boxes{Box("PrelimCalc", 11)});
  EXPECT_EQ(design.FrontZ(0), 0) << "the half layers come after the plates";
}

TEST_F(FrequencySweep, TerminatesTheProductAtEitherEnd) {
  const Value a{1, 2};
  const Value b{-3, 1};
  const Value c{0.5, -0.25};
  const Value d{2, 2};
  SetMatrix(sweep.MatRe, sweep.MatIm, a, b, c, d);
  const Value z{30, -7};
  Complex p;
  Complex n;
  Complex den;
  double nn = 0;
  double dd = 0;
  ZinElec(30, -7, p, nn, dd, n, den);
  EXPECT_TRUE(Near({n.re, n.im}, a * z + b, 1e-15));
  EXPECT_TRUE(Near({den.re, den.im}, c * z + d, 1e-15));
  EXPECT_TRUE(Near({p.re / dd, p.im / dd}, (a * z + b) / (c * z + d), 1e-15));
  EXPECT_NEAR(nn, std::norm(a * z + b), 1e-12 * nn);
  ZinAcoust(50, p, nn, dd);
  EXPECT_TRUE(Near({p.re / dd, p.im / dd}, (d * 50.0 + b) / (c * 50.0 + a), 1e-15));
  EXPECT_NEAR(nn, std::norm(d * 50.0 + b), 1e-12 * nn);
}

TEST_F(FrequencySweep, SixteenThousandIntervalsFillTheLastElement) {
  MakePlainDesign(16000);
  RunSweep();
  EXPECT_EQ(shown.Lines(), Boxes{});
  EXPECT_DOUBLE_EQ(sweep.Freq, 9e6);
  EXPECT_GT(curves.ZinElecRe(16000), 0);
  EXPECT_GT(curves.ZinAcRe(16000), 0);
  EXPECT_GT(curves.TxEff(16000), 0);
  EXPECT_GT(curves.RxEff(16000), 0);
  EXPECT_NE(curves.TxTFIm(16000), 0);
  EXPECT_NE(curves.RxTFIm(16000), 0);
  EXPECT_NE(curves.TwoWayTFIm(16000), 0);
}

TEST_F(FrequencySweep, TheSweepStampsTheDateABlankAndTheTime) {
  RunSweep();
  EXPECT_NE(design.CalcDateTime.find(' '), std::string::npos);
}

TEST_F(FrequencySweep, WithoutPlatesTheLoadsMeetTheElementsArea) {
  RunSweep();
  EXPECT_EQ(design.FrontLoadArea, 1e-4);
  EXPECT_EQ(design.BackLoadArea, 1e-4);
}

TEST_F(FrequencySweep, WithPlatesTheLoadsMeetTheLastPlatesArea) {
  design.NoFace = 2;
  design.NoBack = 1;
  for (AcousticMaterial* plate : {&design.FaceMatl(1), &design.FaceMatl(2), &design.BackMatl(1)}) {
    SetPlate(*plate, 2500, 1200);
  }
  design.FrontArea(1) = 3;
  design.FrontArea(2) = 0.5;
  design.BackArea(1) = 2;
  RunSweep();
  EXPECT_DOUBLE_EQ(design.FrontLoadArea, 0.5e-4);
  EXPECT_DOUBLE_EQ(design.BackLoadArea, 2e-4);
}

TEST_F(FrequencySweep, AFreeRearSideIsTheHalfLinesOwnAdmittance) {
  design.ZBackLoad = 0;
  SweptAt(3e6);
  EXPECT_EQ(shown.Lines(), Boxes{});
  // The last point is 6 MHz: D/B of a lossless line, cos/(j z sin), z 3000 and delay 50 ns.
  const double phase = kTurn * 6e6 * 5e-8;
  EXPECT_NEAR(sweep.YRearRe, 0, 1e-15);
  EXPECT_NEAR(sweep.YRearIm, -1 / (3000 * std::tan(phase)), 1e-15);
}

TEST_F(FrequencySweep, AFreeLosslessRearSideWithoutPhaseIsADivisionByZeroThatEndsTheSweep) {
  design.ZBackLoad = 0;
  design.FreqStart = 0;
  for (int i = 0; i <= design.NoFreqPts; ++i) {
    curves.ZinElecRe(i) = -77;
  }
  RunSweep();
  EXPECT_EQ(shown.Lines(), Boxes{"ERROR in MainCalc of CALCS|Error: 11. Division by zero"});
  EXPECT_EQ(curves.ZinElecRe(0), -77);
  EXPECT_EQ(curves.ZinElecRe(16), -77);
}

TEST_F(FrequencySweep, AFrontLoadOfZeroTransmitsNothingAndLeavesTheAcousticImpedance) {
  const SweptCurves loaded = Swept();
  design.ZFrontLoad = 0;
  const SweptCurves free = Swept();
  EXPECT_EQ(shown.Lines(), Boxes{});
  for (std::size_t i = 0; i < free.TxEff.size(); ++i) {
    EXPECT_EQ(free.TxEff[i], 0);
    EXPECT_EQ(free.TxTF[i], 0.0);
    EXPECT_EQ(free.TwoWayTF[i], 0.0);
    EXPECT_EQ(free.ZinAc[i], loaded.ZinAc[i]);
    EXPECT_EQ(free.RxEff[i], loaded.RxEff[i]);
  }
}

TEST_F(FrequencySweep, WithoutNetworkRowsTheProductIsTheStackTimesTheFrontChain) {
  RunSweep();
  const double phase = kTurn * 9e6 * 5e-8;
  const Value b = kJ * 3000.0 * std::sin(phase);
  const Value c = kJ * std::sin(phase) / 3000.0;
  const auto elec = [](int row, int column) {
    return Entry(sweep.ElecRe, sweep.ElecIm, row, column);
  };
  for (int row = 1; row <= 2; ++row) {
    EXPECT_TRUE(Near(Entry(sweep.MatRe, sweep.MatIm, row, 1),
                     elec(row, 1) * std::cos(phase) + elec(row, 2) * c, 1e-12));
    EXPECT_TRUE(Near(Entry(sweep.MatRe, sweep.MatIm, row, 2),
                     elec(row, 1) * b + elec(row, 2) * std::cos(phase), 1e-12));
  }
}

TEST_F(FrequencySweep, RowOneLiesNextToTheTransducer) {
  const std::vector<Value> bare = Swept().ZinElec;
  design.ElNet(1, 1) = 6;
  design.ElNet(1, 2) = 1e-9;
  design.ElNet(2, 1) = 3;
  design.ElNet(2, 2) = 2e-6;
  const std::vector<Value> matched = Swept().ZinElec;
  for (int i = 0; i <= design.NoFreqPts; ++i) {
    const double omega = kTurn * FreqOf(i);
    const Value expected = kJ * omega * 2e-6 + 1.0 / (kJ * omega * 1e-9 + 1.0 / bare[i]);
    EXPECT_TRUE(Near(matched[i], expected, 1e-11));
  }
}

TEST_F(FrequencySweep, ACodeOfZeroEndsTheNetworkAndTwentyRowsAreAll) {
  const std::vector<Value> bare = Swept().ZinElec;
  for (int row = 1; row <= kNetworkRows; ++row) {
    design.ElNet(row, 1) = 1;
    design.ElNet(row, 2) = 2;
  }
  EXPECT_TRUE(Near(Swept().ZinElec[5], bare[5] + 40.0, 1e-12));
  design.ElNet(4, 1) = 0;
  EXPECT_TRUE(Near(Swept().ZinElec[5], bare[5] + 6.0, 1e-12));
}

TEST_F(FrequencySweep, AnUnknownCodeRepeatsTheElementBeforeIt) {
  const std::vector<Value> bare = Swept().ZinElec;
  design.ElNet(1, 1) = 1;
  design.ElNet(1, 2) = 30;
  design.ElNet(2, 1) = 99;
  EXPECT_TRUE(Near(Swept().ZinElec[5], bare[5] + 60.0, 1e-12));
}

TEST_F(FrequencySweep, AnUnknownCodeInTheFirstRowRepeatsTheStack) {
  design.ElNet(1, 1) = 99;
  RunSweep();
  const Value a = Entry(sweep.ElecRe, sweep.ElecIm, 1, 1);
  EXPECT_EQ(Entry(sweep.SecRe, sweep.SecIm, 1, 1), a);
  const Value before = Entry(sweep.OldRe, sweep.OldIm, 1, 1);
  const Value below = Entry(sweep.OldRe, sweep.OldIm, 2, 1);
  EXPECT_TRUE(Near(Entry(sweep.MatRe, sweep.MatIm, 1, 1),
                   a * before + Entry(sweep.ElecRe, sweep.ElecIm, 1, 2) * below, 1e-13));
}

TEST_F(FrequencySweep, TheDispersionTableIsInForceWhateverTheSwitchesSay) {
  const SweptCurves neutral = Swept();
  for (int i = 0; i <= design.NoFreqPts; ++i) {
    design.VelDisp(0, i) = 1.1;
  }
  const SweptCurves dispersive = Swept();
  EXPECT_GT(std::abs(dispersive.ZinElec[8] - neutral.ZinElec[8]), 0.1);
  design.PZVelDispOn = design.FaceVelDispOn = design.BackVelDispOn = true;
  ExpectSameCurves(Swept(), dispersive, 0);
}

TEST_F(FrequencySweep, TheLoadsInForceCountNotTheNominalOnes) {
  PiezoConstants();
  PiezoLayers();
  CmplxLoad();
  PrelimCalc();
  MainCalc();
  const SweptCurves before = CurrentCurves();
  design.ZFrontLoad = design.ZBackLoad = 9e6;
  MainCalc();
  ExpectSameCurves(CurrentCurves(), before, 0);
}

}  // namespace
}  // namespace halvorne::testing
