// Closed forms of transducer theory that the sample designs obey. Sources are named at each.

#include <array>
#include <cmath>
#include <gtest/gtest.h>
#include <numbers>

#include "designs/shipped_design.h"
#include "engine/design_model.h"

namespace halvorne::testing {
namespace {

using std::numbers::pi;

constexpr double kPermittivity = 8.85e-12;

double Impedance(const PiezoMaterial& matl) {
  return matl.Velocity * matl.Density;
}
double Impedance(const AcousticMaterial& matl) {
  return matl.Velocity * matl.Density;
}

double HalfWaveFrequency(const PiezoMaterial& matl, double thick) {
  return matl.Velocity / (2 * thick);
}

double ClampedCapacitance(const PiezoMaterial& matl, double thick) {
  return design.ElementArea * matl.Ks * kPermittivity / thick;
}

/// Radiation resistance of a lossless layer at its half-wave frequency between two real loads.
/// Kino: Acoustic Waves, 1987, sec. 1.4 and 1.5.
double RadiationResistance(const PiezoMaterial& matl, double thick, double front, double back) {
  const double omega = 2 * pi * HalfWaveFrequency(matl, thick);
  return 4 * matl.Kt * matl.Kt * Impedance(matl) /
         (pi * omega * ClampedCapacitance(matl, thick) * (front + back));
}

class ImagingElement : public ShippedDesign {
 protected:
  ImagingElement() { Open("imaging_5mhz_two_layer"); }

  /// What the two quarter-wave layers make of the water in front of them.
  static double FrontImpedance() {
    const double ratio = Impedance(design.FaceMatl(1)) / Impedance(design.FaceMatl(2));
    return ratio * ratio * design.ZFrontLoad;
  }
};

TEST_F(ImagingElement, HasTheMatchingImpedancesOfDesilets) {
  const double ceramic = Impedance(design.PZMatl(1));
  const double z1 = std::pow(ceramic, 4.0 / 7) * std::pow(design.ZFrontLoad, 3.0 / 7);
  const double z2 = std::pow(ceramic, 1.0 / 7) * std::pow(design.ZFrontLoad, 6.0 / 7);
  EXPECT_NEAR(Impedance(design.FaceMatl(1)), z1, 2e-5 * z1);
  EXPECT_NEAR(Impedance(design.FaceMatl(2)), z2, 2e-5 * z2);
}

TEST_F(ImagingElement, WithoutLossAndNetworkHasTheRadiationResistanceOfItsLoads) {
  MakeLossless();
  design.ElNet(1, 1) = 0;
  SweepFrom(5e6);
  const PiezoMaterial& ceramic = design.PZMatl(1);
  const double resistance =
      RadiationResistance(ceramic, design.PZThick(1), FrontImpedance(), design.ZBackLoad);
  EXPECT_NEAR(curves.ZinElecRe(0), resistance, 1e-6 * resistance);
  const double reactance = -1 / (2 * pi * 5e6 * ClampedCapacitance(ceramic, design.PZThick(1)));
  EXPECT_NEAR(curves.ZinElecIm(0), reactance, -1e-6 * reactance);
  const double efficiency = FrontImpedance() / (FrontImpedance() + design.ZBackLoad);
  EXPECT_NEAR(curves.TxEff(0), efficiency, 1e-6);
}

TEST_F(ImagingElement, WithItsLossesKeepsThatResistanceWithinEightPercent) {
  design.ElNet(1, 1) = 0;
  SweepFrom(5e6);
  const double resistance =
      RadiationResistance(design.PZMatl(1), design.PZThick(1), FrontImpedance(), design.ZBackLoad);
  EXPECT_NEAR(curves.ZinElecRe(0), resistance, 0.08 * resistance);
}

class ContactProbe : public ShippedDesign {
 protected:
  ContactProbe() {
    Open("ndt_2p25mhz_heavy_backing");
    MakeLossless();
    design.NoFace = 0;
    resistance_ = RadiationResistance(design.PZMatl(1), design.PZThick(1), design.ZFrontLoad,
                                      design.ZBackLoad);
  }

