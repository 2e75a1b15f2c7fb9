#include <algorithm>
#include <cmath>

#include "dialogs/large_dialogs.h"

namespace halvorne::testing {
namespace {

class PiezoMaterialPage : public LargeDialogTest {
 protected:
  /// Opens the Material page, works it and drops what was done.
  void OnPage(const Act& act) {
    OpenPiezo([&act](const DialogDriver& driver) {
      driver.Click("CmdView(1)");
      act(driver);
      driver.Click("cmdPiezoCancel");
    });
  }
};

TEST_F(PiezoMaterialPage, ShowsEachFieldInItsPatternAndRoundsTheRecord) {
  PiezoMaterial& matl = design.PZMatl(1);
  matl.Velocity = 4000.4;
  matl.ShearVelocity = 2000.2;
  matl.Density = 7500.6;
  matl.Ks = 800.126;
  matl.Kt = 0.51239;
  matl.TanDe = 0.0123456;
  matl.TanDm = 0.0000061;
  matl.Vendor = "A vendor";
  matl.DataSource = "A sheet";
  OnPage([](const DialogDriver& driver) {
    EXPECT_EQ(driver.Text("txtPZMatlName"), "Test ceramic");
    EXPECT_EQ(driver.Text("txtPZLongVel"), "4000");
    EXPECT_EQ(driver.Text("txtPZShearVel"), "2000");
    EXPECT_EQ(driver.Text("txtPZDensity"), "7501");
    EXPECT_EQ(driver.Text("txtPZDielConst"), "800.13");
    EXPECT_EQ(driver.Text("txtPZCoupling"), "0.5124");
    EXPECT_EQ(driver.Text("txtPZTanDe"), "0.01235");
    EXPECT_EQ(driver.Text("txtPZTanDm"), "0.00001");
    EXPECT_EQ(driver.Text("txtPZVendor"), "A vendor");
    EXPECT_EQ(driver.Text("txtPZDataSource"), "A sheet");
    EXPECT_EQ(draft.TmpPZMatl(1).Velocity, 4000) << "merely showing it rounds the draft";
    EXPECT_EQ(draft.TmpPZMatl(1).Density, 7501);
    EXPECT_EQ(draft.TmpPZMatl(1).Kt, 0.5124);
  });
  EXPECT_EQ(design.PZMatl(1).Density, 7500.6) << "Cancel drops it";
}

TEST_F(PiezoMaterialPage, ShowsWhatFollowsFromDensityAndVelocities) {
  OnPage([](const DialogDriver& driver) {
    EXPECT_EQ(driver.Caption("lblLongZ"), "Longit. impedance 30.000 MRayls");
    EXPECT_EQ(driver.Caption("lblShearZ"), "Shear impedance 15.000 MRayls");
    EXPECT_EQ(driver.Caption("lblPoisson"), "Poisson's ratio 0.333");
    driver.Type("txtPZDensity", "8000");
    EXPECT_EQ(driver.Caption("lblLongZ"), "Longit. impedance 32.000 MRayls");
    driver.Type("txtPZShearVel", "0");
    EXPECT_EQ(driver.Caption("lblShearZ"), "Shear impedance 0.000 MRayls");
    EXPECT_EQ(driver.Caption("lblPoisson"), "Poisson's ratio 0.500");
  });
}

class PiezoBounds : public PiezoMaterialPage, public ::testing::WithParamInterface<TypedNumber> {};

TEST_P(PiezoBounds, ReplaceWhatLiesOutsideAtOnce) {
  OnPage([](const DialogDriver& driver) {
    ExpectTyped(driver, GetParam(), [] {
      const PiezoMaterial& matl = draft.TmpPZMatl(1);
      return FieldsByBox{{"txtPZLongVel", matl.Velocity}, {"txtPZShearVel", matl.ShearVelocity},
                         {"txtPZDensity", matl.Density},  {"txtPZDielConst", matl.Ks},
                         {"txtPZCoupling", matl.Kt},      {"txtPZTanDe", matl.TanDe},
                         {"txtPZTanDm", matl.TanDm}};
    });
  });
}

INSTANTIATE_TEST_SUITE_P(
    Of, PiezoBounds,
    ::testing::Values(
        TypedNumber{"txtPZLongVel", "0.5", "5", 5},  // "0" is 1 at once, "." and "5"
        TypedNumber{"txtPZLongVel", "abc", "1.0", 1}, TypedNumber{"txtPZLongVel", "", "1.0", 1},
        TypedNumber{"txtPZShearVel", "-1", "0.0", 0},
        TypedNumber{"txtPZShearVel", "words", "words", 0},
        TypedNumber{"txtPZShearVel", "2829", "2828.4", 2828.4},
        TypedNumber{"txtPZDensity", "", "1", 1}, TypedNumber{"txtPZDensity", "heavy", "1", 1},
        TypedNumber{"txtPZDensity", "100001", "100000", 100000},
        TypedNumber{"txtPZDensity", "7700", "7700", 7700},
        TypedNumber{"txtPZDielConst", "", "1.00", 1},
        TypedNumber{"txtPZDielConst", "1000001", "1000000.00", 1000000},
        TypedNumber{"txtPZCoupling", "-0.1", "0.0000", 0},
        TypedNumber{"txtPZCoupling", "0.99995", "0.9999", 0.9999},
        TypedNumber{"txtPZTanDe", "-1", "0.00000", 0}, TypedNumber{"txtPZTanDe", "2", "1.00000", 1},
        TypedNumber{"txtPZTanDm", "-1", "0.0000", 0}, TypedNumber{"txtPZTanDm", "2", "1.0000", 1}));

TEST_F(PiezoMaterialPage, ABoundThatTookTheTextsPlaceIsOverwrittenByTheNextDigit) {
  OnPage([](const DialogDriver& driver) {
    auto* const density = driver.Find<QLineEdit>("txtPZDensity");
    density->setFocus();
    density->selectAll();
    QTest::keyClick(density, Qt::Key_Backspace);
    EXPECT_EQ(driver.Text("txtPZDensity"), "1") << "a cleared box shows its bound at once";
    EXPECT_EQ(density->selectedText().toStdString(), "1");
    QTest::keyClicks(density, "500");
    EXPECT_EQ(driver.Text("txtPZDensity"), "500");
    density->setCursorPosition(1);
    QTest::keyClicks(density, "9999");
    EXPECT_EQ(driver.Text("txtPZDensity"), "100000");
    EXPECT_EQ(density->cursorPosition(), 5) << "the text cursor stays where it was typed";
  });
}

TEST_F(PiezoMaterialPage, LongitudinalVelocityKeepsPoissonsRatio) {
  OnPage([](const DialogDriver& driver) {
    driver.Type("txtPZLongVel", "5000");
    EXPECT_EQ(driver.Text("txtPZShearVel"), "2500.0");
    EXPECT_EQ(draft.TmpPZMatl(1).ShearVelocity, 2500);
    EXPECT_EQ(driver.Caption("lblPoisson"), "Poisson's ratio 0.333");
    EXPECT_EQ(driver.Caption("lblLongZ"), "Longit. impedance 37.500 MRayls");
  });
}

// 4500 / sqrt(2) is 3181.98, which one decimal rounds up beyond the limit.
TEST_F(PiezoMaterialPage, ShearVelocityNeverMakesPoissonsRatioNegative) {
  OnPage([](const DialogDriver& driver) {
    driver.Type("txtPZLongVel", "4500");
    driver.Type("txtPZShearVel", "4000");
    EXPECT_EQ(driver.Text("txtPZShearVel"), "3181.9");
    EXPECT_EQ(draft.TmpPZMatl(1).ShearVelocity, 3181.9);
    EXPECT_EQ(driver.Caption("lblPoisson"), "Poisson's ratio 0.000");
  });
}

// The ratio of the layer that was on show goes over to the one that comes.
TEST_F(PiezoMaterialPage, ALayerOfAnotherVelocityTakesTheRatioThatStoodBefore) {
  design.NoPiezo = 2;
  design.PZMatl(2) = design.PZMatl(1);
  design.PZMatl(2).Velocity = 3000;
  design.PZMatl(2).ShearVelocity = 1000;
  OnPage([](const DialogDriver& driver) {
    EXPECT_TRUE(driver.Visible("fraPZLayer"));
    EXPECT_EQ(driver.Text("txtPZShearVel"), "2000");
    driver.Click("optPZLayer(1)");
    EXPECT_EQ(driver.Text("txtPZLongVel"), "3000");
    EXPECT_EQ(driver.Text("txtPZShearVel"), "1500");
    EXPECT_EQ(draft.TmpPZMatl(2).ShearVelocity, 1500);
    EXPECT_EQ(entry.CurPZLayer, 2);
  });
}

TEST_F(PiezoMaterialPage, ALayerOfTheSameVelocityKeepsItsShearVelocity) {
  design.NoPiezo = 2;
  design.PZMatl(2) = design.PZMatl(1);
  design.PZMatl(2).ShearVelocity = 1000;
  OnPage([](const DialogDriver& driver) {
    driver.Click("optPZLayer(1)");
    EXPECT_EQ(driver.Text("txtPZShearVel"), "1000");
  });
}

TEST_F(PiezoMaterialPage, TheRatioStartsFromLayer1WhicheverIsShown) {
  design.NoPiezo = 2;
  design.PZMatl(2) = design.PZMatl(1);
  design.PZMatl(2).Velocity = 3000;
  design.PZMatl(2).ShearVelocity = 1000;
  entry.PZDBReturn = true;
  entry.CurPZLayer = 2;
  OpenPiezo([](const DialogDriver& driver) {
    EXPECT_EQ(driver.Text("txtPZShearVel"), "1500") << "3000 m/s at the ratio of layer 1";
    driver.Click("cmdPiezoCancel");
  });
}

TEST_F(PiezoMaterialPage, LeavingALayerStoresWhatItsPageShows) {
  design.NoPiezo = 2;
  design.PZMatl(2) = design.PZMatl(1);
  OnPage([](const DialogDriver& driver) {
    driver.Type("txtPZMatlName", "Rear one");
    driver.Click("optPZLayer(1)");
    driver.Type("txtPZMatlName", "Front one");
    driver.Click("CmdView(0)");
    EXPECT_EQ(driver.Caption("lblPZName(0)"), "Rear one");
    EXPECT_EQ(driver.Caption("lblPZName(1)"), "Front one");
    driver.Click("CmdView(1)");
    EXPECT_TRUE(driver.Chosen("optPZLayer(1)")) << "the layer on show is remembered";
  });
}

TEST_F(PiezoMaterialPage, LeavingThePageKeepsMillimetresAndMovesWavelengths) {
  OnPage([](const DialogDriver& driver) {
    driver.Type("txtPZLongVel", "5000");
    EXPECT_EQ(driver.Text("txtPZLambda(0)"), "0.50000");
    driver.Click("CmdView(0)");
    EXPECT_EQ(driver.Text("txtPZmm(0)"), "0.40000");
    EXPECT_EQ(driver.Text("txtPZLambda(0)"), "0.40000");
    EXPECT_EQ(driver.Caption("lblFp"), "Parallel resonant freq Fp = 6.250 MHz");
    EXPECT_EQ(draft.TmpPZThick(1), 0.0004);
  });
}

TEST_F(PiezoMaterialPage, ATextThatNobodyTouchedKeepsItsBytes) {
  const std::string latin = "Gr\xFCn";  // not UTF-8, from an old file
  design.PZMatl(1).Name = latin;
  OpenPiezo([](const DialogDriver& driver) {
    driver.Click("CmdView(1)");
    EXPECT_EQ(driver.Text("txtPZMatlName"), "Grün");
    driver.Click("CmdView(0)");
    driver.Click("cmdPiezoOK");
  });
  EXPECT_EQ(design.PZMatl(1).Name, latin);
}

TEST_F(PiezoMaterialPage, AnyTextAtAllIsTaken) {
  OnPage([](const DialogDriver& driver) {
    for (const char* text : {"1e400", "-1e400", "1E308", "NaN", "inf", "0x10", "1,5", "  7  ", "--",
                             "\xE2\x82\xAC", "99999999999999999999"}) {
      for (const char* box : {"txtPZLongVel", "txtPZShearVel", "txtPZDensity", "txtPZDielConst",
                              "txtPZCoupling", "txtPZTanDe", "txtPZTanDm", "txtPZMatlName"}) {
        driver.Find<QLineEdit>(box)->setText(QString::fromUtf8(text));
      }
    }
    const PiezoMaterial& matl = draft.TmpPZMatl(1);
    for (const double value : {matl.Velocity, matl.ShearVelocity, matl.Density, matl.Ks, matl.Kt,
                               matl.TanDe, matl.TanDm}) {
      EXPECT_TRUE(std::isfinite(value));
    }
  });
}

}  // namespace
}  // namespace halvorne::testing
