#include "engine/piezo_section.h"

#include <cmath>

#include "engine_fixture.h"

namespace halvorne::testing {
namespace {

constexpr double kTurn = 6.283185307179586;

class PiezoSection : public EngineTest {
 protected:
  PiezoSection() {
    MakePlainDesign();
    design.PZMatl(1).TanDe = 0.02;
    PiezoConstants();
    At(3e6);
  }

  static void At(double freq) {
    sweep.Freq = freq;
    sweep.Omega = freq * kTurn;
  }

  static Value Section(int row, int column) { return Entry(sweep.SecRe, sweep.SecIm, row, column); }
};

TEST_F(PiezoSection, ConstantsOfALayer) {
  // v 4000, t 0.4 mm: 5 MHz. A 1 cm^2, Ks 800: 1e-4 * 800 * 8.85e-12 / 4e-4 = 1.77 nF.
  EXPECT_DOUBLE_EQ(design.PZFa(1), 5e6);
  EXPECT_DOUBLE_EQ(design.PZCo(1), 1.77e-9);
  EXPECT_NEAR(design.PZRp(1), (1 - 0.25) / (1.77e-9 * 0.02), 1e-12 * design.PZRp(1))
      << "h^2 Ks e0/(Zs v) is kt^2";
  const double h = 0.5 * 4000 * std::sqrt(7500 / 7.08e-9);
  EXPECT_NEAR(design.PZM0(1), h / (kTurn * 5e6 * 3e7 * 1e-4), 1e-13 * design.PZM0(1));
}

TEST_F(PiezoSection, ConstantsUseTheRoundedPermittivityOfFreeSpace) {
  EXPECT_DOUBLE_EQ(design.PZCo(1), 1e-4 * 800 * 8.85e-12 / 4e-4);
  EXPECT_GT(std::abs(design.PZCo(1) - 1e-4 * 800 * 8.8541878128e-12 / 4e-4), 4e-13)
      << "not the measured constant";
}

TEST_F(PiezoSection, ConstantsAreMadeForTheLayersInUseOnly) {
  design.PZMatl(2) = design.PZMatl(1);
  design.PZThick(2) = 2e-4;
  PiezoConstants();
  EXPECT_EQ(design.PZFa(2), 0);
  design.NoPiezo = 2;
  PiezoConstants();
  EXPECT_DOUBLE_EQ(design.PZFa(2), 1e7);
}

TEST_F(PiezoSection, NoElectricalLossIsADivisionByZeroThatLeavesThisAndLaterLayers) {
  design.NoPiezo = 2;
  design.PZMatl(2) = design.PZMatl(1);
  design.PZThick(1) = design.PZThick(2) = 1e-4;
  design.PZMatl(1).TanDe = 0;
  const double oldRp = design.PZRp(1);
  PiezoConstants();
  EXPECT_EQ(shown.Lines(), Boxes{"ERROR in PiezoConstants of CALCS|Error: 11. Division by zero"});
  EXPECT_DOUBLE_EQ(design.PZFa(1), 5e6) << "the failing layer keeps all four";
  EXPECT_DOUBLE_EQ(design.PZCo(1), 1.77e-9);
  EXPECT_EQ(design.PZRp(1), oldRp);
  EXPECT_EQ(design.PZFa(2), 0) << "later layers stay too";
}

TEST_F(PiezoSection, AFailingSecondLayerLeavesTheFirstOneDone) {
  design.NoPiezo = 2;
  design.PZMatl(2) = design.PZMatl(1);
  design.PZThick(1) = 2e-4;
  design.PZThick(2) = 0;
  PiezoConstants();
  EXPECT_EQ(shown.Lines(), Boxes{Box("PiezoConstants", 11)});
  EXPECT_DOUBLE_EQ(design.PZFa(1), 1e7);
  EXPECT_EQ(design.PZFa(2), 0);
}

TEST_F(PiezoSection, NoThicknessIsADivisionByZero) {
  design.PZThick(1) = 0;
  PiezoConstants();
  EXPECT_EQ(shown.Lines(), Boxes{Box("PiezoConstants", 11)});
}

TEST_F(PiezoSection, ARootOfANegativeNumberIsAnInvalidResult) {
  design.PZMatl(1).Density = -1;
  PiezoConstants();
  EXPECT_EQ(shown.Lines(), Boxes{Box("PiezoConstants", 6)});
  EXPECT_DOUBLE_EQ(design.PZFa(1), 5e6);
}

TEST_F(PiezoSection, IsASeriesImpedanceAndATransformer) {
  const double z0 = 7500.0 * 4000 * 1e-4;
  const double w = kTurn * 3e6;
  const double h = 0.5 * 4000 * std::sqrt(7500 / 7.08e-9);
  const double phase = w * 4e-4 / 4000;
  const double phi = 2 * h / (w * z0) * std::sin(phase / 2);
  const Value lossyCapacitor =
      1.0 / Value(w * 1.77e-9 * 0.02 / 0.75, w * 1.77e-9);  // loss resistance Rp/w across Co
  const Value impedance = lossyCapacitor + Value(0, h * h / (w * w * z0) * std::sin(phase));
  TPiezo(1, sweep.SecRe, sweep.SecIm);
  EXPECT_TRUE(Near(Section(1, 1), phi, 1e-13));
  EXPECT_TRUE(Near(Section(1, 2), impedance / phi, 1e-12));
  EXPECT_EQ(Section(2, 1), 0.0);
  EXPECT_TRUE(Near(Section(2, 2), 1 / phi, 1e-13));
}

TEST_F(PiezoSection, TheDeterminantIsOneAtAnyFrequency) {
  for (const double freq : {1e3, 0.7e6, 3e6, 5e6, 12.3e6}) {
    At(freq);
    TPiezo(1, sweep.SecRe, sweep.SecIm);
    const Value det = Section(1, 1) * Section(2, 2) - Section(1, 2) * Section(2, 1);
    EXPECT_TRUE(Near(det, 1, 1e-15)) << freq;
  }
}

TEST_F(PiezoSection, ReversedPolarityFlipsTheSignOfEveryEntry) {
  TPiezo(1, sweep.SecRe, sweep.SecIm);
  design.PZPolarity(1) = -1;
  TPiezo(1, sweep.MatRe, sweep.MatIm);
  for (int row = 1; row <= 2; ++row) {
    for (int column = 1; column <= 2; ++column) {
      EXPECT_EQ(Entry(sweep.MatRe, sweep.MatIm, row, column), -Section(row, column));
    }
  }
}

TEST_F(PiezoSection, SmallLossMakesALargeFigureAndASeriesResistanceOfItsInverse) {
  design.PZMatl(1).TanDe = 1e-6;
  PiezoConstants();
  EXPECT_GT(design.PZRp(1), 1e14);
  TPiezo(1, sweep.SecRe, sweep.SecIm);
  const double rs = (Section(1, 2) / Section(2, 2)).real();
  const double co = design.PZCo(1);
  EXPECT_NEAR(rs * design.PZRp(1) * co * co * sweep.Omega, 1, 1e-6);
}

// Kept: at twice the half-wave frequency the transformer is what the written pi leaves of a zero.
TEST_F(PiezoSection, UsesTheWrittenConstantForPi) {
  At(1e7);
  TPiezo(1, sweep.SecRe, sweep.SecIm);
  const long double residue = 3.14159265358979323846L - static_cast<long double>(3.14159265358979);
  const auto expected = static_cast<double>(2 * (design.PZM0(1) / 2) * residue);
  EXPECT_NEAR(Section(1, 1).real(), expected, 1e-3 * expected) << "a full pi leaves 3.8 %";
}

TEST_F(PiezoSection, AtZeroFrequencyItFailsAndLeavesBothMatrices) {
  SetMatrix(sweep.SecRe, sweep.SecIm, {1, 2}, {3, 4}, {5, 6}, {7, 8});
  At(0);
  TPiezo(1, sweep.SecRe, sweep.SecIm);
  EXPECT_EQ(shown.Lines(), Boxes{"ERROR in TPiezo of CALCS|Error: 11. Division by zero"});
  EXPECT_EQ(Section(1, 1), Value(1, 2));
  EXPECT_EQ(Section(1, 2), Value(3, 4));
  EXPECT_EQ(Section(2, 1), Value(5, 6));
  EXPECT_EQ(Section(2, 2), Value(7, 8));
}

TEST_F(PiezoSection, WithoutCouplingTheTransformerIsADivisionByZero) {
  design.PZMatl(1).Kt = 0;
  PiezoConstants();
  SetMatrix(sweep.SecRe, sweep.SecIm, {1, 2}, {3, 4}, {5, 6}, {7, 8});
  TPiezo(1, sweep.SecRe, sweep.SecIm);
  EXPECT_EQ(shown.Lines(), Boxes{Box("TPiezo", 11)});
  EXPECT_EQ(Section(1, 2), Value(3, 4));
}

TEST_F(PiezoSection, ALayerThatDoesNotExistIsABadIndex) {
  TPiezo(3, sweep.SecRe, sweep.SecIm);
  EXPECT_EQ(shown.Lines(), Boxes{Box("TPiezo", 9)});
}

class TwoLayerStack : public PiezoSection {
 protected:
  TwoLayerStack() {
    design.NoPiezo = 2;
    design.PZMatl(2) = design.PZMatl(1);
    design.PZThick(2) = design.PZThick(1);
    design.PZPolarity(2) = 1;
    PiezoConstants();
    // A reciprocal acoustic path between the layers' centres: (1 + 0.5 j)(0.8) - B C = 1.
    const Value a{1, 0.5};
    const Value b{20, 100};
    SetMatrix(sweep.MatRe, sweep.MatIm, a, b, (a * 0.8 - 1.0) / b, 0.8);
  }

