#include <initializer_list>

#include "physics_fixture.h"

// How every design answers to a change of sign, size, network or plates.

namespace halvorne::testing {
namespace {

using PhysicsOfScaling = PhysicsTest;

/// Puts `row` in front of the source, behind the last row in use.
void AppendRow(std::initializer_list<double> values) {
  int row = 1;
  while (design.ElNet(row, 1) != 0) {
    ++row;
  }
  int column = 1;
  for (const double value : values) {
    design.ElNet(row, column++) = value;
  }
}

/// Appends a plate to a side; relative area of the plate before it.
void AppendPlate(bool front, const AcousticMaterial& plate, double thick) {
  std::int16_t& count = front ? design.NoFace : design.NoBack;
  const double area = front ? design.FrontArea(count) : design.BackArea(count);
  ++count;
  (front ? design.FaceMatl : design.BackMatl)(count) = plate;
  (front ? design.FrontThick : design.BackThick)(count) = thick;
  (front ? design.FrontArea : design.BackArea)(count) = area;
}

TEST_F(PhysicsOfScaling, ReversedPolarityFlipsTheOneWayTransfersOnly) {
  OnRandomDesigns({}, [](RandomDesigns&) {
    const SweptCurves before = Swept();
    design.PZPolarity(1) = static_cast<std::int16_t>(-design.PZPolarity(1));
    design.PZPolarity(2) = static_cast<std::int16_t>(-design.PZPolarity(2));
    SweptCurves after = Swept();
    after.TxTF = Scaled(after.TxTF, -1);
    after.RxTF = Scaled(after.RxTF, -1);
    ExpectSameCurves(after, before, 1e-9);
  });
}

TEST_F(PhysicsOfScaling, AreaScalesTheElectricalImpedanceOnly) {
  OnRandomDesigns({.network = false}, [](RandomDesigns& random) {
    const SweptCurves before = Swept();
    const double scale = random.Uniform(0.2, 5);
    design.ElementArea *= scale;
    design.TermTx /= scale;
    design.TermRx /= scale;
    SweptCurves after = Swept();
    after.ZinElec = Scaled(after.ZinElec, scale);
    ExpectSameCurves(after, before, 1e-9);
  });
}

TEST_F(PhysicsOfScaling, GeometryAndFrequencyScaleTogether) {
  OnRandomDesigns({.network = false}, [](RandomDesigns&) {
    const SweptCurves before = Swept();
    const double scale = 4;  // a power of two keeps the 32-bit fields of the plates exact
    for (int k = 1; k <= kMaxPlates; ++k) {
      design.FrontThick(k) *= scale;
      design.BackThick(k) *= scale;
      for (AcousticMaterial* plate : {&design.FaceMatl(k), &design.BackMatl(k)}) {
        plate->Loss /= static_cast<float>(scale);
        plate->LossFreq /= static_cast<float>(scale);
      }
    }
    design.PZThick(1) *= scale;
    design.PZThick(2) *= scale;
    design.ElementArea *= scale * scale;
    design.FreqStart /= scale;
    design.FreqStop /= scale;
    SweptCurves after = Swept();
    after.TxTF = Scaled(after.TxTF, scale);
    after.RxTF = Scaled(after.RxTF, 1 / scale);
    ExpectSameCurves(after, before, 1e-9);
  });
}

TEST_F(PhysicsOfScaling, ALosslessNetworkTakesNoPower) {
  OnRandomDesigns({.network = false}, [](RandomDesigns& random) {
    const std::vector<double> before = Swept().TxEff;
    const double omega = kWholeTurn * FreqOf(4);
    AppendRow({3, random.Uniform(5, 100) / omega});
    AppendRow({6, 1 / (random.Uniform(20, 300) * omega)});
    AppendRow({7, 50, random.Uniform(0.1, 3), 0, 1});
    AppendRow({8, 1, random.Uniform(0.5, 3)});
    AppendRow({4, random.Uniform(50, 500) / omega});
    AppendRow({5, 1 / (random.Uniform(5, 100) * omega)});
    AppendRow({17, 1, 3});
    EXPECT_TRUE(CurvesNear(Swept().TxEff, before, 1e-5));
  });
}

TEST_F(PhysicsOfScaling, TransformersScaleTheImpedanceByTheSquareOfTheirRatio) {
  OnRandomDesigns({.network = false}, [](RandomDesigns&) {
    const std::vector<Value> bare = Swept().ZinElec;
    AppendRow({8, 3, 2});
    EXPECT_TRUE(CurvesNear(Swept().ZinElec, Scaled(bare, 2.25), 1e-9));
    design.ElNet(1, 1) = 17;
    design.ElNet(1, 2) = 1;
    design.ElNet(1, 3) = 4;
    EXPECT_TRUE(CurvesNear(Swept().ZinElec, Scaled(bare, 1.0 / 16), 1e-9));
  });
}

TEST_F(PhysicsOfScaling, AQuarterWaveCableInvertsAndAHalfWaveCableVanishes) {
  OnRandomDesigns({}, [](RandomDesigns&) {
    const double freq = FreqOf(3);
    const Value bare = Swept().ZinElec[3];
    AppendRow({7, 60, 2.1e8 / (4 * freq), 0, 1});
    EXPECT_TRUE(Near(Swept().ZinElec[3] * bare, 3600, 1e-9));
    int row = 1;
    while (design.ElNet(row + 1, 1) != 0) {
      ++row;
    }
    design.ElNet(row, 3) *= 2;
    EXPECT_TRUE(Near(Swept().ZinElec[3], bare, 1e-9));
  });
}

TEST_F(PhysicsOfScaling, ADividedPlateIsTheSamePlate) {
  OnRandomDesigns({.maxPlates = 1}, [](RandomDesigns& random) {
    const SweptCurves before = Swept();
    for (const bool front : {true, false}) {
      const std::int16_t count = front ? design.NoFace : design.NoBack;
      if (count == 1) {
        double& thick = (front ? design.FrontThick : design.BackThick)(1);
        const double cut = thick * random.Uniform(0.1, 0.9);
        thick -= cut;
        AppendPlate(front, (front ? design.FaceMatl : design.BackMatl)(1), cut);
      }
    }
    ExpectSameCurves(Swept(), before, 1e-9);
  });
}

TEST_F(PhysicsOfScaling, AMatchedBackPlateChangesNothing) {
  OnRandomDesigns({}, [](RandomDesigns& random) {
    const SweptCurves before = Swept();
    AcousticMaterial plate;
    plate.Velocity = 2400;
    plate.Density = design.ZBackLoad / 2400;
    plate.Loss = 7;
    plate.LossFreq = 2;
    plate.LossExp = 1.3F;
    AppendPlate(false, plate, random.Uniform(1e-4, 2e-3));
    ExpectSameCurves(Swept(), before, 1e-9);
  });
}

TEST_F(PhysicsOfScaling, AMatchedLossyFacePlateDelaysAndAttenuates) {
  OnRandomDesigns({}, [](RandomDesigns& random) {
    const SweptCurves before = Swept();
    AcousticMaterial plate;
    plate.Velocity = 2400;
    plate.Density = design.ZFrontLoad / 2400;
    plate.Loss = 5;
    plate.LossFreq = 2;
    plate.LossExp = 1.5F;
    const double thick = random.Uniform(1e-4, 1e-3);
    AppendPlate(true, plate, thick);
    const SweptCurves after = Swept();
    EXPECT_TRUE(CurvesNear(after.ZinElec, before.ZinElec, 1e-9));
    for (int i = 0; i <= design.NoFreqPts; ++i) {
      const double freq = FreqOf(i);
      const double decibels = 5 * thick * 100 * std::pow(freq / 2e6, 1.5);
      const double tolerance = 1e-9 + 5e-7 * decibels / 8;
      const Value pass =
          std::pow(10, -decibels / 20) * std::exp(-kImaginary * kWholeTurn * freq * thick / 2400.0);
      EXPECT_TRUE(Near(after.TxTF[i], before.TxTF[i] * pass, tolerance));
      EXPECT_TRUE(Near(after.RxTF[i], before.RxTF[i] * pass, tolerance));
      EXPECT_TRUE(Near(after.TxEff[i], before.TxEff[i] * std::norm(pass), 2 * tolerance));
    }
  });
}

TEST_F(PhysicsOfScaling, ALosslessHalfWaveFacePlateIsTransparent) {
  OnRandomDesigns({}, [](RandomDesigns&) {
    const SweptCurves before = Swept();
    AcousticMaterial plate;
    plate.Velocity = 2400;
    plate.Density = 3000;
    plate.LossFreq = 1;
    AppendPlate(true, plate, 2400 / (2 * FreqOf(3)));
    const SweptCurves after = Swept();
    EXPECT_TRUE(Near(after.ZinElec[3], before.ZinElec[3], 1e-9));
    EXPECT_TRUE(Near(after.ZinAc[3], before.ZinAc[3], 1e-9));
    EXPECT_TRUE(Near(std::abs(after.TxTF[3]), std::abs(before.TxTF[3]), 1e-9));
    EXPECT_TRUE(Near(std::abs(after.RxTF[3]), std::abs(before.RxTF[3]), 1e-9));
    EXPECT_TRUE(Near(after.TxEff[3], before.TxEff[3], 1e-9));
    EXPECT_TRUE(Near(after.RxEff[3], before.RxEff[3], 1e-9));
  });
}

TEST_F(PhysicsOfScaling, RelativeAreaOfTheOnlyFacePlateActsWithItsSquareRatios) {
  const DesignKind bareLayer{.layers = 1, .losses = false, .network = false, .maxPlates = 0};
  OnRandomDesigns(bareLayer, [](RandomDesigns& random) {
    const double area = random.Uniform(0.3, 3);
    const double fp = design.PZMatl(1).Velocity / (2 * design.PZThick(1));
    AcousticMaterial plate;
    plate.Velocity = 2500;
    plate.Density = 1500;
    plate.LossFreq = 1;
    const double zf = design.ZFrontLoad;
    const double zm = 2500 * 1500;
    // At its half wave the plate presents r Zf, at its quarter wave r Zm^2/Zf.
    AppendPlate(true, plate, 2500 / (2 * fp));
    design.FrontArea(1) = area;
    const double half = area * zf;
    EXPECT_NEAR(SweptAt(fp).TxEff[0], half / (half + design.ZBackLoad), 1e-7);
    design.FrontThick(1) /= 2;
    const double quarter = area * zm * zm / zf;
    EXPECT_NEAR(SweptAt(fp).TxEff[0], quarter / (quarter + design.ZBackLoad), 1e-7);
  });
}

}  // namespace
}  // namespace halvorne::testing
