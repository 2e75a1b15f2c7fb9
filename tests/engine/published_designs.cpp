#include "published_designs.h"

#include "engine/design_model.h"
#include "engine_fixture.h"
#include "platform/numbers.h"

namespace halvorne::testing {

namespace {

struct Ceramic {
  double velocity, density, ks, kt, tanDe, tanDm, thick;
};

struct FacePlate {
  double velocity, density;
  float loss, lossFreq;
  double thick;
};

struct Archetype {
  std::string name;
  Ceramic ceramic;
  bool parallelPair;  ///< two such layers in parallel
  double area;
  std::vector<FacePlate> plates;
  double frontLoad, backLoad, termTx, termRx;
  double shuntInductor;  ///< 0 when there is none
  double start, stop;
  int intervals;
};

const std::vector<Archetype>& Archetypes() {
  static const std::vector<Archetype> all{
      {"imaging_5mhz_two_layer",
       {4575, 7500, 1470, 0.505, 0.02, 0.0154, 0.0004575},
       false,
       2.8274333882308137e-05,
       {{2700, 3303.75, 0, 1, 0.000135}, {2500, 927.57, 0, 1, 0.000125}},
       1.48e6,
       3e6,
       50,
       50,
       1.26e-6,
       0.5e6,
       10e6,
       950},
      {"ndt_2p25mhz_heavy_backing",
       {4355, 7750, 830, 0.486, 0.02, 0.0133, 0.000967778},
       false,
       0.00012667686977437442,
       {{9850, 3660, 0, 1, 0.00025}},
       45.4e6,
       20e6,
       50,
       50,
       0,
       0.2e6,
       6e6,
       580},
      {"pvdf_membrane_hydrophone_25um",
       {2260, 1780, 6.2, 0.2, 0.25, 0.1, 2.5e-5},
       false,
       7.853981633974482e-07,
       {},
       1.48e6,
       1.48e6,
       50,
       1e6,
       0,
       0.5e6,
       80e6,
       795},
      {"air_coupled_200khz",
       {3693, 7750, 816, 0.721, 0.02, 0.00833, 0.00745},
       false,
       6.4e-05,
       {{2150, 140, 0.25384F, 0.2F, 0.003}},
       415,
       415,
       1000,
       1000,
       0,
       100e3,
       300e3,
       2000},
      {"stack_two_layer_parallel",
       {4575, 7500, 1470, 0.505, 0.02, 0.0154, 0.000326786},
       true,
       3.25e-06,
       {{2650, 1606.81, 0, 1, 0.000189286}},
       1.5e6,
       3e6,
       50,
       50,
       0,
       0.5e6,
       7e6,
       650},
  };
  return all;
}

void SetCeramic(int layer, const Ceramic& ceramic) {
  PiezoMaterial& matl = design.PZMatl(layer);
  matl.Velocity = ceramic.velocity;
  matl.Density = ceramic.density;
  matl.Ks = ceramic.ks;
  matl.Kt = ceramic.kt;
  matl.TanDe = ceramic.tanDe;
  matl.TanDm = ceramic.tanDm;
  design.PZThick(layer) = ceramic.thick;
  design.PZPolarity(layer) = 1;
}

void SetPlates(const std::vector<FacePlate>& plates) {
  for (const FacePlate& plate : plates) {
    const int k = ++design.NoFace;
    design.FaceMatl(k).Velocity = plate.velocity;
    design.FaceMatl(k).Density = plate.density;
    design.FaceMatl(k).Loss = plate.loss;
    design.FaceMatl(k).LossFreq = plate.lossFreq;
    design.FaceMatl(k).LossExp = 1;
    design.FrontThick(k) = plate.thick;
    design.FrontArea(k) = 1;
  }
}

}  // namespace

const std::vector<std::string>& PublishedDesignNames() {
  static const std::vector<std::string> names = [] {
    std::vector<std::string> all;
    for (const Archetype& archetype : Archetypes()) {
      all.push_back(archetype.name);
    }
    return all;
  }();
  return names;
}

void MakePublishedDesign(const std::string& name) {
  Reset(design);
  for (const Archetype& archetype : Archetypes()) {
    if (archetype.name != name) {
      continue;
    }
    design.NoPiezo = archetype.parallelPair ? 2 : 1;
    design.PZConnect = archetype.parallelPair ? 2 : 0;
    for (int layer = 1; layer <= design.NoPiezo; ++layer) {
      SetCeramic(layer, archetype.ceramic);
    }
    design.ElementArea = archetype.area;
    SetPlates(archetype.plates);
    design.ZFrontLoad = archetype.frontLoad;
    design.ZBackLoad = archetype.backLoad;
    design.TermTx = archetype.termTx;
    design.TermRx = archetype.termRx;
    if (archetype.shuntInductor != 0) {
      design.ElNet(1, 1) = 4;
      design.ElNet(1, 2) = archetype.shuntInductor;
    }
    design.FreqStart = archetype.start;
    design.FreqStop = archetype.stop;
    design.NoFreqPts = archetype.intervals;
    NeutralDispersion();
  }
}

void MakeLossless() {
  for (PiezoMaterial& matl : design.PZMatl) {
    matl.TanDe = 1e-9;
    matl.TanDm = 0;
  }
  for (AcousticMaterial& plate : design.FaceMatl) {
    plate.Loss = 0;
  }
}

}  // namespace halvorne::testing
