#include <QFileDialog>
#include <algorithm>

#include "dialogs/large_dialogs.h"
#include "platform/paths.h"

namespace halvorne::testing {
namespace {

bool IsNeutral(int slot) {
  return std::ranges::all_of(design.VelDisp.rows(slot), [](double factor) { return factor == 1; });
}

/// A design whose dispersion is switched on, and files to load.
class DispersionEntry : public LargeDialogTest {
 protected:
  DispersionEntry() {
    std::filesystem::create_directory(Folder() / "Velocity dispersion");
    SetProgramFolder(Folder());
    design.PZVelDispOn = design.FaceVelDispOn = design.BackVelDispOn = true;
    design.NoFace = design.NoBack = 2;
    for (const int slot : {0, 1, 2, 11, 12, 13}) {
      design.VelDisp(slot, 0) = 0.5;
      design.VelDispNames(slot, 0) = "old.csv";
      design.VelDispNames(slot, 1) = "old words";
    }
    for (int plate = 1; plate <= 2; ++plate) {
      for (AcousticMaterial* matl : {&design.FaceMatl(plate), &design.BackMatl(plate)}) {
        matl->Velocity = 2500;
        matl->Density = 1000;
        matl->LossFreq = 1;
      }
      design.FrontArea(plate) = design.BackArea(plate) = 1;
    }
  }
  ~DispersionEntry() override { SetProgramFolder({}); }

