#pragma once

#include "engine/network_formulas.h"
#include "engine/pack_matrices.h"
#include "engine/sweep_plan.h"

// The electrical network for a pack of points.

namespace halvorne::packs {

/// The quotient of a circuit; of |x|^2 remains whether it is finite.
template <class Number>
ComplexOf<Number> Value(const formulas::Ratio<Number>& ratio) {
  using formulas::FiniteQuotient;
  ComplexOf<Number> p;
  Number xx;
  Number yy;
  formulas::ConjugateProduct({ratio.xRe, ratio.xIm}, {ratio.yRe, ratio.yIm}, p, xx, yy);
  return {FiniteQuotient(Marked(p.re, xx), yy), FiniteQuotient(p.im, yy)};
}

/// Folds a row of the network into the product.
template <class Number>
void FoldElement(const Number& omega, const PlannedElement& element, ChainMatrix<Number>& product) {
  using formulas::FiniteQuotient;
  const Number zero(0.0);
  const Number a(element.values[0]);
  const Number b(element.values[1]);
  const Number c(element.values[2]);
  const Number d(element.values[3]);
  switch (element.kind) {
    case ElementKind::kSeriesR:
      return FoldSeries({a, zero}, product);
    case ElementKind::kShuntR:
      return FoldShunt({FiniteQuotient(1.0, a), zero}, product);
    case ElementKind::kSeriesL:
      return FoldSeries({zero, formulas::InductorReactance(omega, a)}, product);
    case ElementKind::kShuntL:
      return FoldShunt({zero, formulas::InductorSusceptance(omega, a)}, product);
    case ElementKind::kSeriesC:
      return FoldSeries({zero, formulas::CapacitorReactance(omega, a)}, product);
    case ElementKind::kShuntC:
      return FoldShunt({zero, formulas::CapacitorSusceptance(omega, a)}, product);
    case ElementKind::kCoax: {
      ChainMatrix<Number> section;
      formulas::CoaxSection(omega, a, b, c, d, section.re, section.im);
      return Fold(section, product);
    }
    case ElementKind::kTransformer:
    case ElementKind::kLayers: {
      ChainMatrix<Number> section = UnitMatrix<Number>();
      section.re(1, 1) = FiniteQuotient(a, b);
      section.re(2, 2) = FiniteQuotient(1.0, section.re(1, 1));
      return Fold(section, product);
    }
    case ElementKind::kNonIdeal:
      FoldSeries({zero, formulas::InductorReactance(omega, a)}, product);
      FoldShunt({FiniteQuotient(1.0, b), formulas::TankSusceptance(omega, c, d)}, product);
      return FoldSeries({zero, formulas::InductorReactance(omega, a)}, product);
    case ElementKind::kSeriesA:
      return FoldSeries(Value(formulas::SeriesARatio(omega, a, b, c)), product);
    case ElementKind::kSeriesB:
      return FoldSeries(Value(formulas::SeriesBRatio(omega, a, b, c)), product);
    case ElementKind::kSeriesCircuitC:
      return FoldSeries(Value(formulas::SeriesCRatio(omega, a, b, c)), product);
    case ElementKind::kSeriesE:
      return FoldSeries(Value(formulas::SeriesERatio(omega, a, b, c, d)), product);
    case ElementKind::kShuntB:
      return FoldShunt(Value(formulas::ShuntBRatio(omega, a, b, c)), product);
    case ElementKind::kShuntCircuitC:
      return FoldShunt(Value(formulas::ShuntCRatio(omega, a, b, c)), product);
    case ElementKind::kShuntD:
      return FoldShunt(Value(formulas::ShuntDRatio(omega, a, b, c)), product);
    case ElementKind::kUnknown:
      return;  // such a network is not planned
  }
}

}  // namespace halvorne::packs
