#pragma once

#include <cmath>
#include <type_traits>

#include "engine/two_port.h"
#include "platform/bounded.h"
#include "platform/failure.h"

// The formulas of the two-port toolkit, written once for a number type: double for the named
// procedures, a pack of several frequency points for the sweep; a pack needs the operators, Finite,
// Quotient and the functions of <cmath> in its own namespace. Targets are written statement by
// statement, so that one that fails leaves its target and those behind it as they were.

namespace halvorne::formulas {

template <class Number>
using MatrixOf = Bounded2<Number, 1, 2, 1, 2>;

/// A value that is the same at all points; the number type is that of the other arguments.
template <class Number>
using Constant = std::type_identity_t<Number>;

/// a / b as a statement: raises 11 when b is 0, 6 when b or the quotient is not finite (an
/// overflowed divisor would pass unseen as a quotient of 0).
template <class A, class B>
auto FiniteQuotient(const A& a, const B& b) {
  return Finite(Quotient(a, Finite(b)));
}

/// Unchecked product a b; an infinite or invalid step shows in its entry.
template <class Number>
MatrixOf<Number> Product(const MatrixOf<Number>& a, const MatrixOf<Number>& b) {
  MatrixOf<Number> out;
  out(1, 1) = a(1, 1) * b(1, 1) + a(1, 2) * b(2, 1);
  out(1, 2) = a(1, 1) * b(1, 2) + a(1, 2) * b(2, 2);
  out(2, 1) = a(2, 1) * b(1, 1) + a(2, 2) * b(2, 1);
  out(2, 2) = a(2, 1) * b(1, 2) + a(2, 2) * b(2, 2);
  return out;
}

/// Unchecked a + k b.
template <class Number>
MatrixOf<Number> Sum(const MatrixOf<Number>& a, const MatrixOf<Number>& b,
                     const Constant<Number>& k) {
  MatrixOf<Number> out;
  out(1, 1) = a(1, 1) + k * b(1, 1);
  out(1, 2) = a(1, 2) + k * b(1, 2);
  out(2, 1) = a(2, 1) + k * b(2, 1);
  out(2, 2) = a(2, 2) + k * b(2, 2);
  return out;
}

/// Unchecked complex product of a section and what stands right of it, in AryMult's four real ones;
/// the last of them is left in term.
template <class Number>
void SectionTimes(const MatrixOf<Number>& secRe, const MatrixOf<Number>& secIm,
                  const MatrixOf<Number>& oldRe, const MatrixOf<Number>& oldIm,
                  MatrixOf<Number>& re, MatrixOf<Number>& im, MatrixOf<Number>& term) {
  re = Sum(Product(secRe, oldRe), Product(secIm, oldIm), -1.0);
  term = Product(secIm, oldRe);
  im = Sum(Product(secRe, oldIm), term, 1.0);
}

/// (outRe + j outIm) = (aRe + j aIm)(bRe + j bIm) in four real products.
template <class Number>
void ComplexProduct(const Number& aRe, const Number& aIm, const Number& bRe, const Number& bIm,
                    Number& outRe, Number& outIm) {
  outRe = Finite(aRe * bRe - aIm * bIm);
  outIm = Finite(aRe * bIm + aIm * bRe);
}

/// |x|^2 of a complex x.
template <class Number>
Number SquaredSize(const Number& re, const Number& im) {
  return re * re + im * im;
}

/// p = x conj(y), xx = |x|^2, yy = |y|^2.
template <class Number>
void ConjugateProduct(const ComplexOf<Number>& x, const ComplexOf<Number>& y, ComplexOf<Number>& p,
                      Number& xx, Number& yy) {
  p.re = Finite(x.re * y.re + x.im * y.im);
  p.im = Finite(y.re * x.im - x.re * y.im);
  xx = Finite(SquaredSize(x.re, x.im));
  yy = Finite(SquaredSize(y.re, y.im));
}

/// 1/z of a complex entry by its conjugate. Raises 11 for a zero.
template <class Number>
void Inverse(const Number& zRe, const Number& zIm, Number& invRe, Number& invIm) {
  using std::pow;
  const Number size = pow(zRe, 2.0) + pow(zIm, 2.0);
  invRe = FiniteQuotient(zRe, size);
  invIm = FiniteQuotient(-zIm, size);
}

/// A D - B C of a complex matrix.
template <class Number>
void Determinant(const MatrixOf<Number>& mRe, const MatrixOf<Number>& mIm, Number& dRe,
                 Number& dIm) {
  dRe = Finite((mRe(1, 1) * mRe(2, 2) - mIm(1, 1) * mIm(2, 2)) -
               (mRe(1, 2) * mRe(2, 1) - mIm(1, 2) * mIm(2, 1)));
  dIm = Finite((mRe(1, 1) * mIm(2, 2) + mIm(1, 1) * mRe(2, 2)) -
               (mRe(1, 2) * mIm(2, 1) + mIm(1, 2) * mRe(2, 1)));
}

/// Hybrid parameters of a chain matrix a with inverse pivot 1/D and determinant det:
/// B/D, det/D, -1/D, C/D.
template <class Number>
void ChainToHybrid(const MatrixOf<Number>& aRe, const MatrixOf<Number>& aIm, const Number& invRe,
                   const Number& invIm, const Number& detRe, const Number& detIm,
                   MatrixOf<Number>& hRe, MatrixOf<Number>& hIm) {
  ComplexProduct(aRe(1, 2), aIm(1, 2), invRe, invIm, hRe(1, 1), hIm(1, 1));
  ComplexProduct(detRe, detIm, invRe, invIm, hRe(1, 2), hIm(1, 2));
  hRe(2, 1) = -invRe;
  hIm(2, 1) = -invIm;
  ComplexProduct(aRe(2, 1), aIm(2, 1), invRe, invIm, hRe(2, 2), hIm(2, 2));
}

/// The reverse with inverse pivot 1/H21: -det/H21, -H11/H21, -H22/H21, -1/H21.
template <class Number>
void HybridToChain(const MatrixOf<Number>& hRe, const MatrixOf<Number>& hIm, const Number& invRe,
                   const Number& invIm, const Number& detRe, const Number& detIm,
                   MatrixOf<Number>& aRe, MatrixOf<Number>& aIm) {
  ComplexProduct(-detRe, -detIm, invRe, invIm, aRe(1, 1), aIm(1, 1));
  ComplexProduct(-hRe(1, 1), -hIm(1, 1), invRe, invIm, aRe(1, 2), aIm(1, 2));
  ComplexProduct(-hRe(2, 2), -hIm(2, 2), invRe, invIm, aRe(2, 1), aIm(2, 1));
  aRe(2, 2) = -invRe;
  aIm(2, 2) = -invIm;
}

/// Admittance parameters of a chain matrix with inverse pivot 1/B: D/B, -1/B, -1/B, A/B.
template <class Number>
void ChainToAdmittance(const MatrixOf<Number>& aRe, const MatrixOf<Number>& aIm,
                       const Number& invRe, const Number& invIm, MatrixOf<Number>& yRe,
                       MatrixOf<Number>& yIm) {
  ComplexProduct(aRe(2, 2), aIm(2, 2), invRe, invIm, yRe(1, 1), yIm(1, 1));
  // Kept: a reciprocal section is assumed, so Y12 takes no determinant, unlike H12.
  yRe(1, 2) = -invRe;
  yIm(1, 2) = -invIm;
  yRe(2, 1) = -invRe;
  yIm(2, 1) = -invIm;
  ComplexProduct(aRe(1, 1), aIm(1, 1), invRe, invIm, yRe(2, 2), yIm(2, 2));
}

/// The reverse with inverse pivot 1/Y21: -Y22/Y21, -1/Y21, -det/Y21, -Y11/Y21.
template <class Number>
void AdmittanceToChain(const MatrixOf<Number>& yRe, const MatrixOf<Number>& yIm,
                       const Number& invRe, const Number& invIm, const Number& detRe,
                       const Number& detIm, MatrixOf<Number>& aRe, MatrixOf<Number>& aIm) {
  ComplexProduct(-yRe(2, 2), -yIm(2, 2), invRe, invIm, aRe(1, 1), aIm(1, 1));
  aRe(1, 2) = -invRe;
  aIm(1, 2) = -invIm;
  ComplexProduct(-detRe, -detIm, invRe, invIm, aRe(2, 1), aIm(2, 1));
  ComplexProduct(-yRe(1, 1), -yIm(1, 1), invRe, invIm, aRe(2, 2), aIm(2, 2));
}

}  // namespace halvorne::formulas