  /// Presses "Select File" and chooses a file; none when the path is empty.
  void Load(const DialogDriver& driver, const std::string& path) {
    if (path.empty()) {
      script.ExpectCancelledFileDialog("File Open");
    } else {
      script.ExpectFileDialog("File Open", path);
    }
    driver.Click("CmdLoadFile");
  }
};

TEST_F(DispersionEntry, PiezoelectricPageNamesTheFileOfSlot0) {
  OpenPiezo([](const DialogDriver& driver) {
    EXPECT_TRUE(driver.Chosen("chkPZVelDisp"));
    EXPECT_EQ(design.VelDisp(0, 0), 0.5) << "opening wipes no table";
    driver.Click("CmdView(2)");
    EXPECT_TRUE(driver.Visible("FrameDispersion"));
    EXPECT_EQ(driver.Caption("Label10"), "Current PZT Layer");
    EXPECT_EQ(driver.Caption("LblComment"), "Comment : old words");
    EXPECT_EQ(driver.Caption("LblFilename"), "FileName : old.csv");
    driver.Click("cmdPiezoCancel");
  });
}

TEST_F(DispersionEntry, AFileFillsBothSlotsOfTheStack) {
  const std::string path = Put("new.csv", "new words\r\n0.9\r\n0.8\r\n");
  OpenPiezo([&](const DialogDriver& driver) {
    driver.Click("CmdView(2)");
    Load(driver, path);
    EXPECT_EQ(driver.Caption("LblComment"), "Comment : new words");
    EXPECT_EQ(driver.Caption("LblFilename"), "FileName : new.csv");
    driver.Click("cmdPiezoOK");
  });
  for (const int slot : {0, 11}) {
    EXPECT_EQ(design.VelDisp(slot, 0), 0.9);
    EXPECT_EQ(design.VelDisp(slot, 1), 0.8);
    EXPECT_EQ(design.VelDispNames(slot, 1), "new words");
  }
  EXPECT_EQ(design.VelDispNames(1, 1), "old words");
  EXPECT_TRUE(design.PZVelDispOn);
}

TEST_F(DispersionEntry, FileDialogShowsTheFolderAndTheEndingOfTheseFiles) {
  OpenPiezo([&](const DialogDriver& driver) {
    driver.Click("CmdView(2)");
    script.ExpectFileDialog("File Open", [this](QFileDialog& dialog) {
      EXPECT_EQ(dialog.directory().absolutePath().toStdString(),
                (Folder() / "Velocity dispersion").string());
      EXPECT_EQ(dialog.nameFilters(), (QStringList{"All Files (*.*)", "Data Files (*.csv)"}));
      EXPECT_EQ(dialog.selectedNameFilter().toStdString(), "Data Files (*.csv)");
      EXPECT_EQ(dialog.findChild<QLineEdit*>("fileNameEdit")->text().toStdString(), "");
      QTest::keyClick(&dialog, Qt::Key_Escape);
    });
    driver.Click("CmdLoadFile");
    driver.Click("cmdPiezoCancel");
  });
}

TEST_F(DispersionEntry, ChoosingNoFileTakesTheOldOneOutWithoutABox) {
  OpenPiezo([&](const DialogDriver& driver) {
    driver.Click("CmdView(2)");
    Load(driver, "");
    EXPECT_EQ(driver.Caption("LblComment"), "Empty");
    EXPECT_EQ(driver.Caption("LblFilename"), "");
    driver.Click("cmdPiezoOK");
  });
  EXPECT_TRUE(IsNeutral(0));
  EXPECT_TRUE(IsNeutral(11));
  EXPECT_EQ(design.VelDispNames(11, 0), "");
  EXPECT_TRUE(shownMessages.Shown().empty());
}

// The table stays as far as it was read; the piezoelectric dialog's labels tell of the old file.
TEST_F(DispersionEntry, AFailedTableLeavesThePiezoelectricLabelsOld) {
  const std::string path = Put("bad.csv", "bad words\n0.9\n0,8\n0.7\n");
  OpenPiezo([&](const DialogDriver& driver) {
    driver.Click("CmdView(2)");
    Load(driver, path);
    EXPECT_EQ(driver.Caption("LblComment"), "Comment : old words");
    EXPECT_EQ(driver.Caption("LblFilename"), "FileName : old.csv");
    driver.Click("cmdPiezoOK");
  });
  EXPECT_EQ(shownMessages.Lines(),
            std::vector<std::string>{FileBoxLine("Open Velocity Dispersion File", 13)});
  EXPECT_EQ(shownMessages.Shown().at(0).icon, MessageIcon::kCritical);
  EXPECT_EQ(design.VelDispNames(0, 1), "bad words");
  EXPECT_EQ(design.VelDisp(11, 0), 0.9);
  EXPECT_EQ(design.VelDisp(11, 1), 1);
}

TEST_F(DispersionEntry, FilesThatCannotBeReadChangeNothing) {
  const std::string empty = Put("empty.csv", "");
  OpenPiezo([&](const DialogDriver& driver) {
    driver.Click("CmdView(2)");
    Load(driver, Path("missing.csv"));
    Load(driver, empty);
    EXPECT_EQ(driver.Caption("LblComment"), "Comment : old words");
    driver.Click("cmdPiezoOK");
  });
  EXPECT_EQ(shownMessages.Lines(),
            (std::vector<std::string>{FileBoxLine("Open Velocity Dispersion File", 53),
                                      FileBoxLine("Open Velocity Dispersion File", 62)}));
  EXPECT_EQ(design.VelDisp(0, 0), 0.5);
  EXPECT_EQ(design.VelDispNames(0, 0), "old.csv");
}

TEST_F(DispersionEntry, ClearingTheSwitchWipesTheTablesAtOnceAndCancelBringsThemBack) {
  for (const bool closeBox : {false, true}) {
    OpenPiezo([closeBox](const DialogDriver& driver) {
      driver.Click("chkPZVelDisp");
      EXPECT_TRUE(IsNeutral(0));
      EXPECT_TRUE(IsNeutral(11));
      EXPECT_EQ(design.VelDispNames(0, 0), "");
      EXPECT_FALSE(draft.TmpPZVelDispOn);
      EXPECT_FALSE(driver.Enabled("CmdView(2)"));
      EXPECT_EQ(design.VelDisp(1, 0), 0.5) << "the plates have their own";
      if (closeBox) {
        driver.Find<QWidget>("cmdPiezoOK")->window()->close();
      } else {
        driver.Click("cmdPiezoCancel");
      }
    });
    EXPECT_EQ(design.VelDisp(0, 0), 0.5);
    EXPECT_EQ(design.VelDisp(11, 0), 0.5);
    EXPECT_EQ(design.VelDispNames(11, 1), "old words");
    EXPECT_TRUE(design.PZVelDispOn);
  }
}

// A dialog that cannot be loaded whole is cancelled as any other.
TEST_F(DispersionEntry, CancelOfADialogThatFailedToLoadKeepsTheTables) {
  design.PZMatl(1).Velocity = 0;
  OpenPiezo([](const DialogDriver& driver) { driver.Click("cmdPiezoCancel"); });
  EXPECT_EQ(
      shownMessages.Lines(),
      std::vector<std::string>{"ERROR in Form_Load of frmPiezoEntry|Error: 11. Division by zero"});
  design.FreqScale = 0;
  shownMessages.Forget();
  OpenPlates("Back", [](const DialogDriver& driver) { driver.Click("cmdFaceCancel"); });
  EXPECT_EQ(
      shownMessages.Lines(),
      std::vector<std::string>{"ERROR in Form_Load of frmFaceEntry|Error: 11. Division by zero"});
  for (const int slot : {0, 11, 12, 13}) {
    EXPECT_EQ(design.VelDisp(slot, 0), 0.5) << slot;
    EXPECT_EQ(design.VelDisp(slot, 1), 1) << slot;
    EXPECT_EQ(design.VelDispNames(slot, 0), "old.csv") << slot;
  }
}

TEST_F(DispersionEntry, OkKeepsTheWipedTablesAndTheSwitch) {
  OpenPiezo([](const DialogDriver& driver) {
    driver.Click("chkPZVelDisp");
    driver.Click("cmdPiezoOK");
  });
  EXPECT_TRUE(IsNeutral(0));
  EXPECT_FALSE(design.PZVelDispOn);
  OpenPiezo([](const DialogDriver& driver) {
    driver.Click("chkPZVelDisp");
    driver.Click("CmdView(2)");
    EXPECT_EQ(driver.Caption("LblComment"), "Empty");
    driver.Click("cmdPiezoOK");
  });
  EXPECT_TRUE(design.PZVelDispOn);
}

/// The commit as the recalculation sees it.
class SwitchWatcher : public HeadlessWindow {
 public:
  void SetMousePointer(int pointer) override {
    if (pointer == kNormalPointer && watching) {
      seen = design.PZVelDispOn;
      watching = false;
    }
  }
  bool watching = false;
  bool seen = true;
};

TEST_F(DispersionEntry, TheSwitchIsTakenAfterTheRecalculation) {
  design.PZVelDispOn = false;
  SwitchWatcher watcher;
  SetMainWindow(&watcher);
  OpenPiezo([&watcher](const DialogDriver& driver) {
    driver.Click("chkPZVelDisp");
    watcher.watching = true;
    driver.Click("cmdPiezoOK");
  });
  EXPECT_FALSE(watcher.seen) << "the old switch stood while it was calculated";
  EXPECT_TRUE(design.PZVelDispOn);
  SetMainWindow(&window);
}

TEST_F(DispersionEntry, PlatesPageLeadsThroughThePlatesOfItsSide) {
  design.VelDispNames(13, 1) = "second words";
  OpenPlates("Back", [](const DialogDriver& driver) {
    driver.Click("CmdView(2)");
    EXPECT_EQ(driver.Text("TxtCurrentLayer"), "1");
    EXPECT_EQ(driver.Caption("LblComment"), "Comment : old words");
    driver.Click("CmdLayerUp");
    EXPECT_EQ(driver.Text("TxtCurrentLayer"), "2");
    EXPECT_EQ(driver.Caption("LblComment"), "Comment : second words");
    driver.Click("CmdLayerUp");
    EXPECT_EQ(driver.Text("TxtCurrentLayer"), "2") << "there are no more";
    QTest::keyClick(driver.Find<QWidget>("CmdLayerUp"), Qt::Key_Down);
    driver.Click("CmdLayerDown");
    EXPECT_EQ(driver.Text("TxtCurrentLayer"), "1");
    driver.Click("cmdFaceCancel");
  });
}

TEST_F(DispersionEntry, APlatesFileFillsOneSlotOnly) {
  const std::string path = Put("new.csv", "new words\n0.9\n");
  for (const auto& [side, slot] : {std::pair{"Face", 2}, {"Back", 13}}) {
    OpenPlates(side, [&](const DialogDriver& driver) {
      driver.Click("CmdView(2)");
      driver.Click("CmdLayerUp");
      Load(driver, path);
      EXPECT_EQ(driver.Caption("LblComment"), "Comment : new words");
      EXPECT_EQ(driver.Caption("LblFilename"), "FileName : new.csv");
      driver.Click("cmdFaceOK");
    });
    EXPECT_EQ(design.VelDisp(slot, 0), 0.9) << side;
    EXPECT_EQ(design.VelDispNames(slot, 0), "new.csv");
    EXPECT_EQ(design.VelDisp(slot - 1, 0), 0.5) << "the plate before keeps its own";
  }
}

// The page that names a slot anew takes a file without a comment for none.
TEST_F(DispersionEntry, OnlyThePlatesNameAFileWithoutAComment) {
  const std::string path = Put("bare.csv", "\n0.9\n");
  OpenPlates("Face", [&](const DialogDriver& driver) {
    driver.Click("CmdView(2)");
    Load(driver, path);
    EXPECT_EQ(driver.Caption("LblComment"), "Comment : ");
    EXPECT_EQ(driver.Caption("LblFilename"), "FileName : bare.csv");
    driver.Click("CmdLayerUp");
    driver.Click("CmdLayerDown");
    EXPECT_EQ(driver.Caption("LblComment"), "Empty");
    EXPECT_EQ(driver.Caption("LblFilename"), "");
    driver.Click("cmdFaceOK");
  });
  EXPECT_EQ(design.VelDispNames(1, 0), "bare.csv");
  EXPECT_EQ(design.VelDisp(1, 0), 0.9);
  OpenPiezo([&](const DialogDriver& driver) {
    driver.Click("CmdView(2)");
    Load(driver, path);
    EXPECT_EQ(driver.Caption("LblComment"), "Empty");
    EXPECT_EQ(driver.Caption("LblFilename"), "");
    driver.Click("cmdPiezoOK");
  });
  EXPECT_EQ(design.VelDispNames(11, 0), "bare.csv");
}

TEST_F(DispersionEntry, APlatesFileThatIsMissingLeavesTheLabels) {
  design.VelDispNames(1, 0) = design.VelDispNames(1, 1) = "";
  OpenPlates("Face", [&](const DialogDriver& driver) {
    driver.Click("CmdView(2)");
    Load(driver, Path("missing.csv"));
    EXPECT_EQ(driver.Caption("LblComment"), "Empty");
    EXPECT_EQ(driver.Caption("LblFilename"), "");
    driver.Click("cmdFaceCancel");
  });
}

TEST_F(DispersionEntry, ChoosingNoFileTakesThePlatesOut) {
  OpenPlates("Back", [&](const DialogDriver& driver) {
    driver.Click("CmdView(2)");
    Load(driver, "");
    EXPECT_EQ(driver.Caption("LblComment"), "Empty");
    driver.Click("cmdFaceOK");
  });
  EXPECT_TRUE(IsNeutral(12));
  EXPECT_EQ(design.VelDispNames(12, 1), "");
  EXPECT_EQ(design.VelDisp(13, 0), 0.5);
}

TEST_F(DispersionEntry, AFailedTableShowsThePlatesNewLabels) {
  const std::string path = Put("bad.csv", "bad words\n0.9\n1E999\n");
  OpenPlates("Face", [&](const DialogDriver& driver) {
    driver.Click("CmdView(2)");
    Load(driver, path);
    EXPECT_EQ(driver.Caption("LblComment"), "Comment : bad words");
    EXPECT_EQ(driver.Caption("LblFilename"), "FileName : bad.csv");
    Load(driver, Path("missing.csv"));
    EXPECT_EQ(driver.Caption("LblComment"), "Comment : bad words");
    driver.Click("cmdFaceOK");
  });
  EXPECT_EQ(shownMessages.Lines(),
            (std::vector<std::string>{FileBoxLine("open velocity dispersion file", 6),
                                      FileBoxLine("open velocity dispersion file", 53)}))
      << "with a small letter at the begin of the title";
  EXPECT_EQ(design.VelDisp(1, 0), 0.9);
}

TEST_F(DispersionEntry, ClearingThePlatesSwitchWipesTheSlotsOfItsSideAndCancelBringsThemBack) {
  OpenPlates("Back", [](const DialogDriver& driver) {
    driver.Click("chkAcVelDisp");
    for (int slot = 12; slot <= 21; ++slot) {
      EXPECT_TRUE(IsNeutral(slot)) << slot;
      EXPECT_EQ(design.VelDispNames(slot, 1), "") << slot;
    }
    EXPECT_EQ(design.VelDisp(11, 0), 0.5);
    EXPECT_EQ(design.VelDisp(1, 0), 0.5);
    EXPECT_FALSE(driver.Enabled("CmdView(2)"));
    driver.Click("cmdFaceCancel");
  });
  EXPECT_EQ(design.VelDisp(12, 0), 0.5);
  EXPECT_EQ(design.VelDispNames(13, 0), "old.csv");
  EXPECT_TRUE(design.BackVelDispOn);
}

TEST_F(DispersionEntry, ClosingThePlatesByTheirWindowLeavesTheTablesAsTheyStand) {
  OpenPlates("Face", [](const DialogDriver& driver) {
    driver.Click("chkAcVelDisp");
    driver.Find<QWidget>("cmdFaceOK")->window()->close();
  });
  EXPECT_TRUE(IsNeutral(1));
}

}  // namespace
}  // namespace halvorne::testing
