#include "plot/gather.h"

#include "engine/two_port.h"
#include "platform/failure.h"
#include "platform/number_text.h"
#include "platform/vector_registers.h"
#include "plot/conversions.h"
#include "plot/plot_state.h"
#include "timedomain/responses.h"

namespace halvorne {
namespace {

constexpr int kTransmitPower = 15;
constexpr int kReceivePower = 25;

/// factor x (re, im) into RawData.
void GatherCurve(const FreqCurve& re, const FreqCurve& im, double factor = 1) {
  for (std::int32_t i = 0; i <= design.NoFreqPts; ++i) {
    points.RawData(i).Y1 = Finite(factor * re(i));
    points.RawData(i).Y2 = Finite(factor * im(i));
  }
}

void GatherReal(const FreqCurve& re) {
  for (std::int32_t i = 0; i <= design.NoFreqPts; ++i) {
    points.RawData(i) = {re(i), 0};
  }
}

void GatherDispersion(int slot) {
  for (std::int32_t i = 0; i <= design.NoFreqPts; ++i) {
    points.RawData(i) = {design.VelDisp(slot, i), 0};
  }
}

/// x / y into a point of RawData.
void GatherQuotient(std::int32_t point, const Complex& x, const Complex& y) {
  Complex product;
  double xx = 0;
  double yy = 0;
  CmplxUtil(x, y, product, xx, yy);
  points.RawData(point).Y1 = Finite(Quotient(product.re, yy));
  points.RawData(point).Y2 = Finite(Quotient(product.im, yy));
}

void GatherVoltageReflection() {
  for (std::int32_t i = 0; i <= design.NoFreqPts; ++i) {
    const double re = curves.ZinElecRe(i);
    const double im = curves.ZinElecIm(i);
    GatherQuotient(i, {re - design.TermTx, im}, {re + design.TermTx, im});
  }
}

void GatherPressureReflection() {
  for (std::int32_t i = 0; i <= design.NoFreqPts; ++i) {
    const Complex in{curves.ZinAcRe(i), curves.ZinAcIm(i)};
    const Complex load{design.ZFrontRe(i), design.ZFrontIm(i)};
    GatherQuotient(i, {in.re - load.re, in.im - load.im}, {in.re + load.re, in.im + load.im});
  }
}

void GatherValues(int plotNumber) {
  switch (plotNumber) {
    case 11:
      return GatherCurve(curves.ZinElecRe, curves.ZinElecIm);
    case 12:
      return GatherVoltageReflection();
    case 13:
      return GatherReal(curves.TxEff);
    case 14:
    case kTransmitPower:
    case 16:
    case 17:
      return GatherCurve(curves.TxTFRe, curves.TxTFIm);
    case 21:
      return GatherCurve(curves.ZinAcRe, curves.ZinAcIm);
    case 22:
      return GatherPressureReflection();
    case 23:
      return GatherReal(curves.RxEff);
    case kReceivePower:
      // Kept: the receive curve is not doubled here, unlike in plots 24, 26 and 27.
      return GatherCurve(curves.RxTFRe, curves.RxTFIm);
    case 24:
    case 26:
    case 27:
      return GatherCurve(curves.RxTFRe, curves.RxTFIm, 2);
    case 31:
    case 32:
    case 33:
    case 34:
      return GatherCurve(curves.TwoWayTFRe, curves.TwoWayTFIm);
    case 41:
      return GatherCurve(design.ZFrontRe, design.ZFrontIm);
    case 42:
      return GatherCurve(design.ZBackRe, design.ZBackIm);
    case 51:
      return GatherDispersion(setup.DispFaceLayer);
    case 52:
      return GatherDispersion(0);
    case 53:
      return GatherDispersion(setup.DispBackLayer);
    default:
      return;
  }
}

/// What the squared magnitude of a power plot is multiplied by, without the load's part. Other
/// plots have none, 0.
double PowerFactor(int plotNumber) {
  switch (plotNumber) {
    case kTransmitPower:
      return Finite(design.ElementArea * design.FrontArea(design.NoFace) * 4.0 * design.TermTx);
    case kReceivePower:
      return Finite(
          Quotient(4e-12, design.TermRx * design.ElementArea * design.FrontArea(design.NoFace)));
    default:
      return 0;
  }
}

/// Conductance of the front load for transmit, its resistance for receive.
double LoadWeight(int plotNumber, std::int32_t point, double factor) {
  const double re = design.ZFrontRe(point);
  if (plotNumber == kReceivePower) {
    return factor * re;
  }
  const double im = design.ZFrontIm(point);
  const double magnitude = Finite(re * re + im * im);
  return factor * re / (magnitude < 1e-50 ? 1e-50 : magnitude);
}

void PowerStep(int plotNumber, double factor) {
  for (std::int32_t i = 0; i <= design.NoFreqPts; ++i) {
    PlotPoint& point = points.RawData(i);
    const double square = point.Y1 * point.Y1 + point.Y2 * point.Y2;
    point.Y1 = Finite(square * LoadWeight(plotNumber, i, factor));
    point.Y2 = 0;
  }
}

void LossStep() {
  for (std::int32_t i = 0; i <= design.NoFreqPts; ++i) {
    double& magnitude = points.RawData(i).Y1;
    magnitude = 0.25 / (magnitude < 1e-100 ? 1e-100 : magnitude);
  }
}

void Polar() {
  PolarConvert(design.NoFreqPts, points.RawData, points.RawData, 0);
}

}  // namespace

bool Gather(const CataloguePlot& row) {
  CleanVectorRegisters();
  const double powerFactor = PowerFactor(row.number);
  GatherValues(row.number);
  if (row.decibelFactor != 0) {
    AttenCalc(row.decibelFactor, row.passes);
  }
  switch (row.steps) {
    case PlotSteps::kNoSteps:
      break;
    case PlotSteps::kPolar:
      Polar();
      break;
    case PlotSteps::kPolarPhase:
      Polar();
      PhaseDelay();
      break;
    case PlotSteps::kPolarPhaseLoss:
      Polar();
      PhaseDelay();
      LossStep();
      break;
    case PlotSteps::kPower:
      PowerStep(row.number, powerFactor);
      break;
    case PlotSteps::kImpulse:
    case PlotSteps::kExcitation:
      Waveform();
      if (wave.WaveformInvalid) {
        return false;
      }
      if (row.steps == PlotSteps::kExcitation) {
        Convolve();
      }
      break;
  }
  if (!row.dualTrace) {
    plot.DualTrace = false;
  }
  return true;
}

std::string TitleOf(const CataloguePlot& row) {
  std::string title(row.title);
  if (row.forms == FormList::kFaceLayers) {
    title += SpacedNumberText(setup.DispFaceLayer);
  } else if (row.forms == FormList::kBackLayers) {
    title += SpacedNumberText(setup.DispBackLayer - kBackSlot);
  }
  return title;
}

}  // namespace halvorne
