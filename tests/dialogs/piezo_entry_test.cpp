#include <algorithm>
#include <cmath>
#include <cstring>

#include "dialogs/large_dialogs.h"
#include "dialogs/material_browsers.h"
#include "persistence/design_file.h"
#include "plot/plot_state.h"

namespace halvorne::testing {
namespace {

class PiezoDialog : public LargeDialogTest {
 protected:
  /// A second layer like the first one, of half its thickness.
  static void MakeTwoLayers() {
    design.NoPiezo = 2;
    design.PZMatl(2) = design.PZMatl(1);
    design.PZMatl(2).Name = "Front ceramic";
    design.PZThick(2) = 0.0002;
    design.PZPolarity(2) = -1;
    design.PZConnect = 1;
    design.PZConnectName = "Series";
  }
  static void Cancel(const DialogDriver& driver) { driver.Click("cmdPiezoCancel"); }
  static void Accept(const DialogDriver& driver) { driver.Click("cmdPiezoOK"); }
};

TEST_F(PiezoDialog, OneLayerOpensOnItsThicknessAndOnParallel) {
  OpenPiezo([](const DialogDriver& driver) {
    EXPECT_EQ(driver.Find<QAbstractButton>("CmdView(0)")->window()->windowTitle().toStdString(),
              "Piezoelectric Layers");
    EXPECT_TRUE(driver.Visible("FrameThickness"));
    EXPECT_FALSE(driver.Visible("FrameMaterial"));
    EXPECT_FALSE(driver.Visible("FrameDispersion"));
    EXPECT_TRUE(driver.Chosen("optPiezoNum(0)"));
    EXPECT_EQ(driver.Caption("lblPZName(0)"), "Test ceramic");
    EXPECT_EQ(driver.Text("txtPZmm(0)"), "0.40000");
    EXPECT_EQ(driver.Text("txtPZLambda(0)"), "0.50000") << "0.4 mm at 5 MHz and 4000 m/s";
    EXPECT_EQ(driver.Text("txtPZpolar(0)"), "+");
    EXPECT_EQ(driver.Caption("lblFd"), "Design center freq Fd = 5.000 MHz");
    EXPECT_EQ(driver.Caption("lblFp"), "Parallel resonant freq Fp = 5.000 MHz");
    for (const char* hidden : {"fraConnection", "lblNoPzLayers", "lblPiezoNum(0)", "lblPiezoNum(1)",
                               "lblPZName(1)", "txtPZLambda(1)", "txtPZmm(1)", "txtPZpolar(1)"}) {
      EXPECT_FALSE(driver.Visible(hidden)) << hidden;
    }
    EXPECT_TRUE(driver.Chosen("optPZConnect(1)"));
    EXPECT_EQ(draft.TmpPZConnect, 2) << "a connection 0 becomes that of the option that opens";
    EXPECT_FALSE(driver.Enabled("CmdView(2)"));
    EXPECT_EQ(entry.CurPZLayer, 1);
    Cancel(driver);
  });
}

TEST_F(PiezoDialog, TwoLayersOpenWithTheFrontOneAtPlusWhateverWasStored) {
  MakeTwoLayers();
  OpenPiezo([](const DialogDriver& driver) {
    EXPECT_TRUE(driver.Chosen("optPiezoNum(1)"));
    EXPECT_TRUE(driver.Chosen("optPZConnect(0)"));
    EXPECT_TRUE(driver.Visible("fraConnection"));
    EXPECT_TRUE(driver.Visible("lblNoPzLayers"));
    EXPECT_EQ(driver.Caption("lblPZName(1)"), "Front ceramic");
    EXPECT_EQ(driver.Text("txtPZmm(1)"), "0.20000");
    EXPECT_EQ(driver.Text("txtPZLambda(1)"), "0.25000");
    EXPECT_EQ(driver.Text("txtPZpolar(1)"), "+");
    EXPECT_EQ(driver.Caption("lblFp"),
              "Parallel resonant freq Fp(rear) = 5.000 MHz, Fp(front) = 10.000 MHz");
    Accept(driver);
  });
  EXPECT_EQ(design.PZPolarity(2), 1);
  EXPECT_EQ(design.PZConnect, 1);
  EXPECT_EQ(design.PZConnectName, "Series");
}

TEST_F(PiezoDialog, AClickOrTheSpaceBarTurnsAPolarity) {
  MakeTwoLayers();
  OpenPiezo([](const DialogDriver& driver) {
    auto* const front = driver.Find<QLineEdit>("txtPZpolar(1)");
    EXPECT_EQ(front->cursor().shape(), Qt::PointingHandCursor);
    QTest::mouseClick(front, Qt::LeftButton);
    EXPECT_EQ(driver.Text("txtPZpolar(1)"), "-");
    EXPECT_EQ(draft.TmpPZPolarity(2), -1);
    QTest::keyClick(driver.Find<QWidget>("txtPZpolar(0)"), Qt::Key_Space);
    EXPECT_EQ(driver.Text("txtPZpolar(0)"), "-");
    QTest::keyClicks(front, "+x");
    EXPECT_EQ(driver.Text("txtPZpolar(1)"), "-") << "it cannot be typed in";
    Accept(driver);
  });
  EXPECT_EQ(design.PZPolarity(1), -1);
  EXPECT_EQ(design.PZPolarity(2), -1);
}

TEST_F(PiezoDialog, TwoToOneAndBackBringsTheThicknessBackAndPlus) {
  MakeTwoLayers();
  OpenPiezo([](const DialogDriver& driver) {
    QTest::mouseClick(driver.Find<QWidget>("txtPZpolar(1)"), Qt::LeftButton);
    driver.Click("optPiezoNum(0)");
    EXPECT_EQ(draft.TmpNoPiezo, 1);
    EXPECT_FALSE(driver.Visible("txtPZmm(1)"));
    EXPECT_FALSE(driver.Visible("fraConnection"));
    EXPECT_EQ(driver.Caption("lblFp"), "Parallel resonant freq Fp = 5.000 MHz");
    driver.Click("optPiezoNum(1)");
    EXPECT_EQ(draft.TmpNoPiezo, 2);
    EXPECT_EQ(driver.Text("txtPZmm(1)"), "0.20000");
    EXPECT_EQ(driver.Text("txtPZpolar(1)"), "+");
    EXPECT_EQ(draft.TmpPZPolarity(2), 1);
    EXPECT_TRUE(driver.Visible("lblPiezoNum(0)"));
    EXPECT_TRUE(driver.Visible("fraConnection"));
    EXPECT_FALSE(driver.Visible("lblNoPzLayers")) << "the heading comes back with the next opening";
    Cancel(driver);
  });
}

TEST_F(PiezoDialog, ChoosingTwoFillsTheFrontWavelengthsWhateverColumnLed) {
  design.PZMatl(2) = design.PZMatl(1);
  design.PZThick(2) = 0.0002;
  OpenPiezo([](const DialogDriver& driver) {
    driver.Find<QWidget>("txtPZLambda(0)")->setFocus();
    EXPECT_EQ(entry.ThicknessFocus, 1);
    driver.Click("optPiezoNum(1)");
    EXPECT_EQ(driver.Text("txtPZLambda(1)"), "0.25000");
    EXPECT_EQ(driver.Text("txtPZmm(1)"), "0.20000");
    Cancel(driver);
  });
}

TEST_F(PiezoDialog, ConnectionIsThatOfTheOption) {
  MakeTwoLayers();
  OpenPiezo([](const DialogDriver& driver) {
    driver.Click("optPZConnect(1)");
    EXPECT_EQ(draft.TmpPZConnectName, "Parallel");
    Accept(driver);
  });
  EXPECT_EQ(design.PZConnect, 2);
  EXPECT_EQ(design.PZConnectName, "Parallel");
}

// A typed millimetre value reaches the draft only when its box is left.
TEST_F(PiezoDialog, MillimetresAreStoredWhenTheirBoxIsLeft) {
  OpenPiezo([](const DialogDriver& driver) {
    driver.Type("txtPZmm(0)", "0.8");
    EXPECT_EQ(driver.Text("txtPZmm(0)"), "0.8");
    EXPECT_EQ(driver.Text("txtPZLambda(0)"), "1.00000");
    EXPECT_EQ(driver.Caption("lblFp"), "Parallel resonant freq Fp = 2.500 MHz");
    EXPECT_EQ(draft.TmpPZThick(1), 0.0004);
    QTest::keyClick(driver.Find<QWidget>("txtPZmm(0)"), Qt::Key_Tab);
    EXPECT_EQ(driver.Text("txtPZmm(0)"), "0.80000");
    EXPECT_DOUBLE_EQ(draft.TmpPZThick(1), 0.0008);
    Cancel(driver);
  });
  EXPECT_EQ(design.PZThick(1), 0.0004);
}

TEST_F(PiezoDialog, ReturnInAMillimetreBoxStoresWhatWasTyped) {
  OpenPiezo([](const DialogDriver& driver) {
    driver.Type("txtPZmm(0)", "0.8");
    QTest::keyClick(driver.Find<QWidget>("txtPZmm(0)"), Qt::Key_Return);
  });
  EXPECT_DOUBLE_EQ(design.PZThick(1), 0.0008);
  EXPECT_DOUBLE_EQ(design.PZFa(1), 2.5e6);
  EXPECT_EQ(design.DesignNew, 65535);
}

TEST_F(PiezoDialog, WavelengthsAreStoredAsTheyAreTyped) {
  OpenPiezo([](const DialogDriver& driver) {
    driver.Type("txtPZLambda(0)", "0.25");
    EXPECT_EQ(driver.Text("txtPZLambda(0)"), "0.25");
    EXPECT_EQ(driver.Text("txtPZmm(0)"), "0.20000");
    EXPECT_DOUBLE_EQ(draft.TmpPZThick(1), 0.0002);
    EXPECT_EQ(driver.Caption("lblFp"), "Parallel resonant freq Fp = 10.000 MHz");
    QTest::keyClick(driver.Find<QWidget>("txtPZLambda(0)"), Qt::Key_Tab);
    EXPECT_EQ(driver.Text("txtPZLambda(0)"), "0.25000");
    driver.Type("txtPZLambda(0)", "-1");
    EXPECT_EQ(driver.Text("txtPZmm(0)"), "-0.80000") << "there is no bound";
    EXPECT_EQ(driver.Caption("lblFp"), "Parallel resonant freq Fp = 0.000 MHz");
    driver.Type("txtPZLambda(0)", "half");
    EXPECT_EQ(driver.Text("txtPZmm(0)"), "0.00000");
    Cancel(driver);
  });
}

TEST_F(PiezoDialog, OnlyTheLeadingColumnConverts) {
  OpenPiezo([](const DialogDriver& driver) {
    driver.Find<QWidget>("txtPZLambda(0)")->setFocus();
    driver.Find<QLineEdit>("txtPZmm(0)")->setText("0.8");
    EXPECT_EQ(driver.Text("txtPZLambda(0)"), "0.50000");
    EXPECT_EQ(driver.Caption("lblFp"), "Parallel resonant freq Fp = 2.500 MHz");
    driver.Find<QWidget>("txtPZmm(0)")->setFocus();
    EXPECT_EQ(entry.ThicknessFocus, 2);
    driver.Find<QLineEdit>("txtPZLambda(0)")->setText("3");
    EXPECT_EQ(driver.Text("txtPZmm(0)"), "0.8");
    Cancel(driver);
  });
}

TEST_F(PiezoDialog, WithoutADesignFrequencyWavelengthsAreThoseAtOneHertz) {
  design.DesignFreq = 0;
  OpenPiezo([](const DialogDriver& driver) {
    EXPECT_EQ(driver.Text("txtPZLambda(0)"), "0.00000");
    driver.Type("txtPZLambda(0)", "2");
    EXPECT_EQ(driver.Text("txtPZmm(0)"), "8000000.00000") << "2 x 4000 m/s in mm";
    Cancel(driver);
  });
}

TEST_F(PiezoDialog, NothingThickResonatesAtNoFrequency) {
  OpenPiezo([](const DialogDriver& driver) {
    driver.Type("txtPZmm(0)", "0");
    EXPECT_EQ(driver.Caption("lblFp"), "Parallel resonant freq Fp = 0.000 MHz");
    Cancel(driver);
  });
}

TEST_F(PiezoDialog, CancelAndEscapeLeaveDesignAndPlotUntouched) {
  for (const bool escape : {false, true}) {
    OpenPiezo([escape](const DialogDriver& driver) {
      driver.Click("optPiezoNum(1)");
      driver.Type("txtPZmm(0)", "1");
      driver.Click("CmdView(1)");
      driver.Type("txtPZMatlName", "Other");
      driver.Type("txtPZDensity", "5000");
      escape ? driver.Press(Qt::Key_Escape) : Cancel(driver);
    });
    EXPECT_EQ(design.NoPiezo, 1);
    EXPECT_EQ(design.PZThick(1), 0.0004);
    EXPECT_EQ(design.PZMatl(1).Name, "Test ceramic");
    EXPECT_EQ(design.PZMatl(1).Density, 7500);
    EXPECT_EQ(design.DesignNew, 0) << "Cancel never recalculates";
  }
}

TEST_F(PiezoDialog, OkWithoutAChangeStillRecalculates) {
  OpenPiezo([](const DialogDriver& driver) { driver.Press(Qt::Key_Return); });
  EXPECT_EQ(design.DesignNew, 65535);
  EXPECT_EQ(design.PZConnect, 0);
  EXPECT_EQ(design.PZConnectName, "None");
  EXPECT_EQ(design.PZMatl(2).Velocity, 2000) << "the neutral layer of a single-layer design";
}

TEST_F(PiezoDialog, ARecalculationThatFailsTellsItAndLeavesTheDialogClosed) {
  OpenPiezo([](const DialogDriver& driver) {
    driver.Type("txtPZmm(0)", "0");
    driver.Press(Qt::Key_Return);
  });
  ASSERT_FALSE(shownMessages.Shown().empty());
  EXPECT_EQ(shownMessages.Lines().front(),
            "ERROR in PiezoConstants of CALCS|Error: 11. Division by zero");
  EXPECT_EQ(design.DesignNew, 65535);
}

// A number that has no place in a text is told, and the dialog goes on.
TEST_F(PiezoDialog, AnyTextAtAllIsTakenAsAThickness) {
  OpenPiezo([this](const DialogDriver& driver) {
    for (const char* box : {"txtPZmm(0)", "txtPZLambda(0)"}) {
      driver.Find<QWidget>(box)->setFocus();
      for (const char* text : {"", "abc", "1e400", "-", "1E-320", "0x10", "NaN", "\xE2\x82\xAC"}) {
        driver.Find<QLineEdit>(box)->setText(QString::fromUtf8(text));
      }
      shownMessages.Forget();
      driver.Find<QLineEdit>(box)->setText("1E308");
      EXPECT_EQ(shownMessages.Lines().at(0), "ERROR in " + std::string(box, std::strlen(box) - 3) +
                                                 "_Change of frmPiezoEntry|Error: 6. Overflow");
      driver.Find<QLineEdit>(box)->setText("0.5");
    }
    EXPECT_TRUE(driver.IsOpen());
    Cancel(driver);
  });
}

TEST_F(PiezoDialog, AMaterialWithoutVelocityIsToldAtTheOpening) {
  design.PZMatl(1).Velocity = 0;
  OpenPiezo([](const DialogDriver& driver) {
    EXPECT_TRUE(driver.Visible("FrameThickness"));
    EXPECT_FALSE(driver.Visible("FrameMaterial"));
    EXPECT_FALSE(driver.Visible("FrameDispersion"));
    Cancel(driver);
  });
  EXPECT_EQ(shownMessages.Lines().at(0),
            "ERROR in Form_Load of frmPiezoEntry|Error: 11. Division by zero");
}

TEST_F(PiezoDialog, TheBrowserIsReachedOnlyWhereThereIsOne) {
  OpenPiezo([](const DialogDriver& driver) {
    driver.Click("CmdView(1)");
    EXPECT_FALSE(driver.Enabled("cmdOpenPiezoDB"));
    Cancel(driver);
  });
  bool reached = false;
  materialBrowsers().ShowPiezoDB = [&reached](QWidget*) {
    reached = true;
    EXPECT_EQ(draft.TmpPZMatl(1).Name, "Typed") << "the page is stored before the browser opens";
    EXPECT_EQ(draft.TmpPZMatl(1).Density, 5000);
  };
  OpenPiezo([](const DialogDriver& driver) {
    driver.Click("CmdView(1)");
    driver.Type("txtPZMatlName", "Typed");
    driver.Type("txtPZDensity", "5000");
    driver.Click("cmdOpenPiezoDB");
  });
  materialBrowsers() = {};
  EXPECT_TRUE(reached);
  EXPECT_EQ(design.DesignNew, 0);
}

TEST_F(PiezoDialog, ComingBackFromTheBrowserOpensOnTheMaterialOfItsLayer) {
  MakeTwoLayers();
  entry.PZDBReturn = true;
  entry.CurPZLayer = 2;
  OpenPiezo([](const DialogDriver& driver) {
    EXPECT_TRUE(driver.Visible("FrameMaterial"));
    EXPECT_FALSE(driver.Visible("FrameThickness"));
    EXPECT_TRUE(driver.Chosen("optPZLayer(1)"));
    EXPECT_EQ(driver.Text("txtPZMatlName"), "Front ceramic");
    Cancel(driver);
  });
  EXPECT_TRUE(entry.PZDBReturn) << "the menu command leaves the flag to the browser";
}

TEST_F(PiezoDialog, WhatWasCommittedAndSavedIsShownAgain) {
  design.ElementShape = 1;
  const std::string path = Path("saved.dat");
  OpenPiezo([](const DialogDriver& driver) {
    driver.Click("optPiezoNum(1)");
    driver.Click("optPZConnect(0)");
    driver.Type("txtPZLambda(1)", "0.375");
    driver.Click("CmdView(1)");
    driver.Click("optPZLayer(1)");
    driver.Type("txtPZMatlName", "Ceramic \"K\"");
    driver.Type("txtPZLongVel", "4350");
    driver.Type("txtPZCoupling", "0.4812");
    driver.Type("txtPZTanDe", "0");
    Accept(driver);
  });
  WriteDesignFile(path);
  ResetProgram();
  SetMainWindow(&window);
  ReadDesignFile(path);
  OpenPiezo([](const DialogDriver& driver) {
    EXPECT_TRUE(driver.Chosen("optPiezoNum(1)"));
    EXPECT_TRUE(driver.Chosen("optPZConnect(0)"));
    driver.Click("CmdView(1)");
    driver.Click("optPZLayer(1)");
    EXPECT_EQ(driver.Text("txtPZMatlName"), "Ceramic ''K''")
        << "the file has two single quotes in place of a double one";
    EXPECT_EQ(driver.Text("txtPZLongVel"), "4350");
    EXPECT_EQ(driver.Text("txtPZCoupling"), "0.4812");
    EXPECT_EQ(driver.Text("txtPZTanDe"), "0.00001") << "a loss of 0 was stored as the least one";
    EXPECT_EQ(driver.Text("txtPZTanDm"), "0.00000");
    Cancel(driver);
  });
}

TEST_F(PiezoDialog, EveryPageIsReachedByTheKeyboardAlone) {
  MakeTwoLayers();
  design.PZVelDispOn = true;
  using Way = std::vector<std::string>;
  OpenPiezo([](const DialogDriver& driver) {
    EXPECT_EQ(driver.TabOrder(),
              (Way{"txtPZLambda(0)", "txtPZmm(0)", "txtPZpolar(0)", "txtPZLambda(1)", "txtPZmm(1)",
                   "txtPZpolar(1)", "cmdPiezoOK", "cmdPiezoCancel", "CmdView(0)", "chkPZVelDisp",
                   "optPiezoNum(1)", "optPZConnect(0)"}))
        << "the Tab key stops at the button of the page on show";
    driver.Find<QWidget>("CmdView(0)")->setFocus();
    QTest::keyClick(driver.Find<QWidget>("CmdView(0)"), Qt::Key_Right);
    EXPECT_TRUE(driver.Visible("FrameMaterial")) << "an arrow leads on to the next page";
    driver.Click("CmdView(0)");
    QWidget* const dialog = driver.Find<QWidget>("CmdView(0)")->window();
    QTest::keyClick(dialog, Qt::Key_M, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([&] { return driver.Visible("FrameMaterial"); }));
    EXPECT_EQ(driver.TabOrder(),
              (Way{"CmdView(1)", "optPZLayer(0)", "txtPZMatlName", "txtPZLongVel", "txtPZShearVel",
                   "txtPZDensity", "txtPZDielConst", "txtPZCoupling", "txtPZTanDe", "txtPZTanDm",
                   "txtPZVendor", "txtPZDataSource", "cmdPiezoOK", "cmdPiezoCancel"}));
    QTest::keyClick(dialog, Qt::Key_D, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([&] { return driver.Visible("FrameDispersion"); }));
    QTest::keyClick(dialog, Qt::Key_T, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([&] { return driver.Visible("FrameThickness"); }));
    Cancel(driver);
  });
}

}  // namespace
}  // namespace halvorne::testing
