#include <algorithm>
#include <functional>
#include <utility>
#include <vector>

#include "physics_fixture.h"

// One lossless layer between real loads, against closed forms of the thickness mode.

namespace halvorne::testing {
namespace {

/// The layer's quantities as the closed forms name them.
struct LayerTheory {
  double v, rho, kt, t, z0, c0, fp, h, area, zf, zb, rt;

  LayerTheory()
      : v(design.PZMatl(1).Velocity),
        rho(design.PZMatl(1).Density),
        kt(design.PZMatl(1).Kt),
        t(design.PZThick(1)),
        z0(rho * v),
        c0(design.ElementArea * design.PZMatl(1).Ks * 8.85e-12 / t),
        fp(v / (2 * t)),
        h(kt * v * std::sqrt(rho / (design.PZMatl(1).Ks * 8.85e-12))),
        area(design.ElementArea),
        zf(design.ZFrontLoad),
        zb(design.ZBackLoad),
        rt(design.TermTx) {}

  double Phase(double f) const { return kWholeTurn * f * t / v; }
  Value Denominator(double f) const {
    const double g = Phase(f);
    const double z1 = zf / z0;
    const double z2 = zb / z0;
    return {(z1 + z2) * std::cos(g), (1 + z1 * z2) * std::sin(g)};
  }
  Value Impedance(double f) const {
    const double g = Phase(f);
    const Value bracket(-2 * (1 - std::cos(g)), (zf + zb) / z0 * std::sin(g));
    return (1.0 + kImaginary * (kt * kt / g) * bracket / Denominator(f)) /
           (kImaginary * kWholeTurn * f * c0);
  }
  double Transmission(double f) const {
    const double g = Phase(f);
    const Value u = h / (kImaginary * kWholeTurn * f * area * z0) *
                    Value(std::cos(g) - 1, zb / z0 * std::sin(g)) / Denominator(f);
    return zf * std::abs(u) / std::abs(Impedance(f) + rt);
  }
  double Reactance(double f) const { return 1 / (kWholeTurn * f * c0); }
  /// Radiation resistance at the half-wave frequency for what the front presents.
  double Radiation(double front) const {
    return 4 * kt * kt * z0 / (kWholeTurn / 2 * kWholeTurn * fp * c0 * (front + zb));
  }
};

class SingleLayerPhysics : public PhysicsTest {
 protected:
  void OnBareLayers(const std::function<void(RandomDesigns&)>& check) {
    OnRandomDesigns({.layers = 1, .losses = false, .network = false, .maxPlates = 0}, check);
  }

