#include "engine/design_model.h"

#include <algorithm>
#include <limits>

#include "engine_fixture.h"

namespace halvorne::testing {
namespace {

using DesignModel = EngineTest;

void SetLayer(int layer, double velocity, double density, double thick) {
  design.PZMatl(layer).Velocity = velocity;
  design.PZMatl(layer).Density = density;
  design.PZThick(layer) = thick;
}

TEST_F(DesignModel, BeforeAnyFileWasReadEverythingIsZeroTheDispersionTableToo) {
  EXPECT_EQ(design.NoPiezo, 0);
  EXPECT_EQ(design.PZMatl(2).Velocity, 0);
  EXPECT_EQ(design.VelDisp(0, 0), 0);
  EXPECT_EQ(design.VelDisp(21, 16000), 0);
  EXPECT_EQ(design.ElNet(20, 6), 0);
  EXPECT_EQ(design.FrontArea(25), 0);
  EXPECT_EQ(curves.TwoWayTFIm(16000), 0);
  EXPECT_EQ(draft.TmpExciteWfm(65535), 0);
  EXPECT_EQ(design.DesignTitle, "");
  EXPECT_FALSE(design.AttenOn);
}

TEST_F(DesignModel, BoundsAreInclusiveAtBothEndsAndNoWider) {
  EXPECT_NO_THROW(design.PZMatl(1));
  EXPECT_THROW(design.PZMatl(0), Failure);
  EXPECT_THROW(design.PZMatl(3), Failure);
  EXPECT_THROW(design.FaceMatl(0), Failure);
  EXPECT_THROW(design.FaceMatl(11), Failure);
  EXPECT_NO_THROW(design.BackZ(25));
  EXPECT_THROW(design.BackZ(26), Failure);
  EXPECT_THROW(design.VelDisp(22, 0), Failure);
  EXPECT_THROW(design.VelDisp(0, 16001), Failure);
  EXPECT_THROW(design.ElNet(21, 1), Failure);
  EXPECT_THROW(design.ElNet(1, 7), Failure);
  EXPECT_THROW(curves.TxEff(16001), Failure);
}

TEST_F(DesignModel, ASingleLayerDesignHoldsACompleteNeutralSecondLayer) {
  design.NoPiezo = 1;
  design.PZConnect = 2;
  design.PZConnectName = "Parallel";
  SetLayer(1, 4000, 7500, 4e-4);
  SetLayer(2, 5000, 6000, 3e-4);
  design.PZMatl(2).Kt = 0.5;
  design.PZPolarity(2) = -1;
  PiezoLayers();
  const PiezoMaterial& neutral = design.PZMatl(2);
  EXPECT_EQ(neutral.Name, "None");
  EXPECT_EQ(neutral.Velocity, 2000);
  EXPECT_EQ(neutral.ShearVelocity, 1000);
  EXPECT_EQ(neutral.Density, 1000);
  EXPECT_EQ(neutral.Ks, 1);
  EXPECT_EQ(neutral.Kt, 0);
  EXPECT_EQ(neutral.TanDe, 0);
  EXPECT_EQ(neutral.TanDm, 0);
  EXPECT_EQ(neutral.Vendor, "None");
  EXPECT_EQ(neutral.DataSource, "None");
  EXPECT_EQ(design.PZThick(2), 0);
  EXPECT_EQ(design.PZPolarity(2), 1);
  EXPECT_EQ(design.PZConnect, 0);
  EXPECT_EQ(design.PZConnectName, "None");
}

TEST_F(DesignModel, BothHalvesOfASingleLayerAreOfThatLayer) {
  design.NoPiezo = 1;
  SetLayer(1, 4000, 7500, 4e-4);
  PiezoLayers();
  for (const ChainValues* thick : {&design.FrontThick, &design.BackThick}) {
    EXPECT_EQ((*thick)(0), 2e-4);
  }
  for (const ChainValues* z : {&design.FrontZ, &design.BackZ}) {
    EXPECT_EQ((*z)(0), 3e7);
  }
  for (const ChainValues* velocity : {&design.FrontVel, &design.BackVel}) {
    EXPECT_EQ((*velocity)(0), 4000);
  }
  EXPECT_EQ(design.FrontArea(0), 1);
  EXPECT_EQ(design.BackArea(0), 1);
}

TEST_F(DesignModel, TwoLayersGiveTheFrontChainLayerTwoAndTheBackChainLayerOne) {
  design.NoPiezo = 2;
  design.PZConnect = 2;
  SetLayer(1, 4000, 7500, 4e-4);
  SetLayer(2, 5000, 6000, 3e-4);
  PiezoLayers();
  EXPECT_EQ(design.BackZ(0), 3e7);
  EXPECT_EQ(design.BackVel(0), 4000);
  EXPECT_EQ(design.BackThick(0), 2e-4);
  EXPECT_EQ(design.BackArea(0), 1);
  EXPECT_EQ(design.FrontZ(0), 3e7);
  EXPECT_EQ(design.FrontVel(0), 5000);
  EXPECT_EQ(design.FrontThick(0), 1.5e-4);
  EXPECT_EQ(design.FrontArea(0), 1);
  EXPECT_EQ(design.PZConnect, 2) << "a two-layer design keeps its connection";
  EXPECT_EQ(design.PZMatl(2).Velocity, 5000);
}

TEST_F(DesignModel, AnyCountButOneTakesTheFrontHalfFromLayerTwo) {
  SetLayer(1, 4000, 7500, 4e-4);
  SetLayer(2, 5000, 6500, 3e-4);
  for (const int count : {0, 2, 3}) {
    design.NoPiezo = static_cast<std::int16_t>(count);
    design.FrontZ(0) = 0;
    PiezoLayers();
    EXPECT_EQ(design.FrontZ(0), 5000 * 6500) << count;
    EXPECT_EQ(design.PZThick(2), 3e-4) << count << " layers: layer 2 is not made neutral";
  }
}

TEST_F(DesignModel, AnOverflowingImpedanceStopsPiezoLayersInItsOwnName) {
  design.NoPiezo = 1;
  SetLayer(1, 1e200, 1e200, 4e-4);
  PiezoLayers();
  EXPECT_EQ(shown.Lines(), Boxes{Box("PiezoLayers", 6)});
  EXPECT_EQ(design.BackVel(0), 0);
}

}  // namespace
}  // namespace halvorne::testing
