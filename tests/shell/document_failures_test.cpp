#include <QCheckBox>
#include <QTest>
#include <filesystem>
#include <fstream>
#include <sys/stat.h>
#include <unistd.h>

#include "engine/design_model.h"
#include "persistence/setup_state.h"
#include "plot/plot_state.h"
#include "shell/window_test.h"
#include "support/full_disk.h"

namespace halvorne::testing {
namespace {

namespace fs = std::filesystem;

/// Nothing in a folder may be written while this stands, not even by root, who steps down for it.
class ReadOnlyFolder {
 public:
  explicit ReadOnlyFolder(const fs::path& folder) : folder_(folder) {
    Permit(0555);
    if (geteuid() == 0) {
      constexpr uid_t nobody = 65534;
      EXPECT_EQ(seteuid(nobody), 0);
    }
  }
  ~ReadOnlyFolder() {
    EXPECT_EQ(seteuid(getuid()), 0);
    Permit(0755);
  }
  ReadOnlyFolder(const ReadOnlyFolder&) = delete;
  ReadOnlyFolder& operator=(const ReadOnlyFolder&) = delete;

 private:
  void Permit(mode_t mode) const {
    chmod(folder_.c_str(), mode);
    for (const auto& entry : fs::recursive_directory_iterator(folder_)) {
      chmod(entry.path().c_str(), entry.is_directory() ? mode : mode & 0666U);
    }
  }

  fs::path folder_;
};

class DocumentFailures : public WindowTest {
 protected:
  const ExpectedBox openFailure{
      .title = "Halvorne",
      .text = "Error encountered while trying to open file, please retry.",
      .icon = QMessageBox::Warning};
  const ExpectedBox saveFailure{.title = "Halvorne Save File",
                                .text = "Error occurred trying to close file.",
                                .icon = QMessageBox::Warning};

