#include "engine/frequency_sweep.h"

#include <cstdint>

#include "engine/acoustic_chain.h"
#include "engine/acoustic_sections.h"
#include "engine/design_model.h"
#include "engine/network_elements.h"
#include "engine/piezo_section.h"
#include "engine/points_ahead.h"
#include "engine/sweep_formulas.h"
#include "platform/clock.h"
#include "platform/failure.h"
#include "platform/numbers.h"
#include "platform/vector_registers.h"

namespace halvorne {

using formulas::FiniteQuotient;

namespace {

void PreparePlates(const Chain& chain, const PlateMaterials& plates, int count) {
  constexpr double kNepersPerMetre = 11.51293;  // one dB/cm
  for (int k = 1; k <= count; ++k) {
    const AcousticMaterial& plate = plates(k);
    chain.Loss(k) = Finite(plate.Loss * chain.Thick(k) * kNepersPerMetre);
    chain.LossFreq(k) = plate.LossFreq * 1e6;
    chain.LossExp(k) = plate.LossExp;
    chain.Z(k) = Finite(plate.Density * plate.Velocity * design.ElementArea * chain.Area(k));
    chain.Delay(k) = FiniteQuotient(chain.Thick(k), plate.Velocity);
  }
}

void PrepareHalfLayer(const Chain& chain, int layer) {
  const PiezoMaterial& matl = design.PZMatl(layer);
  const double thick = design.PZThick(layer);
  // The whole thickness with pi/2: omega tan dm/(2 v) over half of it, per Hz.
  chain.Loss(0) = FiniteQuotient(thick * 1.570796326794895 * matl.TanDm, matl.Velocity);
  chain.LossFreq(0) = 1;
  chain.LossExp(0) = 1;
  chain.Z(0) = Finite(matl.Density * matl.Velocity * design.ElementArea);
  chain.Delay(0) = FiniteQuotient(thick * 0.5, matl.Velocity);
}

void UnitProduct() {
  AryIdent(sweep.MatRe);
  AryZero(sweep.MatIm);
}

void FoldLine(const Chain& chain, int k) {
  Tline(static_cast<std::int16_t>(chain.firstSlot + k), chain.Z(k), chain.Delay(k), chain.Loss(k),
        chain.LossFreq(k), chain.LossExp(k));
}

/// Running product of a whole chain, from index 0 outward.
void ChainProduct(const Chain& chain, int plates) {
  UnitProduct();
  for (int k = plates; k >= 0; --k) {
    FoldLine(chain, k);
  }
}

/// What ZinElec and ZinAcoust leave of a terminated product. One that fails leaves what the
/// termination before it had brought, and the sweep goes on with that.
using Terminated = formulas::Terminated<double>;

void TerminateElectrically(double area, double zRe, double zIm, Terminated& port) {
  ZinElec(Finite(area * zRe), Finite(area * zIm), port.p, port.nn, port.dd, port.n, port.d);
}

/// Reduces the rear side to its admittance at the rear layer's centre.
void RearBranch(const Chain& back, Terminated& port) {
  const std::int32_t point = sweep.FreqIndex;
  ChainProduct(back, design.NoBack);
  TerminateElectrically(design.BackLoadArea, design.ZBackRe(point), design.ZBackIm(point), port);
  sweep.YRearRe = FiniteQuotient(port.p.re, port.nn);
  sweep.YRearIm = FiniteQuotient(-port.p.im, port.nn);
}

/// Electrical port to the reference node, left in ElecRe, ElecIm.
void ElectroAcousticStack(const Chain& front, const Chain& back) {
  UnitProduct();
  if (design.NoPiezo == 2) {
    FoldLine(front, 0);
    FoldLine(back, 0);
  }
  RearPort();
  AcoustoElec();
}

void FoldNetwork() {
  for (int row = 1; row <= kNetworkRows && design.ElNet(row, 1) != 0; ++row) {
    ElementSection(row);
    AryMult();
  }
}

formulas::CurveValues<double&> CurvesAtPoint() {
  const std::int32_t point = sweep.FreqIndex;
  return {curves.ZinElecRe(point), curves.ZinElecIm(point),  curves.ZinAcRe(point),
          curves.ZinAcIm(point),   curves.TxEff(point),      curves.RxEff(point),
          curves.TxTFRe(point),    curves.TxTFIm(point),     curves.RxTFRe(point),
          curves.RxTFIm(point),    curves.TwoWayTFRe(point), curves.TwoWayTFIm(point)};
}

formulas::Terminations<double> Ends() {
  return {design.TermTx, design.TermRx, design.FrontLoadArea};
}

void ElectricalSide(Terminated& port) {
  const double loadRe = design.ZFrontRe(sweep.FreqIndex);
  const double loadIm = design.ZFrontIm(sweep.FreqIndex);
  TerminateElectrically(design.FrontLoadArea, loadRe, loadIm, port);
  auto at = CurvesAtPoint();
  formulas::ElectricalCurves(Ends(), loadRe, loadIm, port, at);
}

void AcousticSide(Terminated& port) {
  ZinAcoust(design.TermRx, port.p, port.nn, port.dd);
  auto at = CurvesAtPoint();
  formulas::AcousticCurves(Ends(), port, at);
}

}  // namespace

void PrelimCalc() try {
  CleanVectorRegisters();
  const Chain front = FrontChain();
  const Chain back = BackChain();
  PreparePlates(front, design.FaceMatl, design.NoFace);
  PreparePlates(back, design.BackMatl, design.NoBack);
  PrepareHalfLayer(front, design.NoPiezo == 1 ? 1 : 2);
  PrepareHalfLayer(back, 1);
} catch (...) {
  ReportFailure("PrelimCalc", "CALCS");
}

void MainCalc() try {
  CleanVectorRegisters();
  design.CalcDateTime = DateTimeText();
  design.FrontLoadArea = Finite(design.ElementArea * design.FrontArea(design.NoFace));
  design.BackLoadArea = Finite(design.ElementArea * design.BackArea(design.NoBack));
  const double step = FiniteQuotient(design.FreqStop - design.FreqStart, design.NoFreqPts);
  const Chain front = FrontChain();
  const Chain back = BackChain();
  PointsAhead ahead(step);
  Terminated electrical;
  Terminated acoustic;
  for (sweep.FreqIndex = 0; sweep.FreqIndex <= design.NoFreqPts; ++sweep.FreqIndex) {
    sweep.FreqIndex = ahead.Next(sweep.FreqIndex);
    sweep.Freq = Finite(sweep.FreqIndex * step + design.FreqStart);
    sweep.Omega = Finite(sweep.Freq * kTwoPi);
    RearBranch(back, electrical);
    ElectroAcousticStack(front, back);
    ChainProduct(front, design.NoFace);
    AryCopy(sweep.ElecRe, sweep.SecRe);
    AryCopy(sweep.ElecIm, sweep.SecIm);
    AryMult();
    FoldNetwork();
    ElectricalSide(electrical);
    AcousticSide(acoustic);
  }
} catch (...) {
  ReportFailure("MainCalc", "CALCS");
}

void ZinElec(double zRe, double zIm, Complex& p, double& nn, double& dd, Complex& n,
             Complex& d) try {
  formulas::TerminateSecondPort(sweep.MatRe, sweep.MatIm, zRe, zIm, n, d);
  CmplxUtil(n, d, p, nn, dd);
} catch (...) {
  ReportFailure("ZinElec", "CALCS");
}

void ZinAcoust(double r, Complex& p, double& nn, double& dd) try {
  Complex n;
  Complex d;
  formulas::TerminateFirstPort(sweep.MatRe, sweep.MatIm, r, n, d);
  CmplxUtil(n, d, p, nn, dd);
} catch (...) {
  ReportFailure("ZinAcoust", "CALCS");
}

}  // namespace halvorne
