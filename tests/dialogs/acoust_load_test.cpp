#include <QTemporaryDir>
#include <filesystem>
#include <fstream>

#include "dialogs/dialog_driver.h"
#include "dialogs/frm_acoust_load.h"
#include "platform/paths.h"
#include "plot/plot_state.h"
#include "shell/modal_script.h"

namespace halvorne::testing {
namespace {

using Lines = std::vector<std::string>;

/// The names of a side's controls and where it stands in the design.
struct SideNames {
  const char* words;
  const char *value, *real, *complex, *select, *fileName, *comment;
  const char* readerTitle;
  bool isFront;

  bool& Complex() const { return isFront ? design.ZFrontComplex : design.ZBackComplex; }
  std::string& File() const { return isFront ? design.ZFrontFile : design.ZBackFile; }
  std::string& Comment() const { return isFront ? design.ZFrontComment : design.ZBackComment; }
  FreqCurve& NormRe() const { return isFront ? design.ZFrontNormRe : design.ZBackNormRe; }
  FreqCurve& Re() const { return isFront ? design.ZFrontRe : design.ZBackRe; }
  FreqCurve& Im() const { return isFront ? design.ZFrontIm : design.ZBackIm; }
  double& Load() const { return isFront ? design.ZFrontLoad : design.ZBackLoad; }
};

constexpr SideNames kFront{"Front",
                           "txtAcoustFrontZ",
                           "OptFrontLoad(0)",
                           "OptFrontLoad(1)",
                           "CmdLoadFrontComplex",
                           "lblFrontFilename",
                           "lblFrontCmt",
                           "open Front Acoustic Load file",
                           true};
constexpr SideNames kRear{"Rear",
                          "txtAcoustBackZ",
                          "OptBackLoad(0)",
                          "OptBackLoad(1)",
                          "CmdLoadBackComplex",
                          "lblRearFilename",
                          "lblRearCmt",
                          "open Rear Acoustic Load file",
                          false};

class LoadDialog : public FreshProgram, public ::testing::WithParamInterface<SideNames> {
 protected:
  LoadDialog() {
    MakeSimpleDesign();
    SetProgramFolder(folder_.path().toStdString());
    std::filesystem::create_directory(folder_.filePath("Acoustic loads").toStdString());
    Put("Line.lac", "A mounting line\r\n0.5,-0.25\r\n2,1\r\n");
  }
  ~LoadDialog() override { EXPECT_TRUE(script.Finished()) << "a window did not come"; }

  std::string Put(const std::string& name, const std::string& bytes) const {
    std::ofstream(Path(name), std::ios::binary) << bytes;
    return Path(name);
  }
  std::string Path(const std::string& name) const {
    return (ProgramPath("\\Acoustic loads") / name).string();
  }
  const SideNames& Side() const { return GetParam(); }
  static std::string ReaderBox(const SideNames& side, int number, const std::string& words) {
    return std::string(side.readerTitle) + "|The following error occured: \r\nError # " +
           std::to_string(number) + "\r\n" + words;
  }

  ModalScript script;

