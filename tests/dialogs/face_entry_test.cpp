#include <algorithm>

#include "dialogs/frm_face_entry.h"
#include "dialogs/large_dialogs.h"
#include "dialogs/material_browsers.h"
#include "persistence/design_file.h"
#include "platform/qt/forms.h"
#include "plot/plot_state.h"

namespace halvorne::testing {
namespace {

class PlatesDialog : public LargeDialogTest {
 protected:
  PlatesDialog() {
    MakePlates(design.FaceMatl, design.FrontThick, design.FrontArea);
    MakePlates(design.BackMatl, design.BackThick, design.BackArea);
  }

  /// Ten plates of 2500 m/s, 1950 kg/m^3 and 0.125 mm; at 5 MHz a quarter of a wavelength.
  static void MakePlates(PlateMaterials& materials, ChainValues& thick, ChainValues& area) {
    for (int plate = 1; plate <= kMaxPlates; ++plate) {
      AcousticMaterial& matl = materials(plate);
      matl.Name = "Plate " + std::to_string(plate);
      matl.Velocity = 2500;
      matl.ShearVelocity = 1200;
      matl.Density = 1950;
      matl.LossFreq = matl.LossExp = 1;
      thick(plate) = 0.000125;
      area(plate) = 1;
    }
  }
  static void Cancel(const DialogDriver& driver) { driver.Click("cmdFaceCancel"); }
  static void Accept(const DialogDriver& driver) { driver.Click("cmdFaceOK"); }
  static std::string Title(const DialogDriver& driver) {
    return driver.Find<QWidget>("cmdFaceOK")->window()->windowTitle().toStdString();
  }
  static std::string Row(const char* control, int index) {
    return std::string(control) + "(" + std::to_string(index) + ")";
  }
};

TEST_F(PlatesDialog, BothSidesCarryTheirWords) {
  design.NoFace = 1;
  OpenPlates("Face", [](const DialogDriver& driver) {
    EXPECT_EQ(Title(driver), "Faceplate Entry");
    EXPECT_EQ(driver.Caption("lblNumAcLayers"), "Number of Faceplates");
    EXPECT_EQ(driver.Find<QLabel>("Label10")->text().toStdString(), "Current Faceplate");
    Cancel(driver);
  });
  OpenPlates("Back", [](const DialogDriver& driver) {
    EXPECT_EQ(Title(driver), "Backplate Entry");
    EXPECT_EQ(driver.Caption("lblNumAcLayers"), "Number of Backplates");
    EXPECT_EQ(driver.Find<QLabel>("Label10")->text().toStdString(), "Current Backplate");
    Cancel(driver);
  });
}

TEST_F(PlatesDialog, OpensOnTheThicknessOfItsPlates) {
  design.NoFace = 2;
  design.FrontArea(2) = 0.5;
  OpenPlates("Face", [](const DialogDriver& driver) {
    EXPECT_TRUE(driver.Visible("FrameThick"));
    EXPECT_EQ(driver.Text("txtNFace"), " 2") << "with a leading blank";
    EXPECT_EQ(driver.Caption("lblFdes"), "Design center freq Fd = 5.000 MHz");
    EXPECT_EQ(driver.Caption("lblFaceNum(1)"), "2");
    EXPECT_EQ(driver.Caption("lblFaceMatl(1)"), "Plate 2");
    EXPECT_EQ(driver.Caption("lblZ(1)"), "4.88") << "1950 x 2500 is 4.875 MRayls";
    EXPECT_EQ(driver.Text("txtFaceArea(1)"), "0.5000");
    EXPECT_EQ(driver.Text("txtFaceMM(0)"), "0.12500");
    EXPECT_EQ(driver.Text("txtFaceLambda(0)"), "0.25000");
    EXPECT_FALSE(driver.Visible("txtFaceMM(2)"));
    EXPECT_TRUE(driver.Visible("CmdView(1)"));
    EXPECT_FALSE(driver.Enabled("CmdView(2)"));
    EXPECT_TRUE(driver.Enabled("chkAcVelDisp"));
    Cancel(driver);
  });
}

TEST_F(PlatesDialog, WithoutPlatesThereIsNoMaterialAndNoDispersion) {
  OpenPlates("Back", [](const DialogDriver& driver) {
    EXPECT_EQ(driver.Text("txtNFace"), " 0");
    EXPECT_FALSE(driver.Visible("CmdView(1)"));
    EXPECT_FALSE(driver.Enabled("chkAcVelDisp"));
    EXPECT_EQ(driver.Text("TxtCurrentLayer"), "");
    Cancel(driver);
  });
}

TEST_F(PlatesDialog, ANewPlateIsBlankWhateverItsRecordHeld) {
  design.NoFace = 1;
  OpenPlates("Face", [](const DialogDriver& driver) {
    driver.Click("CmdFaceNumberUP");
    EXPECT_EQ(driver.Text("txtNFace"), " 2");
    EXPECT_EQ(driver.Caption("lblFaceMatl(1)"), "Blank");
    EXPECT_EQ(driver.Caption("lblZ(1)"), "2.00");
    EXPECT_EQ(driver.Text("txtFaceArea(1)"), "1.0000");
    EXPECT_EQ(driver.Text("txtFaceLambda(1)"), "0.00000");
    EXPECT_EQ(driver.Text("txtFaceMM(1)"), "0.00000");
    EXPECT_EQ(driver.Text("TxtCurrentLayer"), "1");
    Accept(driver);
  });
  EXPECT_EQ(design.NoFace, 2);
  const AcousticMaterial& plate = design.FaceMatl(2);
  EXPECT_EQ(plate.Name, "Blank");
  EXPECT_EQ(plate.Velocity, 2000);
  EXPECT_EQ(plate.ShearVelocity, 1000);
  EXPECT_EQ(plate.Density, 1000);
  EXPECT_EQ(plate.Loss, 0);
  EXPECT_EQ(plate.LossFreq, 1);
  EXPECT_EQ(plate.LossExp, 1);
  EXPECT_EQ(plate.Vendor, "Blank");
  EXPECT_EQ(plate.Formula, "Blank");
  EXPECT_EQ(plate.Comments, "None");
  EXPECT_EQ(plate.DataSource, "Blank");
  EXPECT_EQ(design.FrontThick(2), 0);
  EXPECT_EQ(design.FrontArea(2), 1);
  EXPECT_EQ(design.FaceMatl(3).Name, "Plate 3") << "plates beyond the number keep their data";
}

TEST_F(PlatesDialog, APlateThatWentComesBackBlank) {
  design.NoFace = 3;
  OpenPlates("Face", [](const DialogDriver& driver) {
    driver.Click("CmdFaceNumberDown");
    EXPECT_FALSE(driver.Visible("lblFaceNum(2)"));
    EXPECT_EQ(draft.TmpAcMatl(3).Name, "Plate 3") << "its record stays until then";
    driver.Click("CmdFaceNumberUP");
    EXPECT_EQ(draft.TmpAcMatl(3).Name, "Blank");
    EXPECT_EQ(draft.TmpAcMatl(3).Velocity, 2000);
    EXPECT_EQ(draft.TmpPlateThick(2), 0);
    Cancel(driver);
  });
}

TEST_F(PlatesDialog, TenPlatesAreTheMost) {
  design.NoBack = 10;
  OpenPlates("Back", [](const DialogDriver& driver) {
    driver.Click("CmdFaceNumberUP");
    EXPECT_EQ(driver.Text("txtNFace"), " 10");
    EXPECT_EQ(draft.TmpNoPlates, 10);
    EXPECT_EQ(draft.TmpAcMatl(10).Name, "Plate 10");
    EXPECT_EQ(driver.Text("TxtCurrentLayer"), "") << "nothing else changes";
    Cancel(driver);
  });
}

TEST_F(PlatesDialog, DownAtNoPlateStaysThereAndClearsTheSwitch) {
  design.NoFace = 1;
  design.FaceVelDispOn = true;
  design.VelDisp(1, 0) = 0.5;
  OpenPlates("Face", [](const DialogDriver& driver) {
    EXPECT_TRUE(driver.Chosen("chkAcVelDisp"));
    driver.Click("CmdFaceNumberDown");
    EXPECT_FALSE(driver.Chosen("chkAcVelDisp"));
    EXPECT_FALSE(driver.Enabled("chkAcVelDisp"));
    EXPECT_FALSE(driver.Visible("CmdView(1)"));
    EXPECT_EQ(driver.Text("TxtCurrentLayer"), "");
    EXPECT_EQ(design.VelDisp(1, 0), 1) << "the tables are in place";
    driver.Click("CmdFaceNumberDown");
    EXPECT_EQ(driver.Text("txtNFace"), " 0");
    driver.Click("CmdFaceNumberUP");
    EXPECT_TRUE(driver.Enabled("chkAcVelDisp"));
    EXPECT_EQ(driver.Text("TxtCurrentLayer"), "1");
    Cancel(driver);
  });
  EXPECT_EQ(design.VelDisp(1, 0), 0.5) << "Cancel brings them back";
}

TEST_F(PlatesDialog, ArrowKeysWorkTheUpAndDownButtons) {
  OpenPlates("Face", [](const DialogDriver& driver) {
    auto* const up = driver.Find<QWidget>("CmdFaceNumberUP");
    EXPECT_TRUE(up->hasFocus()) << "where there is no plate yet";
    QTest::keyClick(up, Qt::Key_Up);
    QTest::keyClick(up, Qt::Key_Up);
    EXPECT_EQ(driver.Text("txtNFace"), " 2");
    QTest::keyClick(driver.Find<QWidget>("CmdFaceNumberDown"), Qt::Key_Down);
    EXPECT_EQ(driver.Text("txtNFace"), " 1");
    QTest::keyClick(driver.Find<QWidget>("CmdFaceNumberDown"), Qt::Key_Space);
    EXPECT_EQ(driver.Text("txtNFace"), " 0");
    Cancel(driver);
  });
}

TEST_F(PlatesDialog, ThicknessIsStoredAtEveryChangeOfEitherBox) {
  design.NoFace = 1;
  OpenPlates("Face", [](const DialogDriver& driver) {
    driver.Type("txtFaceMM(0)", "0.25");
    EXPECT_EQ(driver.Text("txtFaceLambda(0)"), "0.50000");
    EXPECT_DOUBLE_EQ(draft.TmpPlateThick(0), 0.00025) << "before the box is left";
    driver.Type("txtFaceLambda(0)", "1");
    EXPECT_EQ(driver.Text("txtFaceMM(0)"), "0.50000");
    EXPECT_DOUBLE_EQ(draft.TmpPlateThick(0), 0.0005);
    QTest::keyClick(driver.Find<QWidget>("txtFaceLambda(0)"), Qt::Key_Tab);
    EXPECT_EQ(driver.Text("txtFaceLambda(0)"), "1.00000");
    Accept(driver);
  });
  EXPECT_DOUBLE_EQ(design.FrontThick(1), 0.0005);
  EXPECT_EQ(design.FrontThick(0), 0.0002) << "half the piezoelectric layer is no plate";
  EXPECT_EQ(design.DesignNew, 65535);
}

TEST_F(PlatesDialog, NegativeThicknessesAndAreasAreCorrectedAtOnce) {
  design.NoFace = 1;
  OpenPlates("Face", [](const DialogDriver& driver) {
    driver.Type("txtFaceArea(0)", "-2");
    EXPECT_EQ(driver.Text("txtFaceArea(0)"), "1.0000");
    EXPECT_EQ(draft.TmpPlateArea(0), 1);
    driver.Type("txtFaceArea(0)", "wide");
    EXPECT_EQ(draft.TmpPlateArea(0), 0);
    driver.Type("txtFaceMM(0)", "-1");
    EXPECT_EQ(driver.Text("txtFaceMM(0)"), "0.00000");
    EXPECT_EQ(draft.TmpPlateThick(0), 0);
    driver.Type("txtFaceLambda(0)", "-1");
    EXPECT_EQ(driver.Text("txtFaceLambda(0)"), "0.00000");
    driver.Type("txtFaceArea(0)", ".5");
    QTest::keyClick(driver.Find<QWidget>("txtFaceArea(0)"), Qt::Key_Tab);
    EXPECT_EQ(driver.Text("txtFaceArea(0)"), "0.5000");
    Cancel(driver);
  });
}

TEST_F(PlatesDialog, OnlyTheLeadingColumnConverts) {
  design.NoFace = 1;
  OpenPlates("Face", [](const DialogDriver& driver) {
    driver.Find<QWidget>("txtFaceLambda(0)")->setFocus();
    driver.Find<QLineEdit>("txtFaceMM(0)")->setText("0.5");
    EXPECT_EQ(driver.Text("txtFaceLambda(0)"), "0.25000");
    EXPECT_DOUBLE_EQ(draft.TmpPlateThick(0), 0.000125);
    Cancel(driver);
  });
}

TEST_F(PlatesDialog, CancelLeavesDesignAndPlotUntouched) {
  design.NoBack = 1;
  for (const bool escape : {false, true}) {
    OpenPlates("Back", [escape](const DialogDriver& driver) {
      driver.Type("txtFaceMM(0)", "1");
      driver.Click("CmdFaceNumberUP");
      driver.Click("chkAcVelDisp");
      driver.Click("CmdView(1)");
      driver.Type("txtAcMatlName", "Other");
      escape ? driver.Press(Qt::Key_Escape) : Cancel(driver);
    });
    EXPECT_EQ(design.NoBack, 1);
    EXPECT_EQ(design.BackThick(1), 0.000125);
    EXPECT_EQ(design.BackMatl(1).Name, "Plate 1");
    EXPECT_FALSE(design.BackVelDispOn);
    EXPECT_FALSE(entry.PlatesAccepted);
    EXPECT_EQ(design.DesignNew, 0);
  }
}

TEST_F(PlatesDialog, OkTakesTheSwitchOfItsSideOnly) {
  design.NoBack = 1;
  OpenPlates("Back", [](const DialogDriver& driver) {
    driver.Click("chkAcVelDisp");
    EXPECT_FALSE(design.BackVelDispOn);
    driver.Press(Qt::Key_Return);
  });
  EXPECT_TRUE(design.BackVelDispOn);
  EXPECT_FALSE(design.FaceVelDispOn);
  EXPECT_EQ(design.DesignNew, 65535);
}

TEST_F(PlatesDialog, TheWindowsCloseButtonActsAsTheDialogWasLeftLast) {
  design.NoFace = 1;
  const auto typeAndClose = [](const DialogDriver& driver) {
    driver.Type("txtFaceMM(0)", "1");
    driver.Find<QWidget>("cmdFaceOK")->window()->close();
  };
  OpenPlates("Face", typeAndClose);
  EXPECT_EQ(design.FrontThick(1), 0.000125) << "nothing was accepted yet";
  OpenPlates("Face", Accept);
  OpenPlates("Face", typeAndClose);
  EXPECT_DOUBLE_EQ(design.FrontThick(1), 0.001) << "accepted last, so accepted again";
}

TEST_F(PlatesDialog, ADispersionPlotThatLosesItsPlatesIsLeftBeforeItIsDrawn) {
  design.NoFace = 1;
  view.CurrentPlot = 51;
  OpenPlates("Face", [](const DialogDriver& driver) {
    driver.Click("CmdFaceNumberDown");
    Accept(driver);
  });
  EXPECT_EQ(view.CurrentPlot, 52);
  EXPECT_EQ(plot.PlotTitle, "Velocity dispersion in piezoelectric layer");
  EXPECT_TRUE(shownMessages.Shown().empty());
}

TEST_F(PlatesDialog, AHiddenInstanceIsUnloadedBeforeItsOwnOpens) {
  design.NoFace = 1;
  frmFaceEntry::Loaded(nullptr);
  EXPECT_EQ(FormCount("frmFaceEntry"), 1);
  design.NoFace = 2;
  OpenPlates("Face", [](const DialogDriver& driver) {
    EXPECT_EQ(driver.Text("txtNFace"), " 2");
    Cancel(driver);
  });
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_EQ(FormCount("frmFaceEntry"), 0);
}

TEST_F(PlatesDialog, ALoadedInstanceIsTheOneThatIsShown) {
  design.NoFace = 1;
  design.PZVelDispOn = false;
  entry.PlateSide = "Face";
  draft.TmpNoPlates = 1;
  draft.TmpAcMatl(1) = design.FaceMatl(1);
  entry.CurAcLayer = 1;
  frmFaceEntry::Loaded(nullptr).CmdView_Click(1);
  ExpectDialog("frmFaceEntry", [](const DialogDriver& driver) {
    EXPECT_TRUE(driver.Visible("FrameMaterial")) << "the page that was chosen while it was hidden";
    EXPECT_EQ(driver.Text("txtAcMatlName"), "Plate 1");
    Cancel(driver);
  });
  frmFaceEntry::ShowModal(nullptr);
  EXPECT_EQ(FormCount("frmFaceEntry"), 0);
}

TEST_F(PlatesDialog, ComingBackFromTheBrowserOpensOnTheMaterialOfItsPlate) {
  entry.PlateSide = "Face";
  entry.AcDBReturn = true;
  entry.CurAcLayer = 2;
  draft.TmpNoPlates = 2;
  draft.TmpAcMatl(2) = design.FaceMatl(2);
  ExpectDialog("frmFaceEntry", [](const DialogDriver& driver) {
    EXPECT_TRUE(driver.Visible("FrameMaterial"));
    EXPECT_EQ(driver.Text("txtMatlLayer"), "2");
    EXPECT_EQ(driver.Text("txtAcMatlName"), "Plate 2");
    EXPECT_FALSE(entry.AcDBReturn) << "the flag is used up";
    Cancel(driver);
  });
  frmFaceEntry::ShowModal(nullptr);
}

TEST_F(PlatesDialog, TheMenuCommandDropsAReturnFromTheBrowserAndAPlateThatIsNoMore) {
  design.NoFace = 2;
  entry.AcDBReturn = true;
  entry.CurAcLayer = 7;
  OpenPlates("Face", [](const DialogDriver& driver) {
    EXPECT_TRUE(driver.Visible("FrameThick"));
    driver.Click("CmdView(1)");
    EXPECT_EQ(driver.Text("txtMatlLayer"), "1");
    Cancel(driver);
  });
}

TEST_F(PlatesDialog, TheBrowserIsReachedOnlyWhereThereIsOne) {
  design.NoFace = 1;
  bool reached = false;
  OpenPlates("Face", [](const DialogDriver& driver) {
    driver.Click("CmdView(1)");
    EXPECT_FALSE(driver.Enabled("cmdOpenAcousticDB"));
    Cancel(driver);
  });
  materialBrowsers().ShowAcousticDB = [&reached](QWidget*) {
    reached = true;
    EXPECT_EQ(draft.TmpAcMatl(1).Name, "Typed");
  };
  OpenPlates("Face", [](const DialogDriver& driver) {
    driver.Click("CmdView(1)");
    driver.Type("txtAcMatlName", "Typed");
    driver.Click("cmdOpenAcousticDB");
  });
  materialBrowsers() = {};
  EXPECT_TRUE(reached);
  EXPECT_EQ(design.DesignNew, 0);
}

TEST_F(PlatesDialog, WhatWasCommittedAndSavedIsShownAgain) {
  design.ElementShape = 1;
  OpenPlates("Back", [](const DialogDriver& driver) {
    driver.Click("CmdFaceNumberUP");
    driver.Click("CmdFaceNumberUP");
    driver.Type("txtFaceMM(1)", "0.75");
    driver.Type("txtFaceArea(1)", "0.25");
    driver.Click("CmdView(1)");
    driver.Click("CmdMatlLayerUp");
    driver.Type("txtAcMatlName", "Tungsten epoxy");
    driver.Type("txtAcLoss", "12.5");
    driver.Type("txtAcComments", "Cast, then turned");
    Accept(driver);
  });
  WriteDesignFile(Path("saved.dat"));
  ResetProgram();
  SetMainWindow(&window);
  ReadDesignFile(Path("saved.dat"));
  OpenPlates("Back", [](const DialogDriver& driver) {
    EXPECT_EQ(driver.Text("txtNFace"), " 2");
    EXPECT_EQ(driver.Text("txtFaceMM(1)"), "0.75000");
    EXPECT_EQ(driver.Text("txtFaceArea(1)"), "0.2500");
    EXPECT_EQ(driver.Caption("lblFaceMatl(1)"), "Tungsten epoxy");
    driver.Click("CmdView(1)");
    EXPECT_EQ(driver.Text("txtMatlLayer"), "2") << "the plate that was on show last";
    EXPECT_EQ(driver.Text("txtAcLoss"), "12.50");
    EXPECT_EQ(driver.Text("txtAcComments"), "Cast, then turned");
    Cancel(driver);
  });
}

}  // namespace
}  // namespace halvorne::testing
