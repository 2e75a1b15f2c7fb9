#include "physics_fixture.h"

// Two layers against the single layer that they amount to.

namespace halvorne::testing {
namespace {

constexpr std::int16_t kSeries = 1;
constexpr std::int16_t kParallel = 2;

class TwoLayerPhysics : public PhysicsTest {
 protected:
  /// The single layer of the design cut in two equal ones.
  static void Divide(std::int16_t connection) {
    design.NoPiezo = 2;
    design.PZMatl(2) = design.PZMatl(1);
    design.PZThick(1) /= 2;
    design.PZThick(2) = design.PZThick(1);
    design.PZPolarity(2) = design.PZPolarity(1);
    design.PZConnect = connection;
  }
};

TEST_F(TwoLayerPhysics, EqualLayersInSeriesAreOneOfTwiceTheThickness) {
  OnRandomDesigns({.layers = 1}, [](RandomDesigns&) {
    design.PZMatl(1).TanDm = 0;
    const SweptCurves single = Swept();
    Divide(kSeries);
    const SweptCurves stack = Swept();
    ExpectSameCurves(stack, single, 1e-6);
    EXPECT_TRUE(CurvesNear(stack.ZinElec, single.ZinElec, 1e-9, 1e-3));
    EXPECT_TRUE(CurvesNear(stack.ZinAc, single.ZinAc, 1e-9, 1e-3));
    EXPECT_TRUE(CurvesNear(stack.TxTF, single.TxTF, 1e-9, 1e-3));
    EXPECT_TRUE(CurvesNear(stack.RxTF, single.RxTF, 1e-9, 1e-3));
    EXPECT_TRUE(CurvesNear(stack.TwoWayTF, single.TwoWayTF, 1e-9, 1e-3));
    EXPECT_TRUE(CurvesNear(stack.TxEff, single.TxEff, 1e-9, 1e-3));
    EXPECT_TRUE(CurvesNear(stack.RxEff, single.RxEff, 1e-9, 1e-3));
  });
}

TEST_F(TwoLayerPhysics, EqualLayersInParallelAreAMultilayerOfTwo) {
  OnRandomDesigns({.layers = 1, .network = false, .maxPlates = 0}, [](RandomDesigns&) {
    design.PZMatl(1).TanDm = 0;
    design.ZBackLoad = design.ZFrontLoad;
    design.ElNet(1, 1) = 17;
    design.ElNet(1, 2) = 1;
    design.ElNet(1, 3) = 2;
    const SweptCurves single = Swept();
    Divide(kParallel);
    design.ElNet(1, 1) = 0;
    const SweptCurves stack = Swept();
    EXPECT_TRUE(CurvesNear(Sizes(stack.ZinElec), Sizes(single.ZinElec), 1e-9));
    EXPECT_TRUE(CurvesNear(Sizes(stack.TxTF), Sizes(single.TxTF), 1e-9, 1e-3));
    EXPECT_TRUE(CurvesNear(Sizes(stack.RxTF), Sizes(single.RxTF), 1e-9, 1e-3));
    EXPECT_TRUE(CurvesNear(Sizes(stack.TwoWayTF), Sizes(single.TwoWayTF), 1e-9, 1e-3));
  });
}

TEST_F(TwoLayerPhysics, TheLowFrequencyCapacitanceInParallelIsFourTimesTheSingleOne) {
  OnRandomDesigns({.layers = 1, .losses = false, .network = false, .maxPlates = 0},
                  [](RandomDesigns&) {
                    const PiezoMaterial& matl = design.PZMatl(1);
                    const double fp = matl.Velocity / (2 * design.PZThick(1));
                    const double c0 = design.ElementArea * matl.Ks * 8.85e-12 / design.PZThick(1);
                    const double expected = 4 * c0 / (1 - matl.Kt * matl.Kt);
                    Divide(kParallel);
                    const double f = fp / 100;
                    const double capacitance = -1 / (kWholeTurn * f * SweptAt(f).ZinElec[0].imag());
                    EXPECT_NEAR(capacitance, expected, 1e-3 * expected);
                  });
}

TEST_F(TwoLayerPhysics, EqualSignsAddAndOppositeOnesCancelAtLowFrequency) {
  OnRandomDesigns({.layers = 1, .losses = false, .network = false, .maxPlates = 0},
                  [](RandomDesigns&) {
                    const PiezoMaterial& matl = design.PZMatl(1);
                    const double fp = matl.Velocity / (2 * design.PZThick(1));
                    const double z0 = matl.Velocity * matl.Density;
                    const double load = design.ZBackLoad = design.ZFrontLoad;
                    const double mismatch = std::max(z0 / load, load / z0);
                    design.TermRx = 1e15;
                    for (const std::int16_t connection : {kSeries, kParallel}) {
                      Divide(connection);
                      const double adding = std::abs(SweptAt(1e-4 * fp).RxTF[0]);
                      design.PZPolarity(2) = static_cast<std::int16_t>(-design.PZPolarity(1));
                      const double opposing = std::abs(SweptAt(1e-4 * fp).RxTF[0]);
                      EXPECT_LT(opposing, 1e-4 * mismatch * adding);
                      EXPECT_EQ(design.NoPiezo, 2);
                      design.PZThick(1) *= 2;
                    }
                  });
}

}  // namespace
}  // namespace halvorne::testing
