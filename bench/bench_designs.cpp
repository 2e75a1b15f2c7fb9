#include "bench_designs.h"

#include <array>
#include <cstdint>
#include <string>

#include "engine/acoustic_sections.h"
#include "engine/design_model.h"
#include "engine/frequency_sweep.h"
#include "engine/piezo_section.h"
#include "persistence/setup_state.h"
#include "platform/numbers.h"
#include "timedomain/sample_rate.h"
#include "timedomain/view.h"

namespace halvorne::bench {
namespace {

struct Size {
  std::int32_t intervals;
  std::int32_t samples;
  std::int16_t layers;
  std::int16_t facePlates;
  std::int16_t backPlates;
  int networkRows;
  bool dispersive;
};

void AddLayers(std::int16_t layers) {
  design.NoPiezo = layers;
  design.PZConnect = static_cast<std::int16_t>(layers - 1);
  design.PZConnectName = layers == 1 ? "None" : "Series";
  for (int layer = 1; layer <= layers; ++layer) {
    PiezoMaterial& matl = design.PZMatl(layer);
    matl.Name = "Ceramic";
    matl.Velocity = 4350 + 10 * layer;
    matl.ShearVelocity = 2200;
    matl.Density = 7500;
    matl.Ks = 830;
    matl.Kt = 0.5;
    matl.TanDe = 0.02;
    matl.TanDm = 0.01;
    design.PZThick(layer) = 0.43e-3;
    design.PZPolarity(layer) = 1;
  }
}

void AddPlates(std::int16_t count, PlateMaterials& plates, ChainValues& thick, ChainValues& area) {
  for (int k = 1; k <= count; ++k) {
    AcousticMaterial& plate = plates(k);
    plate.Name = "Plate " + std::to_string(k);
    plate.Velocity = 2500 + 37 * k;
    plate.ShearVelocity = 1200;
    plate.Density = 1200 + 11 * k;
    plate.Loss = 2.5F + 0.1F * static_cast<float>(k);
    plate.LossFreq = 5;
    plate.LossExp = 1.1F;
    thick(k) = 0.1e-3 + 1.3e-6 * k;
    area(k) = 1;
  }
}

/// Every kind of element once, and the first ones again behind them.
void AddNetwork(int rows) {
  constexpr int kKinds = 17;
  // Resistors and cables near 50 ohms, inductors and capacitors that leave the band open.
  constexpr std::array<std::array<double, 4>, kKinds> kValues = {{
      {5, 0, 0, 0},
      {2000, 0, 0, 0},
      {1e-7, 0, 0, 0},
      {5e-5, 0, 0, 0},
      {1e-8, 0, 0, 0},
      {1e-11, 0, 0, 0},
      {50, 1.5, 40, 5},
      {2, 1, 0, 0},
      {1e-8, 1e4, 1e-4, 1e-12},
      {2000, 1e-6, 1e-11, 0},
      {5, 1e-7, 1e-11, 0},
      {2000, 1e-7, 1e-9, 0},
      {5, 1e-6, 1e-9, 1e-12},
      {2000, 1e-5, 1e-11, 0},
      {2000, 1e-5, 1e-11, 0},
      {2000, 1e-5, 1e-11, 0},
      {1, 2, 0, 0},
  }};
  for (int row = 1; row <= rows; ++row) {
    const int kind = (row - 1) % kKinds;
    design.ElNet(row, 1) = kind + 1;
    for (int value = 0; value < 4; ++value) {
      design.ElNet(row, 2 + value) = kValues[kind][value];
    }
  }
}

void AddDispersion(bool dispersive) {
  for (int slot = 0; slot < kDispersionSlots; ++slot) {
    for (int point = 0; point <= kLastFreqPoint; ++point) {
      design.VelDisp(slot, point) = dispersive ? 1 + 1e-7 * point * (slot + 1) / 3 : 1;
    }
    design.VelDispNames(slot, 0) = "blank";
    design.VelDispNames(slot, 1) = "blank";
  }
}

void AddExcitation() {
  design.ExciteType = 1;
  design.ExciteWave = 1;
  design.ExciteFreq = 5e6F;
  design.ExciteCycles = 3;
  design.ExcitePoints = 1024;
  design.ExciteLength = 1024;
}

void Make(const Size& size) {
  Reset(design);
  Reset(view);
  AddLayers(size.layers);
  design.NoFace = size.facePlates;
  design.NoBack = size.backPlates;
  AddPlates(size.facePlates, design.FaceMatl, design.FrontThick, design.FrontArea);
  AddPlates(size.backPlates, design.BackMatl, design.BackThick, design.BackArea);
  AddNetwork(size.networkRows);
  AddDispersion(size.dispersive);
  AddExcitation();
  design.ElementArea = 1e-4;
  design.ElementSizeText = "10 x 10 mm";
  design.FreqStart = 1e6;
  design.FreqStop = 9e6;
  design.NoFreqPts = size.intervals;
  design.NoTimePts = size.samples;
  design.DesignFreq = 5e6;
  design.FreqScale = 1e6F;
  design.FreqUnit = "MHz";
  design.TermTx = 50;
  design.TermRx = 50;
  design.ZFrontLoad = 1.5e6;
  design.ZBackLoad = 3e6;
  design.CalcDateTime = "no date";
  view.CurrentPlot = 17;
  view.AmplAuto = view.FreqAuto = view.TimeAuto = true;
  view.TimeWindowPercent = 50;
  StartSession();
  CmplxLoad();
  SampleRate();
  PiezoConstants();
  PiezoLayers();
  PrelimCalc();
}

}  // namespace

void MakeLargestDesign() {
  Make({16000, 65536, 2, 10, 10, kNetworkRows, true});
}

void MakeTypicalDesign() {
  Make({400, 2048, 1, 2, 0, 2, false});
}

}  // namespace halvorne::bench
