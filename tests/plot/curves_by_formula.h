#pragma once

#include <cmath>
#include <complex>

#include "engine/design_model.h"

// Smooth result curves whose values a test can work out again, each unlike the others.

namespace halvorne::testing {

inline std::complex<double> CurveValue(int curve, int point) {
  const double angle = 0.7 * curve + 0.9 * point;
  return std::polar(0.5 + 0.1 * curve + 0.03 * point, angle);
}

enum FormulaCurve { kZinElec = 1, kZinAc, kTxTF, kRxTF, kTwoWayTF, kZFront, kZBack, kEffs };

inline void SetCurve(FreqCurve& re, FreqCurve& im, int curve) {
  for (int i = 0; i <= design.NoFreqPts; ++i) {
    re(i) = CurveValue(curve, i).real();
    im(i) = CurveValue(curve, i).imag();
  }
}

inline double TxEffValue(int point) {
  return 0.9 - 0.02 * point;
}
inline double RxEffValue(int point) {
  return 0.3 + 0.01 * point;
}
inline double DispersionValue(int slot, int point) {
  return 1 + 0.01 * slot + 0.001 * point;
}

inline void SetAllCurves() {
  SetCurve(curves.ZinElecRe, curves.ZinElecIm, kZinElec);
  SetCurve(curves.ZinAcRe, curves.ZinAcIm, kZinAc);
  SetCurve(curves.TxTFRe, curves.TxTFIm, kTxTF);
  SetCurve(curves.RxTFRe, curves.RxTFIm, kRxTF);
  SetCurve(curves.TwoWayTFRe, curves.TwoWayTFIm, kTwoWayTF);
  SetCurve(design.ZFrontRe, design.ZFrontIm, kZFront);
  SetCurve(design.ZBackRe, design.ZBackIm, kZBack);
  for (int i = 0; i <= design.NoFreqPts; ++i) {
    curves.TxEff(i) = TxEffValue(i);
    curves.RxEff(i) = RxEffValue(i);
    for (int slot = 0; slot < kDispersionSlots; ++slot) {
      design.VelDisp(slot, i) = DispersionValue(slot, i);
    }
  }
}

}  // namespace halvorne::testing