  const double parallel_ = 4355 / (2 * 0.000967778);
  double resistance_ = 0;
};

TEST_F(ContactProbe, HasItsParallelFrequencyAtHalfAWave) {
  EXPECT_NEAR(design.PZFa(1), parallel_, 1e-12 * parallel_);
}

TEST_F(ContactProbe, WithoutItsWearPlateSharesPowerAsItsLoads) {
  SweepFrom(parallel_);
  EXPECT_NEAR(curves.ZinElecRe(0), resistance_, 1e-6 * resistance_);
  EXPECT_NEAR(curves.TxEff(0), 45.4 / (45.4 + 20), 1e-6);
}

TEST_F(ContactProbe, HasANinthOfItsResistanceAtTheThirdHarmonic) {
  SweepFrom(3 * parallel_);
  EXPECT_NEAR(curves.ZinElecRe(0), resistance_ / 9, 1e-6 * resistance_ / 9);
}

class Hydrophone : public ShippedDesign {
 protected:
  Hydrophone() { Open("pvdf_membrane_hydrophone_25um"); }

  /// h t/cD of a film between equal media, uV/Pa. Mason: Electromechanical Transducers and Wave
  /// Filters, 1948.
  static double QuasiStatic() {
    const PiezoMaterial& film = design.PZMatl(1);
    const double h = film.Kt * film.Velocity * std::sqrt(film.Density / (film.Ks * kPermittivity));
    return 1e6 * h * design.PZThick(1) / (film.Density * film.Velocity * film.Velocity);
  }
  /// Per pascal of the incident wave, which the film sees twice.
  static double Sensitivity() { return 2 * std::abs(At(curves.RxTFRe, curves.RxTFIm, 0)); }
};

TEST_F(Hydrophone, HasItsParallelFrequencyAtHalfAWave) {
  EXPECT_NEAR(design.PZFa(1), 45.2e6, 1e-12 * 45.2e6);
}

TEST_F(Hydrophone, WithoutLoadAndLossHasTheQuasiStaticSensitivity) {
  MakeLossless();
  design.TermRx = 1e12;
  SweepFrom(0.5e6);
  EXPECT_NEAR(Sensitivity(), QuasiStatic(), 1e-3 * QuasiStatic());
}

TEST_F(Hydrophone, WithItsAmplifierAndLossLosesLessThanFivePercent) {
  SweepFrom(2e6);
  EXPECT_NEAR(Sensitivity(), QuasiStatic(), 0.05 * QuasiStatic());
}

class AirLayer : public ShippedDesign {
 protected:
  /// Moves the layer behind a ceramic of half a wavelength with next to no coupling, so that the
  /// acoustic input impedance is what the layer presents.
  AirLayer() {
    Open("air_coupled_200khz");
    design.NoFace = 0;
    design.NoBack = 1;
    design.BackMatl(1) = design.FaceMatl(1);
    design.BackThick(1) = design.FrontThick(1);
    design.BackArea(1) = 1;
    PiezoMaterial& ceramic = design.PZMatl(1);
    ceramic.TanDm = 0;
    ceramic.Kt = 1e-6;
    design.PZThick(1) = ceramic.Velocity / (2 * quarterWave_);
  }

  double Presented() {
    SweepFrom(quarterWave_);
    return std::abs(At(curves.ZinAcRe, curves.ZinAcIm, 0));
  }

  const double quarterWave_ = 2150 / (4 * 0.003);
  const double layer_ = 140 * 2150;
  const double air_ = 415;
};

TEST_F(AirLayer, PresentsTheImpedanceOfALossyQuarterWave) {
  // 11.51293 Np/m are one dB/cm.
  const double nepers = 0.25384 * 0.003 * 11.51293 * (quarterWave_ / 0.2e6);
  const double coth = 1 / std::tanh(nepers);
  const double presented = layer_ * (air_ + layer_ * coth) / (layer_ + air_ * coth);
  EXPECT_NEAR(Presented(), presented, 1e-6 * presented);
}

TEST_F(AirLayer, NearsTheRuleForALightLoad) {
  const double rule = 4 / pi * layer_ * 100;  // Toda 2015, Q 100
  EXPECT_NEAR(Presented(), rule, 0.18 * rule);
}

TEST_F(AirLayer, WithoutLossWouldPresentSevenTimesAsMuch) {
  design.BackMatl(1).Loss = 0;
  const double presented = layer_ * layer_ / air_;
  EXPECT_NEAR(Presented(), presented, 1e-9 * presented);
}

class Stack : public ShippedDesign {
 protected:
  Stack() { Open("stack_two_layer_parallel"); }

