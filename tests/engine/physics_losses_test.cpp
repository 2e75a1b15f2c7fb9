#include "engine/piezo_section.h"
#include "physics_fixture.h"

// Losses as the program defines them.

namespace halvorne::testing {
namespace {

using PhysicsOfLosses = PhysicsTest;

const DesignKind kBareLossyLayer{.layers = 1, .network = false, .maxPlates = 0};

double HalfWave() {
  return design.PZMatl(1).Velocity / (2 * design.PZThick(1));
}

TEST_F(PhysicsOfLosses, AtTheSecondHarmonicOnlyTheElectricalLossIsLeft) {
  OnRandomDesigns(kBareLossyLayer, [](RandomDesigns&) {
    design.PZMatl(1).TanDm = 0;
    const double kt = design.PZMatl(1).Kt;
    const Value ze = SweptAt(2 * HalfWave()).ZinElec[0];
    const double expected = design.PZMatl(1).TanDe / (1 - kt * kt);
    EXPECT_NEAR(ze.real() / -ze.imag(), expected, 1e-9 * expected);
  });
}

TEST_F(PhysicsOfLosses, AtLowFrequencyTheLossResistanceSitsAcrossTheClampedCapacitanceAlone) {
  OnRandomDesigns(kBareLossyLayer, [](RandomDesigns&) {
    design.PZMatl(1).TanDm = 0;
    design.PZMatl(1).TanDe = 0.02;
    const double kt = design.PZMatl(1).Kt;
    const Value ze = SweptAt(1e-5 * HalfWave()).ZinElec[0];
    const double expected = 0.02 / ((1 - kt * kt) * (1 - kt * kt));
    EXPECT_NEAR(ze.real() / -ze.imag(), expected, 0.01 * expected);
  });
}

TEST_F(PhysicsOfLosses, AFreeHalfWaveLayerShowsItsMechanicalLoss) {
  OnRandomDesigns(kBareLossyLayer, [](RandomDesigns&) {
    PiezoMaterial& matl = design.PZMatl(1);
    matl.Kt = 1e-6;
    design.ZBackLoad = 0;
    const double expected = matl.Density * matl.Velocity * std::tanh(kWholeTurn / 4 * matl.TanDm);
    EXPECT_TRUE(
        Near(SweptAt(HalfWave()).ZinAc[0], expected, 1e-8, 1e-6 * matl.Velocity * matl.Density));
  });
}

TEST_F(PhysicsOfLosses, ALossyQuarterWavePlatePresentsItsCotangentForm) {
  // Seen through a half-wave layer of hardly any coupling, with the plate on the back.
  OnRandomDesigns(kBareLossyLayer, [](RandomDesigns& random) {
    design.PZMatl(1).Kt = 1e-6;
    design.PZMatl(1).TanDm = 0;
    const double fp = HalfWave();
    const double quality = random.Uniform(10, 100);
    AcousticMaterial& plate = design.BackMatl(1);
    plate.Velocity = 2150;
    plate.Density = 140;
    plate.LossFreq = 1;
    plate.LossExp = 0;
    design.NoBack = 1;
    design.BackThick(1) = 2150 / (4 * fp);
    design.BackArea(1) = 1;
    plate.Loss = static_cast<float>(kWholeTurn / 8 / quality / (design.BackThick(1) * 11.51293));
    const double a = plate.Loss * design.BackThick(1) * 11.51293;
    const double zm = 2150 * 140;
    const double light = design.ZBackLoad = 415;
    const double expected = zm * (light + zm / std::tanh(a)) / (zm + light / std::tanh(a));
    EXPECT_TRUE(Near(SweptAt(fp).ZinAc[0], expected, 1e-9));
    const double byQuality = zm * 4 * quality / (kWholeTurn / 2);
    EXPECT_NEAR(expected / byQuality, 1, 0.3) << "far below the lossless zm^2/415";
  });
}

TEST_F(PhysicsOfLosses, LossInABareLayerNeverRaisesTheEfficiency) {
  OnRandomDesigns(kBareLossyLayer, [](RandomDesigns&) {
    const double lossless = design.ZFrontLoad / (design.ZFrontLoad + design.ZBackLoad);
    EXPECT_LE(SweptAt(HalfWave()).TxEff[0], lossless * (1 + 1e-9));
  });
}

TEST_F(PhysicsOfLosses, MechanicalLossStandsInTheHalfLinesOnly) {
  // Kept: it changes neither the reactance nor the transformer of the piezoelectric section.
  OnRandomDesigns(kBareLossyLayer, [](RandomDesigns&) {
    const auto entry = [](double tanDm, int row, int column) {
      design.PZMatl(1).TanDm = tanDm;
      PiezoConstants();
      sweep.Freq = 0.7 * HalfWave();
      sweep.Omega = kWholeTurn * sweep.Freq;
      TPiezo(1, sweep.SecRe, sweep.SecIm);
      return Entry(sweep.SecRe, sweep.SecIm, row, column);
    };
    EXPECT_EQ(entry(0, 1, 1), entry(0.3, 1, 1));
    EXPECT_EQ(entry(0, 1, 2), entry(0.3, 1, 2));
  });
}

}  // namespace
}  // namespace halvorne::testing
