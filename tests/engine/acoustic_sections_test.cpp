#include "engine/acoustic_sections.h"

#include <cmath>
#include <limits>

#include "engine_fixture.h"

namespace halvorne::testing {
namespace {

constexpr double kTurn = 6.283185307179586;

class AcousticSections : public EngineTest {
 protected:
  AcousticSections() {
    design.NoFreqPts = 4;
    NeutralDispersion();
    sweep.Freq = 3e6;
    sweep.Omega = kTurn * 3e6;
    sweep.FreqIndex = 2;
    Unit();
  }

  static void Unit() { SetMatrix(sweep.MatRe, sweep.MatIm, 1, 0, 0, 1); }
  static Value Section(int row, int column) { return Entry(sweep.SecRe, sweep.SecIm, row, column); }
  static Value Product(int row, int column) { return Entry(sweep.MatRe, sweep.MatIm, row, column); }
};

TEST_F(AcousticSections, ALineIsCoshAndSinhOfItsPropagation) {
  const double z = 350;
  const double delay = 4e-8;
  // 0.2 Np at 2 MHz, growing with the power 1.5.
  const Value g{0.2 * std::pow(1.5, 1.5), kTurn * 3e6 * delay};
  Tline(3, z, delay, 0.2, 2e6, 1.5F);
  EXPECT_TRUE(Near(Section(1, 1), std::cosh(g), 1e-13));
  EXPECT_TRUE(Near(Section(1, 2), z * std::sinh(g), 1e-13));
  EXPECT_TRUE(Near(Section(2, 1), std::sinh(g) / z, 1e-13));
  EXPECT_TRUE(Near(Section(2, 2), std::cosh(g), 1e-13));
  EXPECT_EQ(Product(1, 2), Section(1, 2)) << "a line folds itself into the product";
}

TEST_F(AcousticSections, DispersionScalesThePhaseAndTheCEntryOnly) {
  const double z = 350;
  const double factor = 1.25;
  design.VelDisp(3, 2) = factor;
  const Value g{0.2, kTurn * 3e6 * 4e-8 / factor};
  Tline(3, z, 4e-8, 0.2, 3e6, 1.0F);
  EXPECT_TRUE(Near(Section(1, 2), z * std::sinh(g), 1e-13)) << "B keeps the impedance";
  EXPECT_TRUE(Near(Section(2, 1), std::sinh(g) / (z * factor), 1e-13));
  const Value det = Section(1, 1) * Section(2, 2) - Section(1, 2) * Section(2, 1);
  EXPECT_GT(std::abs(det - 1.0), 0.01) << "so the determinant is not 1";
}

TEST_F(AcousticSections, DispersionIsTakenOfItsSlotAndPoint) {
  design.VelDisp(3, 1) = design.VelDisp(3, 3) = design.VelDisp(2, 2) = design.VelDisp(4, 2) = 7;
  Tline(3, 1, 4e-8, 0, 1, 1.0F);
  EXPECT_TRUE(Near(Section(1, 1), std::cos(kTurn * 3e6 * 4e-8), 1e-13));
}

TEST_F(AcousticSections, ALosslessPlateIsRealOnTheDiagonalAndImaginaryOffIt) {
  Tline(1, 2, 4e-8, 0, 1e6, 2.0F);
  EXPECT_EQ(Section(1, 1).imag(), 0);
  EXPECT_EQ(Section(2, 2).imag(), 0);
  EXPECT_EQ(Section(1, 2).real(), 0);
  EXPECT_EQ(Section(2, 1).real(), 0);
  EXPECT_NEAR(Section(1, 1).real(), std::cos(kTurn * 0.12), 1e-14);
  EXPECT_NEAR(Section(1, 2).imag(), 2 * std::sin(kTurn * 0.12), 1e-14);
}

TEST_F(AcousticSections, ExponentZeroMakesTheLossIndependentOfFrequency) {
  Tline(1, 1, 0, 0.3, 1e6, 0.0F);
  const Value atThree = Section(1, 1);
  sweep.Freq = 9e6;
  Tline(1, 1, 0, 0.3, 1e6, 0.0F);
  EXPECT_EQ(Section(1, 1), atThree);
  EXPECT_NEAR(atThree.real(), std::cosh(0.3), 1e-15);
}

struct LineFailure {
  const char* name;
  double dispersion, lossFreq, loss, z;
  int number;
};

class FailingLine : public AcousticSections, public ::testing::WithParamInterface<LineFailure> {};

TEST_P(FailingLine, ShowsItsBoxAndLeavesTheProduct) {
  const LineFailure& line = GetParam();
  design.VelDisp(1, 2) = line.dispersion;
  SetMatrix(sweep.MatRe, sweep.MatIm, 2, 3, 4, 5);
  Tline(1, line.z, 4e-8, line.loss, line.lossFreq, 1.0F);
  EXPECT_EQ(shown.Lines(), Boxes{Box("Tline", line.number)});
  EXPECT_EQ(Product(1, 1), 2.0);
  EXPECT_EQ(Product(2, 2), 5.0);
}

INSTANTIATE_TEST_SUITE_P(Causes, FailingLine,
                         ::testing::Values(LineFailure{"NoDispersionFactor", 0, 1, 0, 1, 11},
                                           LineFailure{"NoLossFrequency", 1, 0, 0, 1, 11},
                                           LineFailure{"NoImpedance", 1, 1, 0, 0, 11},
                                           LineFailure{"TooMuchLoss", 1, 1, 1000, 1, 6},
                                           LineFailure{"TooMuchGain", 1, 1, -1000, 1, 11}),
                         [](const auto& param) { return param.param.name; });

TEST_F(AcousticSections, ASlotThatDoesNotExistIsABadIndex) {
  Tline(22, 1, 4e-8, 0, 1, 1.0F);
  EXPECT_EQ(shown.Lines(), Boxes{Box("Tline", 9)});
}

TEST_F(AcousticSections, TheRearPortIsAShunt) {
  sweep.YRearRe = 0.25;
  sweep.YRearIm = -2;
  SetMatrix(sweep.MatRe, sweep.MatIm, 1, 3, 0, 1);
  RearPort();
  EXPECT_EQ(Section(1, 1), 1.0);
  EXPECT_EQ(Section(1, 2), 0.0);
  EXPECT_EQ(Section(2, 1), Value(0.25, -2));
  EXPECT_EQ(Section(2, 2), 1.0);
  EXPECT_EQ(Product(2, 1), Value(0.25, -2));
  EXPECT_EQ(Product(2, 2), Value(1.75, -6));
}

class Loads : public AcousticSections {
 protected:
  Loads() {
    design.ZFrontLoad = 1.5e6;
    design.ZBackLoad = 4e6;
    for (int i = 0; i <= 5; ++i) {
      design.ZFrontNormRe(i) = 1 + 0.1 * i;
      design.ZFrontNormIm(i) = -0.2 * i;
      design.ZBackNormRe(i) = 2;
      design.ZBackNormIm(i) = 0.5;
      design.ZFrontRe(i) = design.ZFrontIm(i) = design.ZBackRe(i) = design.ZBackIm(i) = 99;
    }
    design.ZFrontFile = "front.lac";
    design.ZFrontComment = "front comment";
    design.ZBackFile = "back.lac";
    design.ZBackComment = "back comment";
  }
};

TEST_F(Loads, RealSidesAreFlatAndForgetTheirFiles) {
  CmplxLoad();
  for (int i = 0; i <= 4; ++i) {
    EXPECT_EQ(design.ZFrontRe(i), 1.5e6);
    EXPECT_EQ(design.ZFrontIm(i), 0);
    EXPECT_EQ(design.ZBackRe(i), 4e6);
    EXPECT_EQ(design.ZBackIm(i), 0);
  }
  EXPECT_EQ(design.ZFrontFile, "blank");
  EXPECT_EQ(design.ZFrontComment, "none");
  EXPECT_EQ(design.ZBackFile, "blank");
  EXPECT_EQ(design.ZBackComment, "none");
}

TEST_F(Loads, AComplexSideScalesItsFileByTheNominalLoadAndKeepsItsName) {
  design.ZFrontComplex = true;
  CmplxLoad();
  EXPECT_DOUBLE_EQ(design.ZFrontRe(3), 1.3 * 1.5e6);
  EXPECT_DOUBLE_EQ(design.ZFrontIm(3), -0.6 * 1.5e6);
  EXPECT_EQ(design.ZFrontFile, "front.lac");
  EXPECT_EQ(design.ZFrontComment, "front comment");
  EXPECT_EQ(design.ZBackRe(3), 4e6);
  EXPECT_EQ(design.ZBackFile, "blank");

  design.ZBackComplex = true;
  design.ZBackFile = "back.lac";
  CmplxLoad();
  EXPECT_EQ(design.ZBackRe(0), 8e6);
  EXPECT_EQ(design.ZBackIm(0), 2e6);
  EXPECT_EQ(design.ZBackFile, "back.lac");
}

TEST_F(Loads, EntriesAboveTheSweepKeepOldValues) {
  CmplxLoad();
  EXPECT_EQ(design.ZFrontRe(5), 99);
  EXPECT_EQ(design.ZBackIm(5), 99);
  ComplexLoad();
  EXPECT_EQ(design.ZFrontRe(5), 99);
}

TEST_F(Loads, FlatteningTouchesNeitherFlagsNorFileNames) {
  design.ZFrontComplex = design.ZBackComplex = true;
  ComplexLoad();
  EXPECT_EQ(design.ZFrontRe(4), 1.5e6);
  EXPECT_EQ(design.ZFrontIm(4), 0);
  EXPECT_EQ(design.ZBackRe(4), 4e6);
  EXPECT_EQ(design.ZBackIm(4), 0);
  EXPECT_TRUE(design.ZFrontComplex);
  EXPECT_TRUE(design.ZBackComplex);
  EXPECT_EQ(design.ZFrontFile, "front.lac");
  EXPECT_EQ(design.ZBackComment, "back comment");
  CmplxLoad();
  EXPECT_DOUBLE_EQ(design.ZFrontRe(4), 1.4 * 1.5e6) << "the next CmplxLoad brings it back";
}

TEST_F(Loads, TooManyPointsOrTooLargeALoadFailUnderTheirOwnNames) {
  design.NoFreqPts = 16001;
  CmplxLoad();
  ComplexLoad();
  design.NoFreqPts = 4;
  design.ZBackComplex = true;
  design.ZBackLoad = 1.7e308;
  CmplxLoad();
  EXPECT_EQ(shown.Lines(),
            (Boxes{Box("CmplxLoad", 9), Box("ComplexLoad", 9), Box("CmplxLoad", 6)}));
  EXPECT_EQ(design.ZFrontRe(16000), 1.5e6) << "the points before were written";
}

}  // namespace
}  // namespace halvorne::testing