  static Value Elec(int row, int column) { return Entry(sweep.ElecRe, sweep.ElecIm, row, column); }
};

TEST_F(TwoLayerStack, AnyOtherConnectionKeepsTheStackOfThePointBefore) {
  SetMatrix(sweep.ElecRe, sweep.ElecIm, {1, 2}, {3, 4}, {5, 6}, {7, 8});
  for (const int connection : {0, 3, -1}) {
    design.PZConnect = static_cast<std::int16_t>(connection);
    AcoustoElec();
    EXPECT_EQ(Elec(1, 1), Value(1, 2));
    EXPECT_EQ(Elec(2, 2), Value(7, 8));
  }
}

TEST_F(TwoLayerStack, ASingleLayerIsTheRunningProductAsItStands) {
  design.NoPiezo = 1;
  AcoustoElec();
  for (int row = 1; row <= 2; ++row) {
    for (int column = 1; column <= 2; ++column) {
      EXPECT_EQ(Elec(row, column), Entry(sweep.MatRe, sweep.MatIm, row, column));
    }
  }
}

TEST_F(TwoLayerStack, OppositeLayersInParallelStillFormAStack) {
  design.PZConnect = 2;
  design.PZPolarity(2) = -1;
  AcoustoElec();
  EXPECT_EQ(shown.Lines(), Boxes{});
  const Value rear = Entry(sweep.MatRe, sweep.MatIm, 1, 2);
  TPiezo(2, sweep.SecRe, sweep.SecIm);
  const Value front = Section(1, 2);
  EXPECT_TRUE(Near(Elec(1, 2), 1.0 / (1.0 / rear + 1.0 / front), 1e-12))
      << "the pivots are B of each path";
}

TEST_F(TwoLayerStack, APathWithoutBFailsInTheConversion) {
  design.PZConnect = 2;
  design.PZThick(1) = design.PZThick(2) = 4e-4;
  design.PZRp(2) = 0;  // neither loss nor capacitance: what is left of B is the motional part
  design.PZM0(2) = 1e-300;
  AcoustoElec();
  EXPECT_EQ(shown.Lines(), (Boxes{Box("ABCDtoY", 11)}));
}

}  // namespace
}  // namespace halvorne::testing
