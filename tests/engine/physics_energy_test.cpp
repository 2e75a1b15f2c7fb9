#include "physics_fixture.h"

// Reciprocity, energy and the definitions of the curves, which hold for every design.

namespace halvorne::testing {
namespace {

using PhysicsOfEnergy = PhysicsTest;

const DesignKind kReal{};
const DesignKind kComplexLoads{.complexLoads = true};

TEST_F(PhysicsOfEnergy, ReceptionAndTransmissionAreReciprocal) {
  OnRandomDesigns(kComplexLoads, [](RandomDesigns&) {
    design.TermRx = design.TermTx;
    const SweptCurves swept = Swept();
    for (std::size_t i = 0; i < swept.TxTF.size(); ++i) {
      const Value load(design.ZFrontRe(static_cast<long>(i)),
                       design.ZFrontIm(static_cast<long>(i)));
      EXPECT_TRUE(Near(swept.RxTF[i] * 1e-6 * load,
                       swept.TxTF[i] * design.TermTx * design.FrontLoadArea, 1e-9));
    }
  });
}

TEST_F(PhysicsOfEnergy, PowerTransferIsTheSameBothWays) {
  OnRandomDesigns(kComplexLoads, [](RandomDesigns&) {
    design.TermRx = design.TermTx;
    const SweptCurves swept = Swept();
    for (std::size_t i = 0; i < swept.TxTF.size(); ++i) {
      const PlotValues plots = PlotsAt(swept, i);
      EXPECT_TRUE(Near(plots.plot15, plots.plot25, 1e-9));
    }
  });
}

TEST_F(PhysicsOfEnergy, PowerTransferIsEfficiencyLessWhatIsReflected) {
  OnRandomDesigns(kReal, [](RandomDesigns&) {
    const SweptCurves swept = Swept();
    for (std::size_t i = 0; i < swept.TxTF.size(); ++i) {
      const PlotValues plots = PlotsAt(swept, i);
      EXPECT_NEAR(plots.plot15, plots.plot13 * (1 - std::norm(plots.ge)), 1e-12);
      EXPECT_NEAR(plots.plot25, plots.plot23 * (1 - std::norm(plots.ga)), 1e-12);
    }
  });
}

TEST_F(PhysicsOfEnergy, TransmitPowerTransferHoldsForComplexLoadsToo) {
  OnRandomDesigns(kComplexLoads, [](RandomDesigns&) {
    const SweptCurves swept = Swept();
    for (std::size_t i = 0; i < swept.TxTF.size(); ++i) {
      const PlotValues plots = PlotsAt(swept, i);
      EXPECT_NEAR(plots.plot15, plots.plot13 * (1 - std::norm(plots.ge)), 1e-12);
    }
  });
}

TEST_F(PhysicsOfEnergy, BothEfficienciesTellTheSameTransfer) {
  OnRandomDesigns(kReal, [](RandomDesigns&) {
    design.TermRx = design.TermTx;
    const SweptCurves swept = Swept();
    for (std::size_t i = 0; i < swept.TxTF.size(); ++i) {
      const PlotValues plots = PlotsAt(swept, i);
      EXPECT_NEAR(swept.TxEff[i] * (1 - std::norm(plots.ge)),
                  swept.RxEff[i] * (1 - std::norm(plots.ga)), 1e-12);
    }
  });
}

TEST_F(PhysicsOfEnergy, TheTwoWayCurveIsTheProductWithoutDoubling) {
  OnRandomDesigns(kComplexLoads, [](RandomDesigns&) {
    const SweptCurves swept = Swept();
    for (std::size_t i = 0; i < swept.TxTF.size(); ++i) {
      EXPECT_TRUE(Near(swept.TwoWayTF[i], swept.TxTF[i] * swept.RxTF[i] * 1e-6, 1e-9));
    }
  });
}

TEST_F(PhysicsOfEnergy, TheTwoWayCurveIsThePowerTransferThereAndBack) {
  OnRandomDesigns(kReal, [](RandomDesigns&) {
    SweptCurves swept = Swept();
    for (std::size_t i = 0; i < swept.TxTF.size(); ++i) {
      const PlotValues plots = PlotsAt(swept, i);
      EXPECT_TRUE(Near(16 * design.TermTx / design.TermRx * std::norm(swept.TwoWayTF[i]),
                       plots.plot15 * plots.plot25, 1e-9));
    }
    design.TermRx = design.TermTx;
    swept = Swept();
    for (std::size_t i = 0; i < swept.TxTF.size(); ++i) {
      const PlotValues plots = PlotsAt(swept, i);
      EXPECT_TRUE(Near(plots.plot32, 1 / plots.plot15, 1e-9));
      EXPECT_GE(plots.plot32, 1 - 1e-9) << "no transducer gains";
    }
  });
}

TEST_F(PhysicsOfEnergy, ATransducerIsPassive) {
  OnRandomDesigns(kReal, [](RandomDesigns&) {
    const SweptCurves swept = Swept();
    constexpr double kRounding = 1e-9;
    for (std::size_t i = 0; i < swept.TxTF.size(); ++i) {
      const PlotValues plots = PlotsAt(swept, i);
      EXPECT_GE(swept.TxEff[i], 0);
      EXPECT_LE(swept.TxEff[i], 1 + kRounding);
      EXPECT_GE(swept.RxEff[i], 0);
      EXPECT_LE(swept.RxEff[i], 1 + kRounding);
      EXPECT_GE(swept.ZinElec[i].real(), -kRounding * std::abs(swept.ZinElec[i]));
      EXPECT_GE(swept.ZinAc[i].real(), -kRounding * std::abs(swept.ZinAc[i]));
      EXPECT_LE(std::abs(plots.ge), 1 + kRounding);
      EXPECT_LE(plots.plot15, plots.plot13 + kRounding);
      EXPECT_LE(plots.plot25, plots.plot23 + kRounding);
    }
  });
}

TEST_F(PhysicsOfEnergy, ASourceSeesTheTransducerThroughItsImpedance) {
  OnRandomDesigns(kComplexLoads, [](RandomDesigns& random) {
    const double first = design.TermTx;
    const SweptCurves before = Swept();
    const double second = design.TermTx = random.Uniform(5, 500);
    const SweptCurves after = Swept();
    for (std::size_t i = 0; i < before.TxTF.size(); ++i) {
      EXPECT_TRUE(Near(after.TxTF[i] / before.TxTF[i],
                       (before.ZinElec[i] + first) / (before.ZinElec[i] + second), 1e-9));
    }
  });
}

TEST_F(PhysicsOfEnergy, AReceiverSeesTheTransducerThroughItsImpedance) {
  OnRandomDesigns(kComplexLoads, [](RandomDesigns& random) {
    const double first = design.TermRx;
    const SweptCurves before = Swept();
    const double second = design.TermRx = random.Uniform(5, 500);
    const SweptCurves after = Swept();
    for (std::size_t i = 0; i < before.RxTF.size(); ++i) {
      const Value expected =
          second / first * (before.ZinElec[i] + first) / (before.ZinElec[i] + second);
      EXPECT_TRUE(Near(after.RxTF[i] / before.RxTF[i], expected, 1e-9));
    }
  });
}

TEST_F(PhysicsOfEnergy, TerminationsDoNotTouchWhatIsDefinedWithoutThem) {
  OnRandomDesigns(kReal, [](RandomDesigns& random) {
    const SweptCurves before = Swept();
    design.TermTx = random.Uniform(5, 500);
    const SweptCurves otherSource = Swept();
    EXPECT_EQ(otherSource.ZinElec, before.ZinElec);
    EXPECT_EQ(otherSource.TxEff, before.TxEff);
    EXPECT_EQ(otherSource.ZinAc, before.ZinAc);
    EXPECT_EQ(otherSource.RxEff, before.RxEff);
    design.TermRx = random.Uniform(5, 500);
    const SweptCurves otherReceiver = Swept();
    EXPECT_EQ(otherReceiver.ZinElec, before.ZinElec);
    EXPECT_EQ(otherReceiver.TxEff, before.TxEff);
  });
}

}  // namespace
}  // namespace halvorne::testing
