#include "engine/frequency_sweep.h"

#include <cstdint>

#include "engine/acoustic_sections.h"
#include "engine/design_model.h"
#include "engine/network_elements.h"
#include "engine/piezo_section.h"
#include "engine/two_port_formulas.h"
#include "platform/clock.h"
#include "platform/failure.h"
#include "platform/numbers.h"
#include "platform/vector_registers.h"

namespace halvorne {

using formulas::FiniteQuotient;

namespace {

/// One side's chain: index 0 is half a piezoelectric layer, then the plates outward.
struct Chain {
  const ChainValues& Thick;
  const ChainValues& Area;
  ChainValues& Loss;
  ChainValues& Delay;
  ChainValues& LossFreq;
  Bounded<float, 0, 25>& LossExp;
  ChainValues& Z;
  int firstSlot;  ///< dispersion slot of index 0
};

Chain FrontChain() {
  return {design.FrontThick,    design.FrontArea,    design.FrontLoss, design.FrontDelay,
          design.FrontLossFreq, design.FrontLossExp, design.FrontZ,    0};
}

Chain BackChain() {
  return {design.BackThick,    design.BackArea,    design.BackLoss, design.BackDelay,
          design.BackLossFreq, design.BackLossExp, design.BackZ,    kBackSlot};
}

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
struct Terminated {
  Complex p, n, d;
  double nn = 0;
  double dd = 0;
};

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

void StoreTransferFunctions(const Terminated& port) {
  const std::int32_t point = sweep.FreqIndex;
  const double loadRe = design.ZFrontRe(point);  // without the area: pressure per volt
  const double loadIm = design.ZFrontIm(point);
  const Complex x{Finite(port.n.re + design.TermTx * port.d.re),
                  Finite(port.n.im + design.TermTx * port.d.im)};
  const double s = FiniteQuotient(1, x.im * x.im + x.re * x.re);
  curves.TxTFRe(point) = Finite((x.im * loadIm + x.re * loadRe) * s);
  curves.TxTFIm(point) = Finite((x.re * loadIm - x.im * loadRe) * s);

  const double received = Finite(design.TermRx * design.FrontLoadArea);
  const Complex y{Finite(port.n.re + design.TermRx * port.d.re),
                  Finite(port.n.im + design.TermRx * port.d.im)};
  curves.RxTFRe(point) = FiniteQuotient(received * y.re, y.im * y.im + y.re * y.re);
  curves.RxTFIm(point) = FiniteQuotient(-curves.RxTFRe(point) * y.im, y.re);

  const Complex w{Finite(y.re * x.re - y.im * x.im), Finite(y.im * x.re + y.re * x.im)};
  const double g = FiniteQuotient(received, w.im * w.im + w.re * w.re);
  curves.TwoWayTFRe(point) = Finite((w.re * loadRe + w.im * loadIm) * g);
  curves.TwoWayTFIm(point) = Finite((w.re * loadIm - w.im * loadRe) * g);
}

/// The curves seen from the electrical port, and the transfer functions.
void ElectricalSide(Terminated& port) {
  const std::int32_t point = sweep.FreqIndex;
  const double area = design.FrontLoadArea;
  TerminateElectrically(area, design.ZFrontRe(point), design.ZFrontIm(point), port);
  curves.ZinElecRe(point) = FiniteQuotient(port.p.re, port.dd);
  curves.ZinElecIm(point) = FiniteQuotient(port.p.im, port.dd);
  curves.TxEff(point) =
      port.p.re == 0 ? 0 : FiniteQuotient(area * design.ZFrontRe(point), port.p.re);
  StoreTransferFunctions(port);
}

/// The curves seen from the acoustic port, and the receive curve's unit.
void AcousticSide(Terminated& port) {
  const std::int32_t point = sweep.FreqIndex;
  ZinAcoust(design.TermRx, port.p, port.nn, port.dd);
  curves.ZinAcRe(point) = FiniteQuotient(port.p.re, design.FrontLoadArea * port.dd);
  curves.ZinAcIm(point) = FiniteQuotient(port.p.im, design.FrontLoadArea * port.dd);
  curves.RxEff(point) = port.p.re == 0 ? 0 : FiniteQuotient(design.TermRx, port.p.re);

  constexpr double kMicrovolts = 1e6;  // Kept: the two-way curve isn't scaled.
  curves.RxTFRe(point) = Finite(curves.RxTFRe(point) * kMicrovolts);
  curves.RxTFIm(point) = Finite(curves.RxTFIm(point) * kMicrovolts);
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
  Terminated electrical;
  Terminated acoustic;
  for (sweep.FreqIndex = 0; sweep.FreqIndex <= design.NoFreqPts; ++sweep.FreqIndex) {
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
  const Matrix& re = sweep.MatRe;
  const Matrix& im = sweep.MatIm;
  n.re = Finite(re(1, 1) * zRe - im(1, 1) * zIm + re(1, 2));
  n.im = Finite(re(1, 1) * zIm + im(1, 1) * zRe + im(1, 2));
  d.re = Finite(re(2, 1) * zRe - im(2, 1) * zIm + re(2, 2));
  d.im = Finite(re(2, 1) * zIm + im(2, 1) * zRe + im(2, 2));
  CmplxUtil(n, d, p, nn, dd);
} catch (...) {
  ReportFailure("ZinElec", "CALCS");
}

void ZinAcoust(double r, Complex& p, double& nn, double& dd) try {
  const Matrix& re = sweep.MatRe;
  const Matrix& im = sweep.MatIm;
  const Complex n{Finite(re(2, 2) * r + re(1, 2)), Finite(im(2, 2) * r + im(1, 2))};
  const Complex d{Finite(re(2, 1) * r + re(1, 1)), Finite(im(2, 1) * r + im(1, 1))};
  CmplxUtil(n, d, p, nn, dd);
} catch (...) {
  ReportFailure("ZinAcoust", "CALCS");
}

}  // namespace halvorne
