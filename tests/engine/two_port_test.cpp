#include "engine/two_port.h"

#include <limits>
#include <random>

#include "engine_fixture.h"

// The real matrix operations and the running product.

namespace halvorne::testing {
namespace {

constexpr double kHuge = 1e200;

Matrix Real(double a, double b, double c, double d) {
  Matrix m;
  m(1, 1) = a;
  m(1, 2) = b;
  m(2, 1) = c;
  m(2, 2) = d;
  return m;
}

void ExpectMatrix(const Matrix& m, double a, double b, double c, double d) {
  EXPECT_EQ(m(1, 1), a);
  EXPECT_EQ(m(1, 2), b);
  EXPECT_EQ(m(2, 1), c);
  EXPECT_EQ(m(2, 2), d);
}

struct ComplexMatrix {
  Value a, b, c, d;
};

ComplexMatrix operator*(const ComplexMatrix& l, const ComplexMatrix& r) {
  return {l.a * r.a + l.b * r.c, l.a * r.b + l.b * r.d, l.c * r.a + l.d * r.c,
          l.c * r.b + l.d * r.d};
}

void SetSection(const ComplexMatrix& m) {
  SetMatrix(sweep.SecRe, sweep.SecIm, m.a, m.b, m.c, m.d);
}

void SetProduct(const ComplexMatrix& m) {
  SetMatrix(sweep.MatRe, sweep.MatIm, m.a, m.b, m.c, m.d);
}

void ExpectProduct(const ComplexMatrix& expected) {
  EXPECT_TRUE(Near(Entry(sweep.MatRe, sweep.MatIm, 1, 1), expected.a, 1e-13));
  EXPECT_TRUE(Near(Entry(sweep.MatRe, sweep.MatIm, 1, 2), expected.b, 1e-13));
  EXPECT_TRUE(Near(Entry(sweep.MatRe, sweep.MatIm, 2, 1), expected.c, 1e-13));
  EXPECT_TRUE(Near(Entry(sweep.MatRe, sweep.MatIm, 2, 2), expected.d, 1e-13));
}

const ComplexMatrix kFirst{{1, 2}, {3, -1}, {0, 4}, {-2, 1}};
const ComplexMatrix kSecond{{2, 0}, {1, 1}, {-3, 2}, {5, -4}};

using TwoPort = EngineTest;

TEST_F(TwoPort, IdentityZeroAndCopyWriteAllFourEntries) {
  Matrix m = Real(5, 6, 7, 8);
  Matrix copy = Real(0, 0, 0, 0);
  AryCopy(m, copy);
  ExpectMatrix(copy, 5, 6, 7, 8);
  AryIdent(m);
  ExpectMatrix(m, 1, 0, 0, 1);
  AryZero(m);
  ExpectMatrix(m, 0, 0, 0, 0);
}

TEST_F(TwoPort, AddScalesTheSecondMatrixAndMayWriteIntoItsFirst) {
  Matrix a = Real(1, 2, 3, 4);
  const Matrix b = Real(10, 20, 30, 40);
  Matrix out = Real(0, 0, 0, 0);
  AryAdd(a, b, out, 0.5);
  ExpectMatrix(out, 6, 12, 18, 24);
  AryAdd(a, b, a, -1.0);
  ExpectMatrix(a, -9, -18, -27, -36);
}

TEST_F(TwoPort, MultiplyIsRowByColumnInTheGivenOrder) {
  const Matrix a = Real(1, 2, 3, 4);
  const Matrix b = Real(5, 6, 7, 8);
  Matrix out = Real(0, 0, 0, 0);
  AryMpy(a, b, out);
  ExpectMatrix(out, 19, 22, 43, 50);
}

TEST_F(TwoPort, AnOverflowingEntryStopsThereAndKeepsTheEntriesBehindIt) {
  Matrix out = Real(9, 9, 9, 9);
  AryMpy(Real(1, 0, 0, 1), Real(3, std::numeric_limits<double>::infinity(), 5, 6), out);
  EXPECT_EQ(shown.Lines(), Boxes{Box("AryMpy", 6)});
  ExpectMatrix(out, 3, 9, 9, 9);

  shown.Forget();
  out = Real(9, 9, 9, 9);
  AryAdd(Real(1, 1.7e308, 1, 1), Real(1, 1.7e308, 1, 1), out, 1.0);
  EXPECT_EQ(shown.Lines(), Boxes{Box("AryAdd", 6)});
  ExpectMatrix(out, 2, 9, 9, 9);
}

TEST_F(TwoPort, AUnitSectionLeavesTheRunningProductAsItWas) {
  SetProduct(kFirst);
  AryIdent(sweep.SecRe);
  AryZero(sweep.SecIm);
  AryMult();
  EXPECT_EQ(Entry(sweep.MatRe, sweep.MatIm, 1, 1), kFirst.a);
  EXPECT_EQ(Entry(sweep.MatRe, sweep.MatIm, 1, 2), kFirst.b);
  EXPECT_EQ(Entry(sweep.MatRe, sweep.MatIm, 2, 1), kFirst.c);
  EXPECT_EQ(Entry(sweep.MatRe, sweep.MatIm, 2, 2), kFirst.d);
}

TEST_F(TwoPort, TwoSectionsFoldFromTheLeftSoTheLaterStandsFirst) {
  SetProduct({1, 0, 0, 1});
  SetSection(kFirst);
  AryMult();
  SetSection(kSecond);
  AryMult();
  ExpectProduct(kSecond * kFirst);
  EXPECT_NE(Entry(sweep.MatRe, sweep.MatIm, 1, 1), (kFirst * kSecond).a);
}

TEST_F(TwoPort, FoldingEqualsTheComplexProductOfRandomMatrices) {
  std::mt19937 random(5);
  const auto value = [&random] {
    const auto part = [&random] { return static_cast<double>(random() % 20001) / 1000.0 - 10; };
    const double re = part();
    return Value(re, part());
  };
  for (int round = 0; round < 100; ++round) {
    const ComplexMatrix section{value(), value(), value(), value()};
    const ComplexMatrix product{value(), value(), value(), value()};
    SetSection(section);
    SetProduct(product);
    AryMult();
    const ComplexMatrix expected = section * product;
    EXPECT_TRUE(Near(Entry(sweep.MatRe, sweep.MatIm, 1, 1), expected.a, 1e-13, 1));
    EXPECT_TRUE(Near(Entry(sweep.MatRe, sweep.MatIm, 1, 2), expected.b, 1e-13, 1));
    EXPECT_TRUE(Near(Entry(sweep.MatRe, sweep.MatIm, 2, 1), expected.c, 1e-13, 1));
    EXPECT_TRUE(Near(Entry(sweep.MatRe, sweep.MatIm, 2, 2), expected.d, 1e-13, 1));
  }
}

TEST_F(TwoPort, FoldingLeavesTheOldProductAndTheLastRealProductInItsScratch) {
  SetProduct(kFirst);
  SetSection(kSecond);
  AryMult();
  EXPECT_EQ(Entry(sweep.OldRe, sweep.OldIm, 2, 1), kFirst.c);
  Matrix last;
  AryMpy(sweep.SecIm, sweep.OldRe, last);
  ExpectMatrix(sweep.TermRe, last(1, 1), last(1, 2), last(2, 1), last(2, 2));
}

TEST_F(TwoPort, AFoldThatOverflowsShowsTheBoxOfTheFailingStepAndGoesOn) {
  SetProduct({kHuge, 0, 0, 1});
  SetSection({kHuge, 0, 0, 2});
  AryMult();
  // Only the product of the real parts overflows, at its first entry, which stops that step with
  // the real part as it was; the imaginary part is zero throughout.
  EXPECT_EQ(shown.Lines(), Boxes{Box("AryMpy", 6)});
  ExpectMatrix(sweep.OldRe, kHuge, 0, 0, 1);
  ExpectMatrix(sweep.MatRe, kHuge, 0, 0, 1);
  ExpectMatrix(sweep.MatIm, 0, 0, 0, 0);
}

TEST_F(TwoPort, AFoldWhoseSumOverflowsFailsInTheAddition) {
  SetProduct({{1.3e154, -1.3e154}, 0, 0, 1});
  SetSection({{1.3e154, 1.3e154}, 0, 0, 1});
  AryMult();
  EXPECT_EQ(shown.Lines(), Boxes{Box("AryAdd", 6)})
      << "1.69e308 and its like fit one by one, their sum does not";
  EXPECT_EQ(sweep.MatIm(1, 1), 0) << "the difference of the imaginary products is 0";
}

TEST_F(TwoPort, QuotientHelperIsTheProductWithTheConjugateAndBothSizes) {
  const Value x{3, -4};
  const Value y{-2, 0.5};
  Complex p;
  double xx = 0;
  double yy = 0;
  CmplxUtil({x.real(), x.imag()}, {y.real(), y.imag()}, p, xx, yy);
  const Value expected = x * std::conj(y);
  EXPECT_DOUBLE_EQ(p.re, expected.real());
  EXPECT_DOUBLE_EQ(p.im, expected.imag());
  EXPECT_DOUBLE_EQ(xx, 25);
  EXPECT_DOUBLE_EQ(yy, 4.25);
  EXPECT_TRUE(Near({p.re / yy, p.im / yy}, x / y, 1e-15));
  EXPECT_TRUE(Near({p.re / xx, -p.im / xx}, y / x, 1e-15));
}

TEST_F(TwoPort, QuotientHelperTakesAZeroDivisorWithoutAFailure) {
  Complex p{7, 7};
  double xx = 7;
  double yy = 7;
  CmplxUtil({1, 2}, {0, 0}, p, xx, yy);
  EXPECT_EQ(p.re, 0);
  EXPECT_EQ(p.im, 0);
  EXPECT_EQ(xx, 5);
  EXPECT_EQ(yy, 0);
  EXPECT_EQ(shown.Lines(), Boxes{});
}

TEST_F(TwoPort, QuotientHelperThatOverflowsKeepsWhatItHadNotReached) {
  Complex p{7, 7};
  double xx = 7;
  double yy = 7;
  CmplxUtil({kHuge, 0}, {1, 0}, p, xx, yy);
  EXPECT_EQ(shown.Lines(), Boxes{Box("CmplxUtil", 6)});
  EXPECT_EQ(p.re, kHuge);
  EXPECT_EQ(p.im, 0);
  EXPECT_EQ(xx, 7) << "the square of the first is what overflowed";
  EXPECT_EQ(yy, 7);
}

}  // namespace
}  // namespace halvorne::testing
