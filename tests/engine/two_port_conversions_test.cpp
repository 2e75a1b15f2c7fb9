#include <limits>

#include "engine/two_port.h"
#include "engine_fixture.h"

// Chain, hybrid and admittance parameters, against the definitions worked out with std::complex.

namespace halvorne::testing {
namespace {

const Value kA{1.5, 0.25};
const Value kB{-3, 40};
const Value kC{0.02, -0.01};
const Value kD{0.75, 2};

class Conversions : public EngineTest {
 protected:
  Conversions() {
    SetMatrix(fromRe, fromIm, kA, kB, kC, kD);
    SetMatrix(toRe, toIm, 9, 9, 9, 9);
  }

  void ExpectResult(Value m11, Value m12, Value m21, Value m22) const {
    EXPECT_TRUE(Near(Entry(toRe, toIm, 1, 1), m11, 1e-14));
    EXPECT_TRUE(Near(Entry(toRe, toIm, 1, 2), m12, 1e-14));
    EXPECT_TRUE(Near(Entry(toRe, toIm, 2, 1), m21, 1e-14));
    EXPECT_TRUE(Near(Entry(toRe, toIm, 2, 2), m22, 1e-14));
  }
  void ExpectUntouched() const { ExpectResult(9, 9, 9, 9); }

  Matrix fromRe, fromIm, toRe, toIm;
};

TEST_F(Conversions, DeterminantOfAComplexMatrix) {
  double re = 0;
  double im = 0;
  ComplexDet(fromRe, fromIm, re, im);
  EXPECT_TRUE(Near({re, im}, kA * kD - kB * kC, 1e-14));
}

TEST_F(Conversions, ChainToHybridTakesTheDeterminant) {
  ABCDtoH(fromRe, fromIm, toRe, toIm);
  const Value det = kA * kD - kB * kC;
  ASSERT_GT(std::abs(det - 1.0), 0.1) << "the matrix must not be reciprocal here";
  ExpectResult(kB / kD, det / kD, -1.0 / kD, kC / kD);
}

TEST_F(Conversions, ChainToAdmittanceTakesNoDeterminantEvenWhereItIsNotOne) {
  ABCDtoY(fromRe, fromIm, toRe, toIm);
  ExpectResult(kD / kB, -1.0 / kB, -1.0 / kB, kA / kB);
}

TEST_F(Conversions, HybridToChainIsTheReverse) {
  Matrix hybridRe;
  Matrix hybridIm;
  ABCDtoH(fromRe, fromIm, hybridRe, hybridIm);
  HtoABCD(hybridRe, hybridIm, toRe, toIm);
  ExpectResult(kA, kB, kC, kD);
}

TEST_F(Conversions, HybridToChainByItsDefinition) {
  HtoABCD(fromRe, fromIm, toRe, toIm);  // the four values read as H11, H12, H21, H22
  const Value det = kA * kD - kB * kC;
  ExpectResult(-det / kC, -kA / kC, -kD / kC, -1.0 / kC);
}

TEST_F(Conversions, AdmittanceToChainByItsDefinition) {
  YtoABCD(fromRe, fromIm, toRe, toIm);  // the four values read as Y11, Y12, Y21, Y22
  const Value det = kA * kD - kB * kC;
  ExpectResult(-kD / kC, -1.0 / kC, -det / kC, -kA / kC);
}

TEST_F(Conversions, AdmittanceAndBackIsTheSameForAReciprocalSection) {
  const Value reciprocalC = (kA * kD - 1.0) / kB;
  SetMatrix(fromRe, fromIm, kA, kB, reciprocalC, kD);
  Matrix yRe;
  Matrix yIm;
  ABCDtoY(fromRe, fromIm, yRe, yIm);
  YtoABCD(yRe, yIm, toRe, toIm);
  EXPECT_TRUE(Near(Entry(toRe, toIm, 1, 1), kA, 1e-13));
  EXPECT_TRUE(Near(Entry(toRe, toIm, 1, 2), kB, 1e-13));
  EXPECT_TRUE(Near(Entry(toRe, toIm, 2, 1), reciprocalC, 1e-13));
  EXPECT_TRUE(Near(Entry(toRe, toIm, 2, 2), kD, 1e-13));
}

TEST_F(Conversions, AZeroBFailsForAdmittanceButNotForHybrid) {
  SetMatrix(fromRe, fromIm, kA, 0, kC, kD);
  ABCDtoY(fromRe, fromIm, toRe, toIm);
  ASSERT_EQ(shown.Shown().size(), 1U);
  EXPECT_EQ(shown.Shown()[0].title, "ERROR in ABCDtoY of CALCS");
  EXPECT_EQ(shown.Shown()[0].text, "Error: 11. Division by zero");
  EXPECT_EQ(shown.Shown()[0].buttons, MessageButtons::kOk);
  ExpectUntouched();

  shown.Forget();
  ABCDtoH(fromRe, fromIm, toRe, toIm);
  EXPECT_EQ(shown.Lines(), Boxes{});
  ExpectResult(0, kA, -1.0 / kD, kC / kD);  // det/D is A where B is 0
}

TEST_F(Conversions, EveryOtherZeroPivotFailsInItsOwnName) {
  SetMatrix(fromRe, fromIm, kA, kB, kC, 0);
  ABCDtoH(fromRe, fromIm, toRe, toIm);
  SetMatrix(fromRe, fromIm, kA, kB, 0, kD);
  HtoABCD(fromRe, fromIm, toRe, toIm);
  YtoABCD(fromRe, fromIm, toRe, toIm);
  EXPECT_EQ(shown.Lines(), (Boxes{Box("ABCDtoH", 11), Box("HtoABCD", 11), Box("YtoABCD", 11)}));
  ExpectUntouched();
}

TEST_F(Conversions, AnOverflowingDeterminantFailsUnderItsOwnNameAndCountsAsZero) {
  SetMatrix(fromRe, fromIm, 1e200, 1e200, 1e200, 1e150);
  ABCDtoH(fromRe, fromIm, toRe, toIm);
  EXPECT_EQ(shown.Lines(), Boxes{Box("ComplexDet", 6)});
  ExpectResult(1e50, 0, -1e-150, 1e50);
}

TEST_F(Conversions, AnOverflowingPivotFailsWithOverflow) {
  SetMatrix(fromRe, fromIm, 1, 1, 1, 1e200);
  ABCDtoH(fromRe, fromIm, toRe, toIm);
  EXPECT_EQ(shown.Lines(), Boxes{Box("ABCDtoH", 6)});
  ExpectUntouched();
}

}  // namespace
}  // namespace halvorne::testing
