#include "random_designs.h"

#include <cmath>
#include <initializer_list>

#include "engine/design_model.h"
#include "engine_fixture.h"
#include "platform/numbers.h"

namespace halvorne::testing {

namespace {

constexpr double kWholeTurn = 6.283185307179586;

double HalfWaveFrequency() {
  double delay = 0;
  for (int layer = 1; layer <= design.NoPiezo; ++layer) {
    delay += design.PZThick(layer) / design.PZMatl(layer).Velocity;
  }
  return 0.5 / delay;
}

}  // namespace

double RandomDesigns::Uniform(double low, double high) {
  return low + (high - low) * (static_cast<double>(engine_()) / 4294967296.0);
}

int RandomDesigns::Pick(int low, int high) {
  return low + static_cast<int>(engine_() % static_cast<unsigned>(high - low + 1));
}

void RandomDesigns::Make(const DesignKind& kind) {
  Reset(design);
  design.NoPiezo = static_cast<std::int16_t>(kind.layers != 0 ? kind.layers : Pick(1, 2));
  design.PZConnect = static_cast<std::int16_t>(design.NoPiezo == 1 ? 0 : Pick(1, 2));
  for (int layer = 1; layer <= design.NoPiezo; ++layer) {
    Layer(layer, kind.losses);
  }
  design.ElementArea = std::pow(10.0, Uniform(-6, -3.5));
  Plates(kind);
  design.TermTx = std::pow(10.0, Uniform(0.5, 3));
  design.TermRx = std::pow(10.0, Uniform(0.5, 3));

  const double centre = HalfWaveFrequency();
  design.FreqStart = 0.35 * centre;
  design.FreqStop = 1.65 * centre;
  design.NoFreqPts = 8;
  Loads(kind.complexLoads);
  NeutralDispersion();
  if (kind.dispersion) {
    for (int slot = 0; slot < kDispersionSlots; ++slot) {
      for (int point = 0; point <= design.NoFreqPts; ++point) {
        design.VelDisp(slot, point) = Uniform(0.8, 1.25);
      }
    }
  }
  if (kind.network) {
    Network();
  }
}

void RandomDesigns::Layer(int layer, bool losses) {
  PiezoMaterial& matl = design.PZMatl(layer);
  matl.Velocity = Uniform(2000, 7000);
  matl.Density = Uniform(1800, 8000);
  matl.Ks = Uniform(5, 1500);
  matl.Kt = Uniform(0.1, 0.7);
  matl.TanDe = losses ? Uniform(0.001, 0.1) : 1e-9;
  matl.TanDm = losses ? Uniform(0, 0.05) : 0;
  design.PZThick(layer) = Uniform(1e-4, 1e-3);
  design.PZPolarity(layer) = static_cast<std::int16_t>(Chance() ? 1 : -1);
}

void RandomDesigns::Plates(const DesignKind& kind) {
  design.NoFace = static_cast<std::int16_t>(Pick(0, kind.maxPlates));
  design.NoBack = static_cast<std::int16_t>(Pick(0, kind.maxPlates));
  // The halves' area is 1 before PiezoLayers says so, for those who only read the design.
  design.FrontArea(0) = design.BackArea(0) = 1;
  for (int k = 1; k <= kMaxPlates; ++k) {
    for (AcousticMaterial* plate : {&design.FaceMatl(k), &design.BackMatl(k)}) {
      plate->Velocity = Uniform(1000, 6500);
      plate->Density = Uniform(800, 8000);
      plate->Loss = kind.losses ? static_cast<float>(Uniform(0, 20)) : 0.0F;
      plate->LossFreq = static_cast<float>(Uniform(1, 6));
      plate->LossExp = static_cast<float>(Uniform(0, 2));
    }
    design.FrontThick(k) = Uniform(5e-5, 6e-4);
    design.BackThick(k) = Uniform(5e-5, 6e-4);
    design.FrontArea(k) = kind.areas ? Uniform(0.5, 2) : 1;
    design.BackArea(k) = kind.areas ? Uniform(0.5, 2) : 1;
  }
}

void RandomDesigns::Loads(bool complex) {
  design.ZFrontLoad = std::pow(10.0, Uniform(5.5, 7.5));
  design.ZBackLoad = std::pow(10.0, Uniform(5.5, 7.5));
  design.ZFrontComplex = design.ZBackComplex = complex;
  for (int point = 0; point <= design.NoFreqPts; ++point) {
    design.ZFrontNormRe(point) = Uniform(0.5, 1.5);
    design.ZFrontNormIm(point) = Uniform(-0.8, 0.8);
    design.ZBackNormRe(point) = Uniform(0.5, 1.5);
    design.ZBackNormIm(point) = Uniform(-0.8, 0.8);
  }
}

void RandomDesigns::Network() {
  const double omega = kWholeTurn * HalfWaveFrequency();
  const int rows = Pick(0, 4);
  for (int row = 1; row <= rows; ++row) {
    NetworkRow(row, Pick(1, 17), omega);
  }
}

/// Values whose reactances lie around 50 ohms at `omega`.
void RandomDesigns::NetworkRow(int row, int code, double omega) {
  const auto set = [row](std::initializer_list<double> values) {
    int column = 1;
    for (const double value : values) {
      design.ElNet(row, column++) = value;
    }
  };
  const auto resistor = [this] { return Uniform(10, 300); };
  const auto inductor = [this, omega] { return Uniform(10, 300) / omega; };
  const auto capacitor = [this, omega] { return 1 / (Uniform(10, 300) * omega); };
  switch (code) {
    case 1:
    case 2:
      return set({1.0 * code, resistor()});
    case 3:
    case 4:
      return set({1.0 * code, inductor()});
    case 5:
    case 6:
      return set({1.0 * code, capacitor()});
    case 7:
      return set({7, Uniform(30, 120), Uniform(0.1, 5), Uniform(0, 50), Uniform(1, 10)});
    case 8:
      return set({8, Uniform(1, 5), Uniform(1, 5)});
    case 9:
      return set({9, inductor(), resistor(), inductor(), capacitor()});
    case 17:
      return set({17, 1, 1.0 * Pick(1, 4)});
    default:
      return set({1.0 * code, resistor(), inductor(), capacitor(), capacitor()});
  }
}

}  // namespace halvorne::testing
