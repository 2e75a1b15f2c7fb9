#include "engine/network_elements.h"

#include "engine/design_model.h"
#include "engine/network_formulas.h"
#include "engine/two_port.h"

namespace halvorne {

using formulas::FiniteQuotient;

namespace {

/// A section that passes everything through; each element starts from it.
void FreshSection() {
  AryIdent(sweep.SecRe);
  AryZero(sweep.SecIm);
}

/// Stores the quotient of a circuit in entry (row, column).
void StoreRatio(const formulas::Ratio<double>& ratio, int row, int column) {
  Complex p;
  double xx = 0;
  double yy = 0;
  CmplxUtil({ratio.xRe, ratio.xIm}, {ratio.yRe, ratio.yIm}, p, xx, yy);
  sweep.SecRe(row, column) = FiniteQuotient(p.re, yy);
  sweep.SecIm(row, column) = FiniteQuotient(p.im, yy);
}

void StoreImpedance(const formulas::Ratio<double>& ratio) {
  StoreRatio(ratio, 1, 2);
}
void StoreAdmittance(const formulas::Ratio<double>& ratio) {
  StoreRatio(ratio, 2, 1);
}

}  // namespace

void Rnet(double code, double r) try {
  FreshSection();
  if (code == 1) {
    sweep.SecRe(1, 2) = Finite(r);
  } else {
    sweep.SecRe(2, 1) = FiniteQuotient(1, r);
  }
} catch (...) {
  ReportFailure("Rnet", "CALCS");
}

void Lnet(double code, double l) try {
  FreshSection();
  if (code == 3) {
    sweep.SecIm(1, 2) = formulas::InductorReactance(sweep.Omega, l);
  } else {
    sweep.SecIm(2, 1) = formulas::InductorSusceptance(sweep.Omega, l);
  }
} catch (...) {
  ReportFailure("Lnet", "CALCS");
}

void Cnet(double code, double c) try {
  FreshSection();
  if (code == 5) {
    sweep.SecIm(1, 2) = formulas::CapacitorReactance(sweep.Omega, c);
  } else {
    sweep.SecIm(2, 1) = formulas::CapacitorSusceptance(sweep.Omega, c);
  }
} catch (...) {
  ReportFailure("Cnet", "CALCS");
}

void Coax(double z0, double length, double attenuation, double lossFreq) try {
  FreshSection();
  formulas::CoaxSection(sweep.Omega, z0, length, attenuation, lossFreq, sweep.SecRe, sweep.SecIm);
} catch (...) {
  ReportFailure("Coax", "CALCS");
}

void Xfmr(double primary, double secondary) try {
  FreshSection();
  sweep.SecRe(1, 1) = FiniteQuotient(primary, secondary);
  sweep.SecRe(2, 2) = FiniteQuotient(1, sweep.SecRe(1, 1));
} catch (...) {
  ReportFailure("Xfmr", "CALCS");
}

void NonIdeal(double lse, double r, double lsh, double c) try {
  FreshSection();
  sweep.SecIm(1, 2) = formulas::InductorReactance(sweep.Omega, lse);
  AryMult();
  FreshSection();
  sweep.SecRe(2, 1) = FiniteQuotient(1, r);
  sweep.SecIm(2, 1) = formulas::TankSusceptance(sweep.Omega, lsh, c);
  AryMult();
  FreshSection();
  sweep.SecIm(1, 2) = formulas::InductorReactance(sweep.Omega, lse);
} catch (...) {
  ReportFailure("NonIdeal", "CALCS");
}

void SeriesA(double r, double l, double c) try {
  FreshSection();
  StoreImpedance(formulas::SeriesARatio(sweep.Omega, r, l, c));
} catch (...) {
  ReportFailure("SeriesA", "CALCS");
}

void SeriesB(double r, double l, double c) try {
  FreshSection();
  StoreImpedance(formulas::SeriesBRatio(sweep.Omega, r, l, c));
} catch (...) {
  ReportFailure("SeriesB", "CALCS");
}

void SeriesC(double r, double l, double c) try {
  FreshSection();
  StoreImpedance(formulas::SeriesCRatio(sweep.Omega, r, l, c));
} catch (...) {
  ReportFailure("SeriesC", "CALCS");
}

void SeriesE(double r, double l, double ca, double cb) try {
  FreshSection();
  StoreImpedance(formulas::SeriesERatio(sweep.Omega, r, l, ca, cb));
} catch (...) {
  ReportFailure("SeriesE", "CALCS");
}

void ShuntB(double r, double l, double c) try {
  FreshSection();
  StoreAdmittance(formulas::ShuntBRatio(sweep.Omega, r, l, c));
} catch (...) {
  ReportFailure("ShuntB", "CALCS");
}

void ShuntC(double r, double l, double c) try {
  FreshSection();
  StoreAdmittance(formulas::ShuntCRatio(sweep.Omega, r, l, c));
} catch (...) {
  ReportFailure("ShuntC", "CALCS");
}

void ShuntD(double r, double l, double c) try {
  FreshSection();
  StoreAdmittance(formulas::ShuntDRatio(sweep.Omega, r, l, c));
} catch (...) {
  ReportFailure("ShuntD", "CALCS");
}

ElementKind KindOf(double code) {
  if (code >= 1 && code <= 2) {
    return code == 1 ? ElementKind::kSeriesR : ElementKind::kShuntR;
  }
  if (code >= 3 && code <= 4) {
    return code == 3 ? ElementKind::kSeriesL : ElementKind::kShuntL;
  }
  if (code >= 5 && code <= 6) {
    return code == 5 ? ElementKind::kSeriesC : ElementKind::kShuntC;
  }
  for (int kind = 7; kind <= 17; ++kind) {
    if (code == kind) {
      return static_cast<ElementKind>(kind);
    }
  }
  return ElementKind::kUnknown;
}

void ElementSection(int row) {
  const auto value = [row](int column) { return design.ElNet(row, column); };
  const double code = value(1);
  switch (KindOf(code)) {
    case ElementKind::kSeriesR:
    case ElementKind::kShuntR:
      return Rnet(code, value(2));
    case ElementKind::kSeriesL:
    case ElementKind::kShuntL:
      return Lnet(code, value(2));
    case ElementKind::kSeriesC:
    case ElementKind::kShuntC:
      return Cnet(code, value(2));
    case ElementKind::kCoax:
      return Coax(value(2), value(3), value(4), value(5));
    case ElementKind::kTransformer:
    case ElementKind::kLayers:
      return Xfmr(value(2), value(3));
    case ElementKind::kNonIdeal:
      return NonIdeal(value(2), value(3), value(4), value(5));
    case ElementKind::kSeriesA:
      return SeriesA(value(2), value(3), value(4));
    case ElementKind::kSeriesB:
      return SeriesB(value(2), value(3), value(4));
    case ElementKind::kSeriesCircuitC:
      return SeriesC(value(2), value(3), value(4));
    case ElementKind::kSeriesE:
      return SeriesE(value(2), value(3), value(4), value(5));
    case ElementKind::kShuntB:
      return ShuntB(value(2), value(3), value(4));
    case ElementKind::kShuntCircuitC:
      return ShuntC(value(2), value(3), value(4));
    case ElementKind::kShuntD:
      return ShuntD(value(2), value(3), value(4));
    case ElementKind::kUnknown:
      // Kept: an unknown code calls nothing, so the section that stands is folded in again.
      return;
  }
}

}  // namespace halvorne
