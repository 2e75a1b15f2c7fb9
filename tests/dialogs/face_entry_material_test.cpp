#include "dialogs/large_dialogs.h"

namespace halvorne::testing {
namespace {

class PlateMaterialPage : public LargeDialogTest {
 protected:
  PlateMaterialPage() {
    design.NoFace = 3;
    for (int plate = 1; plate <= kMaxPlates; ++plate) {
      AcousticMaterial& matl = design.FaceMatl(plate);
      matl.Name = "Plate " + std::to_string(plate);
      matl.Velocity = 2400 + 100 * plate;
      matl.ShearVelocity = 1200;
      matl.Density = 1950;
      matl.Loss = 5.3F;
      matl.LossFreq = 1;
      matl.LossExp = 1.1F;
      design.FrontThick(plate) = 0.000123;
      design.FrontArea(plate) = 1;
    }
  }

  void OnPage(const Act& act) {
    OpenPlates("Face", [&act](const DialogDriver& driver) {
      driver.Click("CmdView(1)");
      act(driver);
      driver.Click("cmdFaceCancel");
    });
  }
};

TEST_F(PlateMaterialPage, ShowsEachFieldInItsPattern) {
  AcousticMaterial& matl = design.FaceMatl(1);
  matl.Velocity = 2500.26;
  matl.Density = 1950.06;
  matl.Vendor = "A vendor";
  matl.Formula = "Al2O3";
  matl.Comments = "Two\tthings";
  matl.DataSource = "A sheet";
  OnPage([](const DialogDriver& driver) {
    EXPECT_TRUE(driver.Visible("FrameMaterial"));
    EXPECT_EQ(driver.Text("txtMatlLayer"), "1");
    EXPECT_EQ(driver.Text("txtAcMatlName"), "Plate 1");
    EXPECT_EQ(driver.Text("txtAcLongVel"), "2500.3");
    EXPECT_EQ(driver.Text("txtAcDensity"), "1950.1");
    EXPECT_EQ(driver.Text("txtAcLoss"), "5.30");
    EXPECT_EQ(driver.Text("txtAcLossFreq"), "1.0000");
    EXPECT_EQ(driver.Text("txtAcLossExp"), "1.1000");
    EXPECT_EQ(driver.Text("txtAcVendor"), "A vendor");
    EXPECT_EQ(driver.Text("txtAcFormula"), "Al2O3");
    EXPECT_EQ(driver.Text("txtAcComments"), "Two\tthings");
    EXPECT_EQ(driver.Text("txtAcDataSource"), "A sheet");
    EXPECT_EQ(driver.Caption("lblLossFreqUnit"), "MHz");
    EXPECT_EQ(driver.Caption("lblLongZ"), "Longit. impedance 4.876 MRayls") << "of the texts";
    EXPECT_EQ(draft.TmpAcMatl(1).Velocity, 2500.3);
  });
}

// Unlike the piezoelectric dialog's the ratio starts at 0: 2500 / sqrt(2) is 1767.77, which one
// decimal rounds up beyond the limit.
TEST_F(PlateMaterialPage, TheFirstVisitTakesTheShearVelocityToItsLimit) {
  OnPage([](const DialogDriver& driver) {
    EXPECT_EQ(driver.Text("txtAcShearVel"), "1767.7");
    EXPECT_EQ(draft.TmpAcMatl(1).ShearVelocity, 1767.7);
    EXPECT_EQ(driver.Caption("lblPoisson"), "Poisson's ratio 0.000");
  });
  EXPECT_EQ(design.FaceMatl(1).ShearVelocity, 1200) << "Cancel drops it";
}

class PlateBounds : public PlateMaterialPage, public ::testing::WithParamInterface<TypedNumber> {};

TEST_P(PlateBounds, ReplaceWhatLiesOutsideAtOnce) {
  OnPage([](const DialogDriver& driver) {
    ExpectTyped(driver, GetParam(), [] {
      const AcousticMaterial& matl = draft.TmpAcMatl(1);
      return FieldsByBox{{"txtAcLongVel", matl.Velocity},  {"txtAcShearVel", matl.ShearVelocity},
                         {"txtAcDensity", matl.Density},   {"txtAcLoss", matl.Loss},
                         {"txtAcLossFreq", matl.LossFreq}, {"txtAcLossExp", matl.LossExp}};
    });
  });
}

INSTANTIATE_TEST_SUITE_P(Of, PlateBounds,
                         ::testing::Values(TypedNumber{"txtAcLongVel", "", "1.0", 1},
                                           TypedNumber{"txtAcShearVel", "-3", "0.0", 0},
                                           TypedNumber{"txtAcDensity", "x", "1", 1},
                                           TypedNumber{"txtAcDensity", "100001", "100000", 100000},
                                           TypedNumber{"txtAcLoss", "-1", "0.00", 0},
                                           TypedNumber{"txtAcLoss", "1001", "1000.00", 1000},
                                           TypedNumber{"txtAcLoss", "none", "none", 0},
                                           TypedNumber{"txtAcLossFreq", "-1", "0.0000", 0},
                                           TypedNumber{"txtAcLossFreq", "100001", "100000.0000",
                                                       100000},
                                           TypedNumber{"txtAcLossExp", "-1", "0.0000", 0},
                                           TypedNumber{"txtAcLossExp", "6", "5.0000", 5}));

TEST_F(PlateMaterialPage, UpAndDownLeadThroughThePlatesAndStoreTheOneThatIsLeft) {
  OnPage([](const DialogDriver& driver) {
    driver.Click("CmdMatlLayerDown");
    EXPECT_EQ(driver.Text("txtMatlLayer"), "1") << "there is none below";
    driver.Type("txtAcMatlName", "First");
    driver.Click("CmdMatlLayerUp");
    EXPECT_EQ(driver.Text("txtMatlLayer"), "2");
    EXPECT_EQ(driver.Text("txtAcMatlName"), "Plate 2");
    EXPECT_EQ(draft.TmpAcMatl(1).Name, "First");
    driver.Click("CmdMatlLayerUp");
    driver.Click("CmdMatlLayerUp");
    EXPECT_EQ(driver.Text("txtMatlLayer"), "3") << "nor one above";
    EXPECT_EQ(entry.CurAcLayer, 3);
    driver.Click("CmdView(0)");
    EXPECT_EQ(driver.Caption("lblFaceMatl(0)"), "First");
    driver.Click("CmdFaceNumberDown");
    EXPECT_EQ(entry.CurAcLayer, 3) << "not pulled back";
    driver.Click("CmdView(1)");
    EXPECT_EQ(driver.Text("txtMatlLayer"), "3");
    driver.Click("CmdMatlLayerUp");
    EXPECT_EQ(driver.Text("txtMatlLayer"), "2");
  });
}

// 0.123 mm at 5 MHz in a plate that became 2600 m/s are 0.236538 wavelengths.
TEST_F(PlateMaterialPage, LeavingThePageShowsFourDecimalsUntilTheBoxIsLeft) {
  OnPage([](const DialogDriver& driver) {
    driver.Type("txtAcLongVel", "2600");
    driver.Type("txtAcDensity", "1000");
    driver.Click("CmdView(0)");
    EXPECT_EQ(driver.Text("txtFaceLambda(0)"), "0.2365");
    EXPECT_EQ(driver.Text("txtFaceMM(0)"), "0.12300");
    EXPECT_EQ(driver.Caption("lblZ(0)"), "2.60");
    EXPECT_DOUBLE_EQ(draft.TmpPlateThick(0), 0.000123);
    driver.Find<QWidget>("txtFaceLambda(0)")->setFocus();
    EXPECT_EQ(driver.Text("txtFaceLambda(0)"), "0.2365");
    QTest::keyClick(driver.Find<QWidget>("txtFaceLambda(0)"), Qt::Key_Tab);
    EXPECT_EQ(driver.Text("txtFaceLambda(0)"), "0.23650");
    EXPECT_EQ(driver.Text("txtFaceMM(0)"), "0.12298") << "and what is rewritten counts";
  });
}

TEST_F(PlateMaterialPage, OkTakesWhatThePageShowsWithoutLeavingIt) {
  OpenPlates("Face", [](const DialogDriver& driver) {
    driver.Click("CmdView(1)");
    driver.Type("txtAcMatlName", "Mixed anew");
    driver.Type("txtAcLossExp", "1.5");
    driver.Press(Qt::Key_Return);
  });
  EXPECT_EQ(design.FaceMatl(1).Name, "Mixed anew");
  EXPECT_EQ(design.FaceMatl(1).LossExp, 1.5F);
  EXPECT_EQ(design.FrontLossExp(1), 1.5F) << "the sweep has used it";
}

}  // namespace
}  // namespace halvorne::testing
