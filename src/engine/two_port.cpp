#include "engine/two_port.h"

#include "engine/two_port_formulas.h"

namespace halvorne {

Sweep sweep;

namespace {

void Assign(const Matrix& values, Matrix& out) {
  out(1, 1) = Finite(values(1, 1));
  out(1, 2) = Finite(values(1, 2));
  out(2, 1) = Finite(values(2, 1));
  out(2, 2) = Finite(values(2, 2));
}

/// Differences that are 0 for finite values only, taken once for all entries.
bool AllFinite(const Matrix& re, const Matrix& im) {
  const auto excess = [](const Matrix& m) {
    return ((m(1, 1) - m(1, 1)) + (m(1, 2) - m(1, 2))) +
           ((m(2, 1) - m(2, 1)) + (m(2, 2) - m(2, 2)));
  };
  return excess(re) + excess(im) == 0;
}

/// AryMult's operations in its order, in registers. Stores nothing and returns false when an entry
/// is not finite; finite entries prove that every step was.
bool MultAtOnce() {
  const Matrix oldRe = sweep.MatRe;
  const Matrix oldIm = sweep.MatIm;
  Matrix re;
  Matrix im;
  Matrix term;
  formulas::SectionTimes(sweep.SecRe, sweep.SecIm, oldRe, oldIm, re, im, term);
  if (!AllFinite(re, im)) [[unlikely]] {
    return false;
  }
  sweep.OldRe = oldRe;
  sweep.OldIm = oldIm;
  sweep.TermRe = term;
  sweep.MatRe = re;
  sweep.MatIm = im;
  return true;
}

}  // namespace

void AryIdent(Matrix& m) try {
  m(1, 1) = 1;
  m(1, 2) = 0;
  m(2, 1) = 0;
  m(2, 2) = 1;
} catch (...) {
  ReportFailure("AryIdent", "CALCS");
}

void AryZero(Matrix& m) try {
  m(1, 1) = 0;
  m(1, 2) = 0;
  m(2, 1) = 0;
  m(2, 2) = 0;
} catch (...) {
  ReportFailure("AryZero", "CALCS");
}

void AryCopy(const Matrix& from, Matrix& to) try { to = from; } catch (...) {
  ReportFailure("AryCopy", "CALCS");
}

void AryAdd(const Matrix& a, const Matrix& b, Matrix& out, double k) try {
  Assign(formulas::Sum(a, b, k), out);
} catch (...) {
  ReportFailure("AryAdd", "CALCS");
}

void AryMpy(const Matrix& a, const Matrix& b, Matrix& out) try {
  Assign(formulas::Product(a, b), out);
} catch (...) {
  ReportFailure("AryMpy", "CALCS");
}

void AryMult() try {
  if (MultAtOnce()) [[likely]] {
    return;
  }
  // Step by step, so that the failing step shows its box and leaves what it had stored.
  AryCopy(sweep.MatRe, sweep.OldRe);
  AryCopy(sweep.MatIm, sweep.OldIm);
  AryMpy(sweep.SecRe, sweep.OldRe, sweep.MatRe);
  AryMpy(sweep.SecIm, sweep.OldIm, sweep.TermRe);
  AryAdd(sweep.MatRe, sweep.TermRe, sweep.MatRe, -1.0);
  AryMpy(sweep.SecRe, sweep.OldIm, sweep.MatIm);
  AryMpy(sweep.SecIm, sweep.OldRe, sweep.TermRe);
  AryAdd(sweep.MatIm, sweep.TermRe, sweep.MatIm, 1.0);
} catch (...) {
  ReportFailure("AryMult", "CALCS");
}

void CmplxUtil(const Complex& x, const Complex& y, Complex& p, double& xx, double& yy) try {
  formulas::ConjugateProduct(x, y, p, xx, yy);
} catch (...) {
  ReportFailure("CmplxUtil", "CALCS");
}

void ComplexDet(const Matrix& mRe, const Matrix& mIm, double& dRe, double& dIm) try {
  formulas::Determinant(mRe, mIm, dRe, dIm);
} catch (...) {
  ReportFailure("ComplexDet", "CALCS");
}

void ABCDtoH(const Matrix& aRe, const Matrix& aIm, Matrix& hRe, Matrix& hIm) try {
  Complex inv;
  Complex det;
  formulas::Inverse(aRe(2, 2), aIm(2, 2), inv.re, inv.im);
  ComplexDet(aRe, aIm, det.re, det.im);
  formulas::ChainToHybrid(aRe, aIm, inv.re, inv.im, det.re, det.im, hRe, hIm);
} catch (...) {
  ReportFailure("ABCDtoH", "CALCS");
}

void HtoABCD(const Matrix& hRe, const Matrix& hIm, Matrix& aRe, Matrix& aIm) try {
  Complex inv;
  Complex det;
  formulas::Inverse(hRe(2, 1), hIm(2, 1), inv.re, inv.im);
  ComplexDet(hRe, hIm, det.re, det.im);
  formulas::HybridToChain(hRe, hIm, inv.re, inv.im, det.re, det.im, aRe, aIm);
} catch (...) {
  ReportFailure("HtoABCD", "CALCS");
}

void ABCDtoY(const Matrix& aRe, const Matrix& aIm, Matrix& yRe, Matrix& yIm) try {
  Complex inv;
  formulas::Inverse(aRe(1, 2), aIm(1, 2), inv.re, inv.im);
  formulas::ChainToAdmittance(aRe, aIm, inv.re, inv.im, yRe, yIm);
} catch (...) {
  ReportFailure("ABCDtoY", "CALCS");
}

void YtoABCD(const Matrix& yRe, const Matrix& yIm, Matrix& aRe, Matrix& aIm) try {
  Complex inv;
  Complex det;
  formulas::Inverse(yRe(2, 1), yIm(2, 1), inv.re, inv.im);
  ComplexDet(yRe, yIm, det.re, det.im);
  formulas::AdmittanceToChain(yRe, yIm, inv.re, inv.im, det.re, det.im, aRe, aIm);
} catch (...) {
  ReportFailure("YtoABCD", "CALCS");
}

}  // namespace halvorne