  /// No plate, equal loads: both layers carry the same current.
  static void MakeSymmetric() {
    design.NoFace = 0;
    design.ZFrontLoad = design.ZBackLoad = 1.5e6;
  }
  static double Whole() { return 2 * design.PZThick(1); }
};

TEST_F(Stack, HasTheMatchingImpedanceOfDesilets) {
  const double z1 = std::cbrt(Impedance(design.PZMatl(1))) * std::pow(design.ZFrontLoad, 2.0 / 3);
  EXPECT_NEAR(Impedance(design.FaceMatl(1)), z1, 2e-5 * z1);
}

// Goldberg, Smith, IEEE Trans. UFFC 41 (1994) 761-771: N layers in parallel divide it by N^2.
TEST_F(Stack, BetweenEqualLoadsHasAQuarterOfTheImpedanceOfOneThickLayer) {
  MakeLossless();
  MakeSymmetric();
  const PiezoMaterial& ceramic = design.PZMatl(1);
  const double freq = HalfWaveFrequency(ceramic, Whole());
  SweepFrom(freq);
  const double resistance = RadiationResistance(ceramic, Whole(), 1.5e6, 1.5e6) / 4;
  const double reactance = -1 / (2 * pi * freq * 4 * ClampedCapacitance(ceramic, Whole()));
  EXPECT_NEAR(curves.ZinElecRe(0), resistance, 1e-6 * resistance);
  EXPECT_NEAR(curves.ZinElecIm(0), reactance, -1e-6 * reactance);
}

TEST_F(Stack, HasFourTimesTheFreeCapacitanceAtLowFrequency) {
  MakeLossless();
  SweepFrom(0.05e6);
  const double kt = design.PZMatl(1).Kt;
  const double capacitance = 4 * ClampedCapacitance(design.PZMatl(1), Whole()) / (1 - kt * kt);
  EXPECT_NEAR(-1 / (2 * pi * 0.05e6 * curves.ZinElecIm(0)), capacitance, 1e-3 * capacitance);
}

TEST_F(Stack, BetweenEqualLoadsIsAMultilayerOfTwoOverTheWholeSweep) {
  MakeLossless();
  MakeSymmetric();
  Sweep();
  std::vector<std::array<double, 4>> stack;
  const auto magnitudes = [](long point) {
    return std::array{std::abs(At(curves.ZinElecRe, curves.ZinElecIm, point)),
                      std::abs(At(curves.TxTFRe, curves.TxTFIm, point)),
                      std::abs(At(curves.RxTFRe, curves.RxTFIm, point)),
                      std::abs(At(curves.TwoWayTFRe, curves.TwoWayTFIm, point))};
  };
  for (long point = 0; point <= design.NoFreqPts; ++point) {
    stack.push_back(magnitudes(point));
  }
  design.PZThick(1) = Whole();
  design.NoPiezo = 1;
  design.ElNet(1, 1) = 17;
  design.ElNet(1, 2) = 1;
  design.ElNet(1, 3) = 2;
  Sweep();
  for (long point = 0; point <= design.NoFreqPts; ++point) {
    const auto single = magnitudes(point);
    for (std::size_t k = 0; k < single.size(); ++k) {
      const double both = stack[static_cast<std::size_t>(point)][k];
      EXPECT_NEAR(both, single[k], 1e-8 * single[k]) << "curve " << k << ", point " << point;
    }
  }
}

TEST_F(Stack, BetweenUnequalLoadsIsThatOnlyNearly) {
  MakeLossless();
  const double plate = Impedance(design.FaceMatl(1));
  const double front = plate * plate / design.ZFrontLoad;
  const double resistance =
      RadiationResistance(design.PZMatl(1), Whole(), front, design.ZBackLoad) / 4;
  SweepFrom(3.5e6);
  EXPECT_NEAR(curves.ZinElecRe(0), resistance, 0.02 * resistance);
}

}  // namespace
}  // namespace halvorne::testing