 private:
  QTemporaryDir folder_;
};

INSTANTIATE_TEST_SUITE_P(Of, LoadDialog, ::testing::Values(kFront, kRear),
                         [](const auto& side) { return std::string(side.param.words); });

TEST_P(LoadDialog, ShowsARealLoad) {
  frmAcoustLoad dialog;
  const DialogDriver driver(dialog);
  EXPECT_EQ(driver.Text("txtAcoustFrontZ"), "1.500");
  EXPECT_EQ(driver.Text("txtAcoustBackZ"), "3.000");
  EXPECT_TRUE(driver.Chosen(Side().real));
  EXPECT_FALSE(driver.Enabled(Side().select));
  EXPECT_FALSE(driver.Visible(Side().fileName));
  EXPECT_FALSE(driver.Visible(Side().comment));
}

TEST_P(LoadDialog, ShowsAComplexLoadWithoutAskingForItsFile) {
  Side().Complex() = true;
  Side().File() = "/loads/x.lac";
  Side().Comment() = "Water";
  frmAcoustLoad dialog;
  const DialogDriver driver(dialog);
  EXPECT_TRUE(driver.Chosen(Side().complex));
  EXPECT_TRUE(driver.Enabled(Side().select));
  EXPECT_TRUE(driver.Visible(Side().fileName));
  EXPECT_EQ(driver.Caption(Side().fileName), "File name: /loads/x.lac");
  EXPECT_EQ(driver.Caption(Side().comment), "Comment: Water");
  const SideNames& other = Side().isFront ? kRear : kFront;
  EXPECT_TRUE(driver.Chosen(other.real));
}

TEST_P(LoadDialog, ChoosingComplexAsksForTheFileAtOnce) {
  frmAcoustLoad dialog;
  const DialogDriver driver(dialog);
  script.ExpectFileDialog("File Open", [&](QFileDialog& files) {
    EXPECT_EQ(files.objectName(), QStringLiteral("CmDialogX"));
    EXPECT_EQ(files.directory().absolutePath().toStdString(),
              ProgramPath("\\Acoustic loads").string());
    EXPECT_EQ(files.nameFilters(), (QStringList{"Acoustic load Files (*.lac)", "All Files (*.*)"}));
    EXPECT_EQ(files.selectedNameFilter(), QStringLiteral("Acoustic load Files (*.lac)"));
    EnterName(files, Path("Line.lac"));
  });
  driver.Click(Side().complex);
  EXPECT_TRUE(Side().Complex());
  EXPECT_EQ(Side().File(), Path("Line.lac")) << "with its folder";
  EXPECT_EQ(Side().Comment(), "A mounting line");
  EXPECT_EQ(Side().NormRe()(1), 2);
  EXPECT_TRUE(driver.Enabled(Side().select));
  EXPECT_TRUE(driver.Visible(Side().fileName));
  EXPECT_EQ(driver.Caption(Side().fileName), "File name: " + Path("Line.lac"));
  EXPECT_EQ(driver.Caption(Side().comment), "Comment: A mounting line");
  EXPECT_EQ(design.DesignNew, 0) << "nothing is calculated before OK";

  driver.Click("cmdAcoustTermOK");
  EXPECT_FALSE(driver.IsOpen());
  EXPECT_DOUBLE_EQ(Side().Re()(0), 0.5 * Side().Load());
  EXPECT_DOUBLE_EQ(Side().Im()(0), -0.25 * Side().Load());
  EXPECT_EQ(design.DesignNew, 65535);

  frmAcoustLoad again;
  EXPECT_EQ(DialogDriver(again).Caption(Side().fileName), "File name: " + Path("Line.lac"));
}

TEST_P(LoadDialog, ChoosingComplexAgainWithoutRealInBetweenDoesNotAsk) {
  {
    frmAcoustLoad dialog;
    const DialogDriver driver(dialog);
    script.ExpectFileDialog("File Open", Path("Line.lac"));
    driver.Click(Side().complex);
    driver.Click("cmdAcoustTermCancel");
  }
  Side().Complex() = false;  // as another design's would be
  frmAcoustLoad dialog;
  const DialogDriver driver(dialog);
  driver.Click(Side().complex);
  EXPECT_TRUE(script.Finished());
  EXPECT_TRUE(Side().Complex());
  EXPECT_TRUE(driver.Visible(Side().fileName));

  driver.Click(Side().real);
  script.ExpectFileDialog("File Open", Path("Line.lac"));
  driver.Click(Side().complex);
  EXPECT_TRUE(script.Finished()) << "behind Real it asks again";
}

TEST_P(LoadDialog, ClosingTheFileDialogIsToldAndTheSideStaysComplex) {
  frmAcoustLoad dialog;
  const DialogDriver driver(dialog);
  script.ExpectCancelledFileDialog("File Open");
  driver.Click(Side().complex);
  EXPECT_EQ(shownMessages.Lines(), Lines{ReaderBox(Side(), 53, "File not found")})
      << "one box for one failure";
  EXPECT_TRUE(Side().Complex());
  EXPECT_EQ(Side().File(), "");
  EXPECT_TRUE(driver.Chosen(Side().complex));
  EXPECT_EQ(driver.Caption(Side().fileName), "File name: ");
  EXPECT_TRUE(driver.Visible(Side().comment));
}

TEST_P(LoadDialog, SelectFileReadsAnotherFile) {
  Side().Complex() = true;
  frmAcoustLoad dialog;
  const DialogDriver driver(dialog);
  script.ExpectFileDialog("File Open", Path("Line.lac"));
  driver.Click(Side().select);
  EXPECT_EQ(driver.Caption(Side().comment), "Comment: A mounting line");
  const std::string broken = Put("Broken.lac", "Half a file\r\n7,7\r\nohms\r\n");
  script.ExpectFileDialog("File Open", broken);
  driver.Click(Side().select);
  EXPECT_EQ(shownMessages.Lines(), Lines{ReaderBox(Side(), 13, "Type mismatch")});
  EXPECT_EQ(driver.Caption(Side().fileName), "File name: " + broken);
  EXPECT_EQ(driver.Caption(Side().comment), "Comment: Half a file");
  EXPECT_EQ(Side().NormRe()(0), 7) << "the points so far stay";
  EXPECT_EQ(Side().NormRe()(1), 2);
}

TEST_P(LoadDialog, CancelKeepsWhatWasChosenAndCalculatesNothing) {
  frmAcoustLoad dialog;
  const DialogDriver driver(dialog);
  driver.Type(Side().value, "9");
  script.ExpectFileDialog("File Open", Path("Line.lac"));
  driver.Click(Side().complex);
  const double inForce = Side().Re()(0);
  driver.Press(Qt::Key_Escape);
  EXPECT_FALSE(driver.IsOpen());
  EXPECT_TRUE(Side().Complex());
  EXPECT_EQ(Side().NormRe()(0), 0.5);
  EXPECT_EQ(Side().Re()(0), inForce);
  EXPECT_NE(Side().Load(), 9e6);
  EXPECT_EQ(design.DesignNew, 0);
}

// Kept: the rear side forgets its file's name at once, the front side only on OK.
TEST_P(LoadDialog, RealHidesTheFileAndOnlyTheRearSideForgetsItsName) {
  Side().Complex() = true;
  Side().File() = "/loads/x.lac";
  frmAcoustLoad dialog;
  const DialogDriver driver(dialog);
  driver.Click(Side().real);
  EXPECT_FALSE(Side().Complex());
  EXPECT_FALSE(driver.Visible(Side().fileName));
  EXPECT_FALSE(driver.Visible(Side().comment));
  EXPECT_FALSE(driver.Enabled(Side().select));
  EXPECT_EQ(Side().File(), Side().isFront ? "/loads/x.lac" : "");
  driver.Click("cmdAcoustTermOK");
  EXPECT_EQ(Side().File(), "blank");
  EXPECT_EQ(Side().Comment(), "none");
}

TEST_P(LoadDialog, TakesAnyNumberAndNothingForWhatIsNone) {
  for (const auto& [text, load] :
       {std::pair{"7.5", 7.5e6}, {"0", 0.0}, {"-2", -2e6}, {"water", 0.0}, {"", 0.0}}) {
    frmAcoustLoad dialog;
    const DialogDriver driver(dialog);
    driver.Type(Side().value, text);
    driver.Press(Qt::Key_Return);
    EXPECT_FALSE(driver.IsOpen());
    EXPECT_EQ(Side().Load(), load) << text;
    EXPECT_EQ(Side().Re()(5), load) << text;
    EXPECT_EQ(design.DesignNew, 65535);
  }
}

TEST_P(LoadDialog, LongNamesAndCommentsLeaveItsSizeAlone) {
  frmAcoustLoad plain;
  const QSize size = plain.sizeHint();
  Side().Complex() = true;
  Side().File() = "/" + std::string(3000, 'x') + ".lac";
  Side().Comment() = std::string(10'000'000, 'w');
  frmAcoustLoad dialog;
  const DialogDriver driver(dialog);
  EXPECT_EQ(dialog.sizeHint(), size);
  EXPECT_EQ(driver.Caption(Side().comment).size(), 9 + Side().Comment().size())
      << "the label holds all of it";
}

TEST_P(LoadDialog, TabLeadsThroughItAsItIsRead) {
  design.ZBackComplex = design.ZFrontComplex = true;
  frmAcoustLoad dialog;
  const DialogDriver driver(dialog);
  EXPECT_EQ(driver.TabOrder(), (Lines{"txtAcoustBackZ", "OptBackLoad(1)", "CmdLoadBackComplex",
                                      "txtAcoustFrontZ", "OptFrontLoad(1)", "CmdLoadFrontComplex",
                                      "cmdAcoustTermOK", "cmdAcoustTermCancel"}));
}

}  // namespace
}  // namespace halvorne::testing