  void SaveUnder(const std::string& name) {
    script.ExpectFileDialog("Save As", Data(name).string());
    if (fs::exists(Data(name))) {
      script.ExpectForm(
          "MsgBox", [](QWidget& own) { Press(static_cast<QMessageBox&>(own), QMessageBox::Yes); });
      script.Expect(Question("Halvorne Save File", "Overwrite existing file?", QMessageBox::Yes));
    }
  }
};

TEST_F(DocumentFailures, FileThatVanishesBehindTheDialogIsToldAndTheDesignStays) {
  StartWithDesign();
  fs::copy(design.DataFileName, Data("gone.dat"));
  script.ExpectFileDialog("File Open", [&](QFileDialog& dialog) {
    QObject::connect(&dialog, &QFileDialog::accepted, [&] { fs::remove(Data("gone.dat")); });
    EnterName(dialog, Data("gone.dat").string());
  });
  script.Expect(openFailure);
  ClickMenu("mnuFileItem(1)");
  EXPECT_EQ(main->windowTitle().toStdString(), "Halvorne: " + Data("gone.dat").string())
      << "the name is taken whatever the reader did";
  EXPECT_EQ(design.DesignTitle, "A probe");
  EXPECT_EQ(Screen(), CorePicture());
}

TEST_F(DocumentFailures, NameWithoutAFileIsToldByTheReader) {
  StartWithDesign();
  script.ExpectFileDialog("File Open", Data("none.dat").string());
  script.Expect(openFailure);
  ClickMenu("mnuFileItem(1)");
  EXPECT_EQ(main->windowTitle().toStdString(), "Halvorne: " + Data("none.dat").string());
  EXPECT_EQ(design.DesignTitle, "A probe");
  EXPECT_FALSE(fs::exists(Data("none.dat")));
}

TEST_F(DocumentFailures, FirstFileThatVanishesLeavesAnOpenDesignOfZeros) {
  const std::string path = MakeDesignFile();
  StartProgram();
  script.ExpectFileDialog("File Open", [&](QFileDialog& dialog) {
    QObject::connect(&dialog, &QFileDialog::accepted, [&] { fs::remove(path); });
    EnterName(dialog, path);
  });
  script.Expect(openFailure);
  // A design of zeros has no frequency scale; both looks at the axis fail on it.
  ExpectedBox axis =
      FailureBox("ERROR in GetPlotFreqTimeScale of PLOTIT", "Error: 11. Division by zero");
  script.Expect(axis);
  axis.offersSilence = true;
  script.Expect(axis);
  Click("cmdFileOpen");
  EXPECT_TRUE(plot.DesignOpen);
  EXPECT_EQ(main->windowTitle().toStdString(), "Halvorne: " + path);
}

TEST_F(DocumentFailures, CurvesThatAreCutOffAreToldOnceEachAndCanBeSilenced) {
  StartWithDesign();
  std::string cut = ReadFile(design.DataFileName);
  cut.resize(cut.find("[ Zfront Re, Im ]") + 40);
  std::ofstream(Data("cut.dat"), std::ios::binary) << cut;
  const ExpectedBox array =
      FailureBox("ERROR in AryInput2 of FILES", "Error: 62. Input past end of file");
  script.ExpectFileDialog("File Open", Data("cut.dat").string());
  script.Expect(array);
  script.Expect(openFailure);
  ClickMenu("mnuFileItem(1)");
  EXPECT_TRUE(plot.DesignOpen);
}

TEST_F(DocumentFailures, FullDiskLeavesTheDesignUnsavedAndSavableElsewhere) {
  StartWithDesign();
  const std::string whole = ReadFile(Data("probe.dat"));
  design.DesignNew = 65535;
  {
    const FullDisk full(512);
    SaveUnder("full.dat");
    script.Expect(saveFailure);
    ClickMenu("mnuFileItem(2)");
  }
  EXPECT_EQ(design.DesignNew, 65535) << "the design counts as saved";
  EXPECT_EQ(ReadFile(Data("full.dat")), whole.substr(0, 512)) << "what fitted stays on disk";
  EXPECT_EQ(main->windowTitle().toStdString(), "Halvorne: " + Data("full.dat").string());
  EXPECT_EQ(ReadFile(Data("probe.dat")), whole) << "another file was touched";

  SaveUnder("elsewhere.dat");
  ClickMenu("mnuFileItem(2)");
  EXPECT_EQ(ReadFile(Data("elsewhere.dat")), whole);
  EXPECT_EQ(design.DesignNew, 0);
}

TEST_F(DocumentFailures, FullDiskOnAnOverwrittenFileIsToldOnceAndTheNextSaveMendsIt) {
  StartWithDesign();
  const std::string whole = ReadFile(Data("probe.dat"));
  {
    const FullDisk full(512);
    SaveUnder("probe.dat");
    script.Expect(saveFailure);
    ClickMenu("mnuFileItem(2)");
  }
  EXPECT_EQ(ReadFile(Data("probe.dat")), whole.substr(0, 512));
  SaveUnder("probe.dat");
  ClickMenu("mnuFileItem(2)");
  EXPECT_EQ(ReadFile(Data("probe.dat")), whole);
}

TEST_F(DocumentFailures, FullDiskOnCloseIsToldAndTheWindowClosesTheDesign) {
  StartWithDesign();
  const FullDisk full(512);
  script.Expect(Question("Halvorne Save File", "Overwrite existing file?", QMessageBox::Yes));
  script.Expect(saveFailure);
  ClickMenu("mnuFileItem(3)");
  EXPECT_FALSE(plot.DesignOpen) << "the writer's failure does not reach the command";
}

TEST_F(DocumentFailures, FullDiskUnderTheGraphsDataHasItsTitle) {
  StartWithDesign();
  const FullDisk full(512);
  script.ExpectFileDialog("Save As", Data("GRAPH1.DAT").string());
  script.Expect(FileBox("Open Error", 75, "Path/File access error"));
  ClickMenu("mnuEditSaveGraphData");
  EXPECT_EQ(main->cursor().shape(), Qt::ArrowCursor) << "the pointer stays busy";
}

TEST_F(DocumentFailures, ReadOnlyProgramFolderIsToldAtEachChangeAndThePlotsGoOn) {
  const std::string path = MakeDesignFile();
  StartProgram();
  const std::string before = ReadFile(Folder() / "HALVORNESETUP");
  const ReadOnlyFolder readOnly(Folder());
  const ExpectedBox setupFailure =
      FailureBox("ERROR in writeHalvorneSetup of FILES", "Error: 70. Permission denied");
  script.ExpectFileDialog("File Open", path);
  script.Expect(setupFailure);
  ClickMenu("mnuFileItem(1)");
  EXPECT_EQ(Screen(), CorePicture());
  script.Expect(setupFailure);
  ClickMenu("mnuViewRxEff");
  EXPECT_EQ(view.CurrentPlot, 23);
  EXPECT_EQ(Screen(), CorePicture());

  SaveUnder("copy.dat");
  script.Expect(saveFailure);
  ClickMenu("mnuFileItem(2)");
  EXPECT_EQ(ReadFile(Folder() / "HALVORNESETUP"), before);
}

TEST_F(DocumentFailures, FileThatMayNotBeReadIsAnOpenFailure) {
  StartWithDesign();
  fs::create_directory(Data("folder.dat"));
  script.Expect(openFailure);
  main->OpenDesign(Data("folder.dat").string());
  EXPECT_TRUE(plot.DesignOpen);
}

TEST_F(DocumentFailures, DesignOpensWithoutASetupFileAndItsPlotsCanBeChosen) {
  fs::remove(Folder() / "HALVORNESETUP");
  const std::string path = MakeDesignFile();
  script.Expect(FailureBox("ERROR in ReadHalvorneSetup of FILES", "Error: 53. File not found"));
  StartProgram();
  OpenFile(path);
  EXPECT_TRUE(plot.DesignOpen);
  EXPECT_TRUE(fs::exists(Folder() / "HALVORNESETUP")) << "the first plot writes the file";
  ClickMenu("mnuViewTxTFPress");
  EXPECT_EQ(view.CurrentPlot, 14);
  EXPECT_TRUE(ReadFile(Folder() / "HALVORNESETUP").starts_with("14\r\n"));
}

}  // namespace
}  // namespace halvorne::testing
