#include "engine/piezo_section.h"

#include <cmath>

#include "engine/design_model.h"
#include "engine/section_formulas.h"

namespace halvorne {

using formulas::FiniteQuotient;

namespace {

constexpr double kFreeSpace = 8.85e-12;  ///< permittivity as the program uses it, F/m

/// Fills one layer's constants, all of them or none.
void LayerConstants(int layer) {
  const PiezoMaterial& matl = design.PZMatl(layer);
  const double v = matl.Velocity;
  const double thick = design.PZThick(layer);
  const double area = design.ElementArea;

  const double fa = FiniteQuotient(v, 2 * thick);
  const double co = FiniteQuotient(area * matl.Ks * kFreeSpace, thick);
  const double h =
      Finite(matl.Kt * v * std::sqrt(FiniteQuotient(matl.Density, matl.Ks * kFreeSpace)));
  const double zs = Finite(matl.Density * v);
  const double coupling = FiniteQuotient(h * h * matl.Ks * kFreeSpace, zs * v);
  const double rp = FiniteQuotient(1 - coupling, co * matl.TanDe);
  const double m0 = FiniteQuotient(h, fa * kTwoPi * zs * area);

  design.PZFa(layer) = fa;
  design.PZCo(layer) = co;
  design.PZRp(layer) = rp;
  design.PZM0(layer) = m0;
}

/// Converts both paths of a two-layer stack into parameters that add, and their sum back.
template <class ToSum, class FromSum>
void Join(ToSum toSum, FromSum fromSum) {
  toSum(sweep.MatRe, sweep.MatIm, sweep.ElecRe, sweep.ElecIm);
  toSum(sweep.SecRe, sweep.SecIm, sweep.ParmRe, sweep.ParmIm);
  AryAdd(sweep.ElecRe, sweep.ParmRe, sweep.SecRe, 1.0);
  AryAdd(sweep.ElecIm, sweep.ParmIm, sweep.SecIm, 1.0);
  fromSum(sweep.SecRe, sweep.SecIm, sweep.ElecRe, sweep.ElecIm);
}

}  // namespace

void PiezoConstants() try {
  for (int layer = 1; layer <= design.NoPiezo; ++layer) {
    LayerConstants(layer);
  }
} catch (...) {
  ReportFailure("PiezoConstants", "CALCS");
}

formulas::LayerConstants<double> ConstantsOf(std::int16_t layer) {
  const PiezoMaterial& matl = design.PZMatl(layer);
  return {design.PZFa(layer),
          design.PZCo(layer),
          design.PZRp(layer),
          design.PZM0(layer),
          matl.Density * matl.Velocity * design.ElementArea,
          static_cast<double>(design.PZPolarity(layer))};
}

void TPiezo(std::int16_t layer, Matrix& re, Matrix& im) try {
  formulas::PiezoSection(ConstantsOf(layer), sweep.Freq, sweep.Omega, re, im);
} catch (...) {
  ReportFailure("TPiezo", "CALCS");
}

void AcoustoElec() try {
  constexpr std::int16_t kSeries = 1;
  constexpr std::int16_t kParallel = 2;
  TPiezo(1, sweep.SecRe, sweep.SecIm);
  AryMult();
  if (design.NoPiezo == 1) {
    AryCopy(sweep.MatRe, sweep.ElecRe);
    AryCopy(sweep.MatIm, sweep.ElecIm);
    return;
  }
  TPiezo(2, sweep.SecRe, sweep.SecIm);
  // Kept: any other connection leaves the stack's matrix of the point before.
  if (design.PZConnect == kSeries) {
    Join(ABCDtoH, HtoABCD);
  } else if (design.PZConnect == kParallel) {
    Join(ABCDtoY, YtoABCD);
  }
} catch (...) {
  ReportFailure("AcoustoElec", "CALCS");
}

}  // namespace halvorne