  static void QuarterWavePlates(const std::vector<double>& impedances, double freq) {
    design.NoFace = static_cast<std::int16_t>(impedances.size());
    for (int k = 1; k <= design.NoFace; ++k) {
      AcousticMaterial& plate = design.FaceMatl(k);
      plate.Velocity = 2500;
      plate.Density = impedances[k - 1] / 2500;
      plate.Loss = 0;
      plate.LossFreq = 1;
      design.FrontThick(k) = 2500 / (4 * freq);
      design.FrontArea(k) = 1;
    }
  }
};

TEST_F(SingleLayerPhysics, ImpedanceAndTransmissionAreTheirClosedFormsEverywhere) {
  OnBareLayers([](RandomDesigns&) {
    design.PZMatl(1).TanDe = 1e-12;
    const LayerTheory layer;
    const SweptCurves swept = Swept();
    for (int i = 0; i <= design.NoFreqPts; ++i) {
      const double f = FreqOf(i);
      EXPECT_TRUE(Near(swept.ZinElec[i], layer.Impedance(f), 1e-9));
      EXPECT_TRUE(Near(std::abs(swept.TxTF[i]), layer.Transmission(f), 1e-9));
    }
  });
}

TEST_F(SingleLayerPhysics, AtTheHalfWaveFrequencyRadiationIsSharedByTheLoads) {
  OnBareLayers([](RandomDesigns&) {
    const LayerTheory layer;
    const SweptCurves swept = SweptAt(layer.fp);
    const double ra = layer.Radiation(layer.zf);
    const Value expected(ra, -layer.Reactance(layer.fp));
    EXPECT_TRUE(Near(swept.ZinElec[0], expected, 1e-8));
    const double leak = 1e-9 / (1 - layer.kt * layer.kt) * layer.Reactance(layer.fp);
    EXPECT_NEAR(swept.ZinElec[0].real(), ra, 1e-8 * ra + leak);
    const double share = layer.zf / (layer.zf + layer.zb);
    EXPECT_NEAR(swept.TxEff[0], share, (1e-8 + leak / ra) * share);
  });
}

TEST_F(SingleLayerPhysics, QuarterWavePlatesTransformTheLoad) {
  OnBareLayers([](RandomDesigns& random) {
    const LayerTheory layer;
    const double z1 = random.Uniform(2e6, 1e7);
    const double z2 = random.Uniform(2e6, 1e7);
    for (const bool two : {false, true}) {
      const std::vector<double> plates = two ? std::vector{z1, z2} : std::vector{z1};
      QuarterWavePlates(plates, layer.fp);
      const double front = two ? (z1 / z2) * (z1 / z2) * layer.zf : z1 * z1 / layer.zf;
      const SweptCurves swept = SweptAt(layer.fp);
      const double ra = layer.Radiation(front);
      const double leak = 2e-9 * layer.Reactance(layer.fp);
      EXPECT_NEAR(swept.ZinElec[0].real(), ra, 1e-8 * ra + leak);
      EXPECT_NEAR(swept.TxEff[0], front / (front + layer.zb), 1e-8 + leak / ra);
    }
  });
}

TEST_F(SingleLayerPhysics, DesiletsPlatesPresentTheirImpedances) {
  OnBareLayers([](RandomDesigns&) {
    const LayerTheory layer;
    const auto mean = [&layer](double p) {
      return std::pow(layer.z0, p) * std::pow(layer.zf, 1 - p);
    };
    const double leak = 2e-9 * layer.Reactance(layer.fp);
    QuarterWavePlates({mean(1.0 / 3)}, layer.fp);
    double expected = layer.Radiation(mean(2.0 / 3));
    EXPECT_NEAR(SweptAt(layer.fp).ZinElec[0].real(), expected, 1e-8 * expected + leak);
    QuarterWavePlates({mean(4.0 / 7), mean(1.0 / 7)}, layer.fp);
    expected = layer.Radiation(mean(6.0 / 7));
    EXPECT_NEAR(SweptAt(layer.fp).ZinElec[0].real(), expected, 1e-8 * expected + leak);
  });
}

TEST_F(SingleLayerPhysics, OvertonesRadiateByTheirSquareAndEvenOnesNot) {
  OnBareLayers([](RandomDesigns&) {
    const LayerTheory layer;
    const double third = layer.Radiation(layer.zf) / 9;
    EXPECT_NEAR(SweptAt(3 * layer.fp).ZinElec[0].real(), third,
                1e-8 * third + 1e-9 * layer.Reactance(layer.fp));
    const double basic = std::abs(SweptAt(layer.fp).TxTF[0]);
    const SweptCurves second = SweptAt(2 * layer.fp);
    EXPECT_TRUE(Near(second.ZinElec[0], Value(0, -layer.Reactance(2 * layer.fp)), 1e-8));
    EXPECT_LT(std::abs(second.TxTF[0]), 1e-9 * basic);
  });
}

TEST_F(SingleLayerPhysics, UnloadedReactanceIsThatOfTheResonator) {
  OnBareLayers([](RandomDesigns&) {
    const LayerTheory layer;
    design.ZFrontLoad = design.ZBackLoad = 0;
    const std::vector<Value> swept = Swept().ZinElec;
    for (int i = 0; i <= design.NoFreqPts; ++i) {
      const double f = FreqOf(i);
      if (std::abs(f / layer.fp - 1) < 1e-6) {
        continue;  // the pole itself
      }
      const double half = layer.Phase(f) / 2;
      const double expected =
          -layer.Reactance(f) * (1 - layer.kt * layer.kt * std::tan(half) / half);
      EXPECT_NEAR(swept[i].imag(), expected, 1e-9 * (std::abs(expected) + layer.Reactance(f)));
    }
  });
}

TEST_F(SingleLayerPhysics, ResonancesTellTheCoupling) {
  OnBareLayers([](RandomDesigns&) {
    const LayerTheory layer;
    design.ZFrontLoad = design.ZBackLoad = 0;
    design.FreqStart = 0.601 * layer.fp;
    design.FreqStop = 1.2 * layer.fp;
    design.NoFreqPts = 4000;
    NeutralDispersion();
    const std::vector<double> sizes = Sizes(Swept().ZinElec);
    const auto peak = std::max_element(sizes.begin(), sizes.end());
    const auto zero = std::min_element(sizes.begin(), peak);
    const double halfStep = (design.FreqStop - design.FreqStart) / 8000;
    EXPECT_NEAR(FreqOf(static_cast<int>(peak - sizes.begin())), layer.fp, 1.01 * halfStep);
    const auto coupling = [&layer](double fs) {
      const double quarterTurn = kWholeTurn / 4;
      return quarterTurn * fs / layer.fp * std::tan(quarterTurn * (layer.fp - fs) / layer.fp);
    };
    const double fs = FreqOf(static_cast<int>(zero - sizes.begin()));
    EXPECT_GE(coupling(fs - 1.01 * halfStep), layer.kt * layer.kt);
    EXPECT_LE(coupling(fs + 1.01 * halfStep), layer.kt * layer.kt);
  });
}

TEST_F(SingleLayerPhysics, LowFrequencyCapacitanceIsTheFreeOne) {
  OnBareLayers([](RandomDesigns&) {
    const LayerTheory layer;
    const double f = layer.fp / 10000;
    const double capacitance = -1 / (kWholeTurn * f * SweptAt(f).ZinElec[0].imag());
    EXPECT_NEAR(capacitance * (1 - layer.kt * layer.kt) / layer.c0, 1, 1e-6);
  });
}

TEST_F(SingleLayerPhysics, WithHardlyAnyCouplingItIsACapacitor) {
  OnBareLayers([](RandomDesigns&) {
    design.PZMatl(1).Kt = 1e-6;
    design.PZMatl(1).TanDe = 1e-12;
    const LayerTheory layer;
    const SweptCurves weak = Swept();
    for (int i = 0; i <= design.NoFreqPts; ++i) {
      EXPECT_TRUE(Near(weak.ZinElec[i], Value(0, -layer.Reactance(FreqOf(i))), 1e-9));
    }
    design.PZMatl(1).Kt = 2e-6;
    const SweptCurves twice = Swept();
    EXPECT_TRUE(CurvesNear(twice.TxTF, Scaled(weak.TxTF, 2), 1e-9));
    EXPECT_TRUE(CurvesNear(twice.RxTF, Scaled(weak.RxTF, 2), 1e-9));
  });
}

TEST_F(SingleLayerPhysics, WithHardlyAnyCouplingTheAcousticImpedanceIsPassive) {
  OnBareLayers([](RandomDesigns&) {
    design.PZMatl(1).Kt = 1e-6;
    const LayerTheory layer;
    EXPECT_TRUE(Near(SweptAt(layer.fp).ZinAc[0], layer.zb, 1e-8));
    const Value halfway = SweptAt(layer.fp / 2).ZinAc[0];
    EXPECT_TRUE(Near(halfway, layer.z0 * layer.z0 / layer.zb, 1e-8));
    design.TermRx *= 7;
    EXPECT_TRUE(Near(SweptAt(layer.fp / 2).ZinAc[0], halfway, 1e-8));
    design.ZBackLoad = layer.z0;
    for (const double ratio : {0.4, 0.7, 1.3, 1.7}) {
      EXPECT_TRUE(Near(SweptAt(ratio * layer.fp).ZinAc[0], layer.z0, 1e-8));
    }
  });
}

TEST_F(SingleLayerPhysics, WithoutARearLoadABareLayerSendsAllPowerForward) {
  OnBareLayers([](RandomDesigns&) {
    design.ZBackLoad = 0;
    for (const auto& [tanDe, tolerance] : {std::pair{1e-12, 1e-6}, std::pair{1e-9, 1e-4}}) {
      design.PZMatl(1).TanDe = tanDe;
      const SweptCurves swept = Swept();
      for (std::size_t i = 0; i < swept.TxEff.size(); ++i) {
        EXPECT_NEAR(swept.TxEff[i], 1, tolerance);
        EXPECT_NEAR(swept.RxEff[i], 1, tolerance);
      }
    }
  });
}

TEST_F(SingleLayerPhysics, WithoutARearLoadAllPowerGoesForwardThroughPlatesAndNetwork) {
  OnRandomDesigns({.layers = 1, .losses = false, .network = false, .maxPlates = 2},
                  [](RandomDesigns&) {
                    design.PZMatl(1).TanDe = 1e-12;
                    design.ZBackLoad = 0;
                    design.ElNet(1, 1) = 3;
                    design.ElNet(1, 2) = 1e-6;
                    const SweptCurves swept = Swept();
                    for (std::size_t i = 0; i < swept.TxEff.size(); ++i) {
                      EXPECT_NEAR(swept.TxEff[i], 1, 1e-4);
                      EXPECT_NEAR(swept.RxEff[i], 1, 1e-4);
                    }
                  });
}

TEST_F(SingleLayerPhysics, ATunedMatchedLayerLosesNothing) {
  OnBareLayers([](RandomDesigns&) {
    design.ZBackLoad = 0;
    const LayerTheory layer;
    const double ra = layer.Radiation(layer.zf);
    const double w0 = kWholeTurn * layer.fp;
    design.PZMatl(1).TanDe = 1e-12;
    design.ElNet(1, 1) = 3;
    design.ElNet(1, 2) = 1 / (w0 * w0 * layer.c0);
    design.TermTx = design.TermRx = ra;
    const SweptCurves swept = SweptAt(layer.fp);
    const PlotValues plots = PlotsAt(swept, 0);
    EXPECT_NEAR(std::abs(plots.ge), 0, 1e-8);
    EXPECT_NEAR(std::abs(plots.ga), 0, 1e-8);
    EXPECT_TRUE(Near(std::abs(swept.TwoWayTF[0]), 0.25, 1e-8));
    EXPECT_NEAR(plots.plot32, 1, 1e-8);
    EXPECT_TRUE(Near(std::abs(swept.TxTF[0]), std::sqrt(layer.zf / (4 * ra * layer.area)), 1e-8));
    EXPECT_TRUE(
        Near(std::abs(swept.RxTF[0]) * 1e-6, std::sqrt(ra * layer.area / layer.zf) / 2, 1e-8));
  });
}

TEST_F(SingleLayerPhysics, AWeaklyCoupledLayerOnItsOwnImpedanceHasASineCurve) {
  OnBareLayers([](RandomDesigns&) {
    design.PZMatl(1).Kt = 1e-3;
    design.TermTx = 0;
    LayerTheory layer;
    design.ZBackLoad = layer.z0;
    const std::vector<Value> swept = Swept().TxTF;
    for (int i = 0; i <= design.NoFreqPts; ++i) {
      const double expected = layer.h * layer.c0 / layer.area * layer.zf / (layer.zf + layer.z0) *
                              2 * std::abs(std::sin(kWholeTurn / 4 * FreqOf(i) / layer.fp));
      EXPECT_TRUE(Near(std::abs(swept[i]), expected, 2e-6));
    }
  });
}

/// Lower and upper limit of the band in which a curve lies above `level` of its peak, in units of
/// 5 MHz, interpolated between the points.
std::pair<double, double> Band(const std::vector<double>& curve, double level) {
  const double limit = level * *std::max_element(curve.begin(), curve.end());
  const auto crossing = [&](int below, int above) {
    const double share = (limit - curve[below]) / (curve[above] - curve[below]);
    return (FreqOf(below) + share * (FreqOf(above) - FreqOf(below))) / 5e6;
  };
  int first = 0;
  while (curve[first] < limit) {
    ++first;
  }
  int last = design.NoFreqPts;
  while (curve[last] < limit) {
    --last;
  }
  return {crossing(first - 1, first), crossing(last + 1, last)};
}

TEST_F(SingleLayerPhysics, TheSineCurveHasItsBandwidths) {
  MakePlainDesign();
  design.PZMatl(1).Kt = 0.01;
  design.ZBackLoad = 3e7;  // the layer's own
  design.TermTx = 0;
  design.TermRx = 1e-3;
  design.FreqStart = 0.01 * 5e6;
  design.FreqStop = 1.99 * 5e6;
  design.NoFreqPts = 3960;  // half a thousandth of the half-wave frequency
  NeutralDispersion();
  const SweptCurves swept = Swept();
  // The receive curve's factor f cancels against the short-circuited capacitance: sin^2.
  const std::vector<double> twoWay = Sizes(swept.TwoWayTF);
  const auto [low, high] = Band(twoWay, 0.5);
  EXPECT_NEAR(low, 0.5, 2e-4);
  EXPECT_NEAR(high, 1.5, 2e-4);
  const auto width = [&](double level) {
    const auto [from, to] = Band(twoWay, level);
    return to - from;
  };
  EXPECT_NEAR(width(0.1), 1.590334, 2e-4);
  EXPECT_NEAR(width(0.01), 1.872463, 2e-4);
  const auto [oneWayLow, oneWayHigh] = Band(Sizes(swept.TxTF), 0.5);
  EXPECT_NEAR(oneWayLow, 1.0 / 3, 2e-4);
  EXPECT_NEAR(oneWayHigh, 5.0 / 3, 2e-4);
}

TEST_F(SingleLayerPhysics, AThinOpenFilmReceivesByItsThickness) {
  OnBareLayers([](RandomDesigns&) {
    const LayerTheory layer;
    design.TermRx = 1e15;
    const double stiffness = layer.rho * layer.v * layer.v;
    const double expected = layer.h * layer.t / stiffness * layer.zb / (layer.zf + layer.zb);
    const double mismatch = layer.z0 / (layer.zf + layer.zb) + (layer.zf + layer.zb) / layer.z0;
    EXPECT_TRUE(Near(std::abs(SweptAt(1e-4 * layer.fp).RxTF[0]) * 1e-6, expected,
                     1e-4 * std::max(10.0, mismatch)));
  });
}

TEST_F(SingleLayerPhysics, FosterReactanceRisesBetweenItsPoles) {
  OnBareLayers([](RandomDesigns&) {
    const LayerTheory layer;
    design.ZFrontLoad = design.ZBackLoad = 0;
    design.NoFreqPts = 200;
    NeutralDispersion();
    const std::vector<Value> swept = Swept().ZinElec;
    for (int i = 1; i <= design.NoFreqPts; ++i) {
      if (FreqOf(i) < 0.999 * layer.fp || FreqOf(i - 1) > 1.001 * layer.fp) {
        EXPECT_GT(swept[i].imag(), swept[i - 1].imag()) << FreqOf(i) / layer.fp;
      }
    }
  });
}

}  // namespace
}  // namespace halvorne::testing
