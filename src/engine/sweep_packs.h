#pragma once

#include <cstdint>

#include "engine/design_model.h"
#include "engine/instruction_sets.h"
#include "engine/pack.h"
#include "engine/pack_matrices.h"
#include "engine/pack_network.h"
#include "engine/section_formulas.h"
#include "engine/sweep_formulas.h"
#include "engine/sweep_plan.h"
#include "platform/numbers.h"

// The steps of the sweep on a pack of points: those of MainCalc with the formulas of its
// procedures, without the places at which a procedure may stop. For the files that are compiled for
// one instruction set; everything here is a template of the pack, see there.

namespace halvorne::packs {

/// A line as it stands at some points.
template <class Number>
struct LineAt {
  formulas::LineTerms<Number> terms;
  Number dispersion;
};

/// The points that are being worked on, and what hangs together by nothing but them. All terms are
/// worked out before the first product, so that the processor works on several lines at once and is
/// not kept waiting by the chain of products.
template <class Number>
struct Points {
  explicit Points(const SweepPlan& planned) : plan(planned) {}

  const SweepPlan& plan;
  std::int32_t first = 0;
  Number freq, omega;
  LineAt<Number> front[kMaxPlates + 1], back[kMaxPlates + 1];
};

template <class Number>
ChainMatrix<Number> Section(const PlannedLine& line, const LineAt<Number>& at) {
  ChainMatrix<Number> section;
  formulas::LineSection(at.terms, line.z, at.dispersion, section.re, section.im);
  return section;
}

/// Product of a whole chain, from index 0 outward.
template <class Number>
ChainMatrix<Number> ChainProduct(const PlannedChain& chain, const LineAt<Number>* lines) {
  ChainMatrix<Number> product = Section(chain.lines[chain.plates], lines[chain.plates]);
  for (int k = chain.plates - 1; k >= 0; --k) {
    Fold(Section(chain.lines[k], lines[k]), product);
  }
  return product;
}

/// ZinElec; of a square that nobody looks at remains whether it is finite.
template <class Number>
formulas::Terminated<Number> TerminateElectrically(const Points<Number>& at, double area,
                                                   const PlannedLoad& load,
                                                   const ChainMatrix<Number>& product) {
  const Number zRe = area * Number::Load(load.re + at.first);
  const Number zIm = area * Number::Load(load.im + at.first);
  formulas::Terminated<Number> port;
  formulas::TerminateSecondPort(product.re, product.im, zRe, zIm, port.n, port.d);
  formulas::ConjugateProduct(port.n, port.d, port.p, port.nn, port.dd);
  port.p.re = Marked(Marked(port.p.re, port.nn), port.dd);
  return port;
}

/// ZinAcoust, the same way.
template <class Number>
formulas::Terminated<Number> TerminateAcoustically(double r, const ChainMatrix<Number>& product) {
  formulas::Terminated<Number> port;
  formulas::TerminateFirstPort(product.re, product.im, r, port.n, port.d);
  formulas::ConjugateProduct(port.n, port.d, port.p, port.nn, port.dd);
  port.p.re = Marked(Marked(port.p.re, port.nn), port.dd);
  return port;
}

/// Admittance of the rear branch at the rear layer's centre.
template <class Number>
ComplexOf<Number> RearBranch(const Points<Number>& at) {
  using formulas::FiniteQuotient;
  const auto port = TerminateElectrically(at, at.plan.backArea, at.plan.backLoad,
                                          ChainProduct(at.plan.back, at.back));
  return {FiniteQuotient(port.p.re, port.nn), FiniteQuotient(-port.p.im, port.nn)};
}

template <class Number>
ChainMatrix<Number> Piezo(const Points<Number>& at, int layer) {
  const auto& [fa, co, rp, m0, z, polarity] = at.plan.layers[layer - 1];
  ChainMatrix<Number> section;
  formulas::PiezoSection<Number>({fa, co, rp, m0, z, polarity}, at.freq, at.omega, section.re,
                                 section.im);
  return section;
}

/// Electrical port to the reference node.
template <class Number>
ChainMatrix<Number> ElectroAcousticStack(const Points<Number>& at,
                                         const ComplexOf<Number>& rearBranch) {
  const SweepPlan& plan = at.plan;
  ChainMatrix<Number> product = UnitMatrix<Number>();
  if (plan.twoLayers) {
    product = Section(plan.front.lines[0], at.front[0]);
    Fold(Section(plan.back.lines[0], at.back[0]), product);
  }
  FoldShunt(rearBranch, product);
  Fold(Piezo(at, 1), product);
  if (!plan.twoLayers) {
    return product;
  }
  return plan.inSeries ? InSeries(product, Piezo(at, 2)) : InParallel(product, Piezo(at, 2));
}

/// All steps of the sweep at these points.
template <class Number>
formulas::CurveValues<Number> CurvesAt(const Points<Number>& at) {
  const SweepPlan& plan = at.plan;
  const ChainMatrix<Number> stack = ElectroAcousticStack(at, RearBranch(at));
  ChainMatrix<Number> product = ChainProduct(plan.front, at.front);
  Fold(stack, product);
  for (int row = 0; row < plan.elementCount; ++row) {
    FoldElement(at.omega, plan.elements[row], product);
  }
  const formulas::Terminations<Number> ends{plan.ends.termTx, plan.ends.termRx, plan.ends.area};
  const Number loadRe = Number::Load(plan.frontLoad.re + at.first);
  const Number loadIm = Number::Load(plan.frontLoad.im + at.first);
  formulas::CurveValues<Number> values;
  formulas::ElectricalCurves(ends, loadRe, loadIm,
                             TerminateElectrically(at, plan.ends.area, plan.frontLoad, product),
                             values);
  formulas::AcousticCurves(ends, TerminateAcoustically(plan.ends.termRx, product), values);
  return values;
}

template <class Number>
void SetLines(const PlannedChain& chain, const Number& omega, const Number* lossPowers,
              std::int32_t first, LineAt<Number>* lines) {
  for (int k = 0; k <= chain.plates; ++k) {
    const PlannedLine& line = chain.lines[k];
    const double* const dispersion = line.dispersion + first;
    // The table is larger than the inner caches and has more rows than the processor looks ahead
    // in.
    __builtin_prefetch(dispersion + 16);
    lines[k].dispersion = Number::Load(dispersion);
    lines[k].terms = formulas::AcousticTerms(omega, lines[k].dispersion, line.delay, line.loss,
                                             [&] { return lossPowers[line.law]; });
  }
}

/// Goes to the points from `first` on.
template <int kLanes>
void MoveTo(std::int32_t first, Points<Pack<kLanes>>& at) {
  using Number = Pack<kLanes>;
  const SweepPlan& plan = at.plan;
  at.first = first;
  constexpr double kOffsets[] = {0, 1, 2, 3, 4, 5, 6, 7};
  static_assert(kLanes <= 8);
  at.freq = (Number::Load(kOffsets) + first) * plan.step + plan.start;
  at.omega = at.freq * kTwoPi;
  Number lossPowers[2 * (kMaxPlates + 1)];
  for (int law = 0; law < plan.lawCount; ++law) {
    lossPowers[law] = formulas::LossPower(at.freq, plan.laws[law].lossFreq, plan.laws[law].lossExp);
  }
  SetLines(plan.front, at.omega, lossPowers, first, at.front);
  SetLines(plan.back, at.omega, lossPowers, first, at.back);
}

/// Stores the lanes from `skipped` on until the first one that isn't finite.
/// @return the number of lanes from 0 on that are stored or skipped
template <int kLanes>
int StoreCurves(const formulas::CurveValues<Pack<kLanes>>& values, std::int32_t first,
                int skipped) {
  const Pack<kLanes>* const from[] = {&values.ZinElecRe, &values.ZinElecIm,  &values.ZinAcRe,
                                      &values.ZinAcIm,   &values.TxEff,      &values.RxEff,
                                      &values.TxTFRe,    &values.TxTFIm,     &values.RxTFRe,
                                      &values.RxTFIm,    &values.TwoWayTFRe, &values.TwoWayTFIm};
  double* const to[] = {
      curves.ZinElecRe.elements, curves.ZinElecIm.elements,  curves.ZinAcRe.elements,
      curves.ZinAcIm.elements,   curves.TxEff.elements,      curves.RxEff.elements,
      curves.TxTFRe.elements,    curves.TxTFIm.elements,     curves.RxTFRe.elements,
      curves.RxTFIm.elements,    curves.TwoWayTFRe.elements, curves.TwoWayTFIm.elements};
  Pack<kLanes> mark(0.0);
  for (const Pack<kLanes>* value : from) {
    mark = Marked(mark, *value);
  }
  double marks[kLanes];
  mark.Store(marks);
  int sound = skipped;
  while (sound < kLanes && marks[sound] == 0) {
    ++sound;
  }
  for (int curve = 0; curve < 12; ++curve) {
    if (sound - skipped == kLanes) {
      from[curve]->Store(to[curve] + first);
    } else {
      double lanes[kLanes];
      from[curve]->Store(lanes);
      for (int lane = skipped; lane < sound; ++lane) {
        to[curve][first + lane] = lanes[lane];
      }
    }
  }
  return sound;
}

/// InstructionSet::sweep. The last pack reaches back over points that are done already.
template <int kLanes>
std::int32_t Sweep(const SweepPlan& plan, std::int32_t from) {
  Points<Pack<kLanes>> at(plan);
  while (from <= plan.last && plan.last + 1 >= kLanes) {
    const std::int32_t lastPack = plan.last + 1 - kLanes;
    const std::int32_t first = from < lastPack ? from : lastPack;
    MoveTo(first, at);
    const int done = StoreCurves<kLanes>(CurvesAt(at), first, from - first);
    from = first + done;
    if (done < kLanes) {
      return from;
    }
  }
  return from;
}

/// The instruction set of the file that makes it.
template <int kLanes>
constexpr InstructionSet SetOf(const char* name) {
  using Number = Pack<kLanes>;
  return {name,
          kLanes,
          Sweep<kLanes>,
          [](const double* x, double* result) { cos(Number::Load(x)).Store(result); },
          [](const double* x, double* result) { sin(Number::Load(x)).Store(result); },
          [](const double* x, double* result) { exp(Number::Load(x)).Store(result); },
          [](const double* x, double n, double* result) { pow(Number::Load(x), n).Store(result); }};
}

}  // namespace halvorne::packs
