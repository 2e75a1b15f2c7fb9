#include "engine_fixture.h"

#include <algorithm>
#include <cmath>

#include "engine/acoustic_sections.h"
#include "engine/frequency_sweep.h"
#include "engine/piezo_section.h"
#include "platform/failure.h"
#include "platform/numbers.h"

namespace halvorne::testing {

EngineTest::EngineTest() {
  Reset(design);
  Reset(curves);
  Reset(sweep);
  SetMessages(&shown);
}

EngineTest::~EngineTest() {
  SetMessages(nullptr);
}

std::string Box(const std::string& procedure, int number) {
  return "ERROR in " + procedure + " of CALCS|Error: " + std::to_string(number) + ". " +
         FailureDescription(number);
}

void RunSweep() {
  PiezoConstants();
  PiezoLayers();
  CmplxLoad();
  PrelimCalc();
  MainCalc();
}

SweptCurves CurrentCurves() {
  SweptCurves all;
  for (int i = 0; i <= design.NoFreqPts; ++i) {
    all.ZinElec.emplace_back(curves.ZinElecRe(i), curves.ZinElecIm(i));
    all.ZinAc.emplace_back(curves.ZinAcRe(i), curves.ZinAcIm(i));
    all.TxTF.emplace_back(curves.TxTFRe(i), curves.TxTFIm(i));
    all.RxTF.emplace_back(curves.RxTFRe(i), curves.RxTFIm(i));
    all.TwoWayTF.emplace_back(curves.TwoWayTFRe(i), curves.TwoWayTFIm(i));
    all.TxEff.push_back(curves.TxEff(i));
    all.RxEff.push_back(curves.RxEff(i));
  }
  return all;
}

SweptCurves Swept() {
  RunSweep();
  return CurrentCurves();
}

SweptCurves SweptAt(double freq) {
  design.FreqStart = freq;
  design.FreqStop = 2 * freq;
  design.NoFreqPts = 1;
  NeutralDispersion();
  return Swept();
}

double FreqOf(int point) {
  return design.FreqStart + point * (design.FreqStop - design.FreqStart) / design.NoFreqPts;
}

Value Entry(const Matrix& re, const Matrix& im, int row, int column) {
  return {re(row, column), im(row, column)};
}

void SetMatrix(Matrix& re, Matrix& im, Value a, Value b, Value c, Value d) {
  const Value values[2][2] = {{a, b}, {c, d}};
  for (int row = 1; row <= 2; ++row) {
    for (int column = 1; column <= 2; ++column) {
      re(row, column) = values[row - 1][column - 1].real();
      im(row, column) = values[row - 1][column - 1].imag();
    }
  }
}

::testing::AssertionResult Near(Value actual, Value expected, double tolerance, double floor) {
  const double size = std::max(std::abs(expected), floor);
  const double off = std::abs(actual - expected);
  if (off <= tolerance * size) {
    return ::testing::AssertionSuccess();
  }
  return ::testing::AssertionFailure()
         << actual << " instead of " << expected << ", off by " << off / size << " of its size";
}

namespace {

template <class T>
::testing::AssertionResult Compare(const std::vector<T>& actual, const std::vector<T>& expected,
                                   double tolerance, double share) {
  if (actual.size() != expected.size()) {
    return ::testing::AssertionFailure() << "other number of points";
  }
  double peak = 0;
  for (const T& value : expected) {
    peak = std::max(peak, std::abs(value));
  }
  for (std::size_t i = 0; i < actual.size(); ++i) {
    if (auto result = Near(actual[i], expected[i], tolerance, share * peak); !result) {
      return result << " at point " << i;
    }
  }
  return ::testing::AssertionSuccess();
}

}  // namespace

::testing::AssertionResult CurvesNear(const std::vector<Value>& actual,
                                      const std::vector<Value>& expected, double tolerance,
                                      double share) {
  return Compare(actual, expected, tolerance, share);
}

::testing::AssertionResult CurvesNear(const std::vector<double>& actual,
                                      const std::vector<double>& expected, double tolerance,
                                      double share) {
  return Compare(actual, expected, tolerance, share);
}

void ExpectSameCurves(const SweptCurves& actual, const SweptCurves& expected, double tolerance) {
  EXPECT_TRUE(CurvesNear(actual.ZinElec, expected.ZinElec, tolerance));
  EXPECT_TRUE(CurvesNear(actual.ZinAc, expected.ZinAc, tolerance));
  EXPECT_TRUE(CurvesNear(actual.TxTF, expected.TxTF, tolerance));
  EXPECT_TRUE(CurvesNear(actual.RxTF, expected.RxTF, tolerance));
  EXPECT_TRUE(CurvesNear(actual.TwoWayTF, expected.TwoWayTF, tolerance));
  EXPECT_TRUE(CurvesNear(actual.TxEff, expected.TxEff, tolerance));
  EXPECT_TRUE(CurvesNear(actual.RxEff, expected.RxEff, tolerance));
}

}  // namespace halvorne::testing
