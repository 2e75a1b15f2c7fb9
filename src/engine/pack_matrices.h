#pragma once

#include "engine/two_port.h"
#include "engine/two_port_formulas.h"

// Chain matrices of a pack of points: what the two-port toolkit's procedures do, without the places
// at which one may stop.

namespace halvorne::packs {

using formulas::MatrixOf;

template <class Number>
struct ChainMatrix {
  MatrixOf<Number> re, im;
};

template <class Number>
ChainMatrix<Number> UnitMatrix() {
  ChainMatrix<Number> unit;
  unit.re(1, 1) = unit.re(2, 2) = Number(1.0);
  unit.re(1, 2) = unit.re(2, 1) = Number(0.0);
  unit.im(1, 1) = unit.im(1, 2) = unit.im(2, 1) = unit.im(2, 2) = Number(0.0);
  return unit;
}

/// What AryMult does with a whole section.
template <class Number>
void Fold(const ChainMatrix<Number>& section, ChainMatrix<Number>& product) {
  const ChainMatrix<Number> old = product;
  MatrixOf<Number> term;
  formulas::SectionTimes(section.re, section.im, old.re, old.im, product.re, product.im, term);
}

/// What AryMult does with a section that is the unit matrix but for its B entry z: the second row,
/// times z, is added to the first. The order is AryMult's, and so are the bits.
template <class Number>
void FoldSeries(const ComplexOf<Number>& z, ChainMatrix<Number>& product) {
  auto& [re, im] = product;
  for (int column = 1; column <= 2; ++column) {
    const Number oldRe = re(1, column);
    re(1, column) = (oldRe + z.re * re(2, column)) - z.im * im(2, column);
    im(1, column) = (im(1, column) + z.re * im(2, column)) + z.im * re(2, column);
  }
}

/// The same with the C entry y.
template <class Number>
void FoldShunt(const ComplexOf<Number>& y, ChainMatrix<Number>& product) {
  auto& [re, im] = product;
  for (int column = 1; column <= 2; ++column) {
    re(2, column) = (y.re * re(1, column) + re(2, column)) - y.im * im(1, column);
    im(2, column) = (y.re * im(1, column) + im(2, column)) + y.im * re(1, column);
  }
}

template <class Number>
ComplexOf<Number> InverseOf(const ChainMatrix<Number>& m, int row, int column) {
  ComplexOf<Number> inverse;
  formulas::Inverse(m.re(row, column), m.im(row, column), inverse.re, inverse.im);
  return inverse;
}

template <class Number>
ComplexOf<Number> DeterminantOf(const ChainMatrix<Number>& m) {
  ComplexOf<Number> det;
  formulas::Determinant(m.re, m.im, det.re, det.im);
  return det;
}

template <class Number>
ChainMatrix<Number> SumOf(const ChainMatrix<Number>& a, const ChainMatrix<Number>& b) {
  return {formulas::Sum(a.re, b.re, 1.0), formulas::Sum(a.im, b.im, 1.0)};
}

template <class Number>
ChainMatrix<Number> HybridOf(const ChainMatrix<Number>& chain) {
  const auto inverse = InverseOf(chain, 2, 2);
  const auto det = DeterminantOf(chain);
  ChainMatrix<Number> hybrid;
  formulas::ChainToHybrid(chain.re, chain.im, inverse.re, inverse.im, det.re, det.im, hybrid.re,
                          hybrid.im);
  return hybrid;
}

template <class Number>
ChainMatrix<Number> AdmittanceOf(const ChainMatrix<Number>& chain) {
  const auto inverse = InverseOf(chain, 1, 2);
  ChainMatrix<Number> admittance;
  formulas::ChainToAdmittance(chain.re, chain.im, inverse.re, inverse.im, admittance.re,
                              admittance.im);
  return admittance;
}

/// Chain matrix of the parameters that two layers' sum yields, by one of the reverse conversions.
template <class Number, class FromSum>
ChainMatrix<Number> ChainOf(const ChainMatrix<Number>& sum, FromSum fromSum) {
  const auto inverse = InverseOf(sum, 2, 1);
  const auto det = DeterminantOf(sum);
  ChainMatrix<Number> chain;
  fromSum(sum.re, sum.im, inverse.re, inverse.im, det.re, det.im, chain.re, chain.im);
  return chain;
}

/// Two layers electrically in series: hybrid parameters add.
template <class Number>
ChainMatrix<Number> InSeries(const ChainMatrix<Number>& rear, const ChainMatrix<Number>& front) {
  return ChainOf(SumOf(HybridOf(rear), HybridOf(front)), formulas::HybridToChain<Number>);
}

/// In parallel: admittances add.
template <class Number>
ChainMatrix<Number> InParallel(const ChainMatrix<Number>& rear, const ChainMatrix<Number>& front) {
  return ChainOf(SumOf(AdmittanceOf(rear), AdmittanceOf(front)),
                 formulas::AdmittanceToChain<Number>);
}

}  // namespace halvorne::packs
