#pragma once

#include <complex>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "engine/design_model.h"
#include "engine/two_port.h"
#include "support/plain_design.h"
#include "support/recorded_messages.h"

namespace halvorne::testing {

using Value = std::complex<double>;
using Boxes = std::vector<std::string>;

/// The engine as it stands before any file was read: all zero, messages written down.
class EngineTest : public ::testing::Test {
 public:
  EngineTest(const EngineTest&) = delete;
  EngineTest& operator=(const EngineTest&) = delete;

 protected:
  EngineTest();
  ~EngineTest() override;

  RecordedMessages shown;
};

/// The common box of a procedure: "ERROR in <procedure> of CALCS|Error: <number>. <words>".
std::string Box(const std::string& procedure, int number);

/// Derives all that a sweep needs and runs it.
void RunSweep();

/// The six curves of a sweep, points 0 to NoFreqPts.
struct SweptCurves {
  std::vector<Value> ZinElec, ZinAc, TxTF, RxTF, TwoWayTF;
  std::vector<double> TxEff, RxEff;
};
SweptCurves CurrentCurves();
/// RunSweep and its curves.
SweptCurves Swept();
/// The same at one frequency, Hz (point 0 of a sweep that starts there).
SweptCurves SweptAt(double freq);

/// Frequency of a point, Hz.
double FreqOf(int point);

/// Entry of a working matrix.
Value Entry(const Matrix& re, const Matrix& im, int row, int column);
/// Writes a matrix from its entries A, B, C, D.
void SetMatrix(Matrix& re, Matrix& im, Value a, Value b, Value c, Value d);

/// |actual - expected| <= tolerance |expected|, with `floor` as the smallest size that counts.
::testing::AssertionResult Near(Value actual, Value expected, double tolerance, double floor = 0);
/// Near at every point; values below `share` of the peak are compared as if they were that large.
::testing::AssertionResult CurvesNear(const std::vector<Value>& actual,
                                      const std::vector<Value>& expected, double tolerance,
                                      double share = 0);
::testing::AssertionResult CurvesNear(const std::vector<double>& actual,
                                      const std::vector<double>& expected, double tolerance,
                                      double share = 0);
/// All six curves.
void ExpectSameCurves(const SweptCurves& actual, const SweptCurves& expected, double tolerance);

}  // namespace halvorne::testing
