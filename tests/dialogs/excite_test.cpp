#include <QTemporaryDir>
#include <cmath>
#include <filesystem>
#include <fstream>

#include "dialogs/dialog_driver.h"
#include "dialogs/frm_excite.h"
#include "platform/paths.h"
#include "plot/plot_select.h"
#include "plot/plot_state.h"
#include "shell/modal_script.h"
#include "timedomain/excitation.h"

namespace halvorne::testing {
namespace {

using Lines = std::vector<std::string>;

class ExciteDialog : public FreshProgram {
 protected:
  ExciteDialog() {
    MakeSimpleDesign(64, 1024);  // sampled at 128 MHz
    view.TimeUnit = "usec";
    view.TimeScale = 1e-6;
    SetProgramFolder(folder_.path().toStdString());
    std::filesystem::create_directory(folder_.filePath("EXCITE").toStdString());
  }
  ~ExciteDialog() override { EXPECT_TRUE(script.Finished()) << "a window did not come"; }

  static void MakeBurst() {
    design.ExciteType = design.ExciteWave = 1;
    design.ExciteFreq = 8e6F;
    design.ExciteCycles = 3;
    design.ExciteDelay = 1e-6F;
    design.ExcitePhase = 90;
    design.ExcitePoints = design.ExciteLength = 512;
  }
  static void MakeFile() {
    design.ExciteType = 2;
    design.ExciteFileName = "/waves/pulse.xct";
    design.ExciteComment = "A pulse";
    design.ExciteLength = 3;
    wave.ExciteRe(0) = 0.25;
    wave.ExciteRe(1) = -0.5;
  }
  std::string Put(const std::string& name, const std::string& bytes) const {
    const std::string path = (ProgramPath("\\EXCITE") / name).string();
    std::ofstream(path, std::ios::binary) << bytes;
    return path;
  }
  /// Box of a file that could not be taken.
  static std::string FileBox(int number, const std::string& words) {
    return "OpenExciteFile_Click|The following error occured: \r\nError # " +
           std::to_string(number) + "\r\n" + words;
  }
  static bool IsSilent(long from) {
    for (long i = from; i <= kLastTimePoint; ++i) {
      if (wave.ExciteRe(i) != 0) {
        return false;
      }
    }
    return true;
  }

  ModalScript script;

 private:
  QTemporaryDir folder_;
};

TEST_F(ExciteDialog, OfNoExcitationShowsNothing) {
  frmExcite dialog;
  const DialogDriver driver(dialog);
  EXPECT_TRUE(driver.Chosen("optXwfmSource(0)"));
  EXPECT_FALSE(driver.Visible("fraToneBurst"));
  EXPECT_FALSE(driver.Visible("cmdOpenExciteFile"));
  EXPECT_FALSE(driver.Visible("fraExciteFileParas"));
  EXPECT_FALSE(driver.Visible("lblXPreview"));
  EXPECT_EQ(driver.Caption("lblSampleRate"), "Sample rate = 128.000 MHz");
}

TEST_F(ExciteDialog, ShowsABurst) {
  MakeBurst();
  design.ExciteWave = 2;
  frmExcite dialog;
  const DialogDriver driver(dialog);
  EXPECT_TRUE(driver.Chosen("optXwfmSource(1)"));
  EXPECT_TRUE(driver.Chosen("optSineSquare(1)"));
  EXPECT_EQ(driver.Text("txtExciteFreq"), "8.0000");
  EXPECT_EQ(driver.Text("txtExciteCycles"), "3.0000");
  EXPECT_EQ(driver.Text("txtExciteDelay"), "1.0000");
  EXPECT_EQ(driver.Text("txtExcitePhase"), "90.0000");
  EXPECT_EQ(driver.Text("txtExcitePoints"), "512");
  EXPECT_TRUE(driver.Visible("fraToneBurst"));
  EXPECT_TRUE(driver.Visible("lblXPreview"));
  EXPECT_FALSE(driver.Visible("fraExciteFileParas"));
}

TEST_F(ExciteDialog, ShowsAFileWithoutAskingForIt) {
  MakeFile();
  frmExcite dialog;
  const DialogDriver driver(dialog);
  EXPECT_TRUE(driver.Chosen("optXwfmSource(2)"));
  EXPECT_TRUE(driver.Visible("cmdOpenExciteFile"));
  EXPECT_TRUE(driver.Visible("fraExciteFileParas"));
  EXPECT_EQ(driver.Caption("lblExciteFileName"), "File name: /waves/pulse.xct");
  EXPECT_EQ(driver.Caption("lblExciteLength"), "File length: 3 points");
  EXPECT_EQ(driver.Caption("lblExciteFileHeader"), "File text: A pulse");
  EXPECT_FALSE(driver.Visible("fraToneBurst"));
  driver.Click("cmdExciteOK");
  EXPECT_EQ(design.ExciteFileName, "/waves/pulse.xct");
  EXPECT_EQ(design.ExciteLength, 3);
  EXPECT_EQ(wave.ExciteRe(1), -1) << "the preview has made the peak 1";
  EXPECT_EQ(wave.ExciteRe(0), 0.5);
}

TEST_F(ExciteDialog, CommitsABurstAsItIsTyped) {
  frmExcite dialog;
  const DialogDriver driver(dialog);
  driver.Click("optXwfmSource(1)");
  EXPECT_TRUE(shownMessages.Shown().empty()) << "a design without excitation has none to fail";
  EXPECT_TRUE(driver.Chosen("optSineSquare(0)"));
  driver.Type("txtExciteFreq", "8");  // 16 samples to a cycle
  driver.Type("txtExciteCycles", "2");
  driver.Type("txtExciteDelay", "0.5");
  driver.Type("txtExcitePhase", "0");
  driver.Type("txtExcitePoints", "1024");
  EXPECT_EQ(design.ExciteType, 0);
  driver.Click("cmdExciteOK");
  EXPECT_FALSE(driver.IsOpen());
  EXPECT_EQ(design.ExciteType, 1);
  EXPECT_EQ(design.ExciteWave, 1);
  EXPECT_EQ(design.ExciteFreq, 8e6F);
  EXPECT_EQ(design.ExciteCycles, 2);
  EXPECT_FLOAT_EQ(design.ExciteDelay, 5e-7F);
  EXPECT_EQ(design.ExcitePhase, 0);
  EXPECT_EQ(design.ExcitePoints, 1024);
  EXPECT_EQ(design.ExciteLength, 1024);
  EXPECT_NEAR(wave.ExciteRe(64), 0, 1e-5);
  EXPECT_NEAR(wave.ExciteRe(68), 1, 1e-9) << "a quarter of a cycle behind the delay";
  EXPECT_NEAR(wave.ExciteRe(76), -1, 1e-9);
  EXPECT_EQ(wave.ExciteRe(63), 0);
  EXPECT_TRUE(IsSilent(98));
  EXPECT_EQ(design.DesignNew, 0) << "no sweep runs";
}

TEST_F(ExciteDialog, CommitsAPeakOfOne) {
  MakeBurst();
  design.ExcitePhase = 0;
  design.ExciteFreq = 128e6F / 3;  // its samples are 0 and +-0.866
  frmExcite dialog;
  const DialogDriver driver(dialog);
  driver.Click("cmdExciteOK");
  double peak = 0;
  for (int i = 0; i <= design.ExciteLength; ++i) {
    peak = std::max(peak, std::abs(wave.ExciteRe(i)));
  }
  EXPECT_EQ(peak, 1);
}

TEST_F(ExciteDialog, SquareWaveHasTheSignsOfTheSine) {
  MakeBurst();
  frmExcite dialog;
  const DialogDriver driver(dialog);
  driver.Click("optSineSquare(1)");
  driver.Click("cmdExciteOK");
  EXPECT_EQ(design.ExciteWave, 2);
  for (int i = 128; i <= 176; ++i) {
    EXPECT_TRUE(std::abs(wave.ExciteRe(i)) == 1 || wave.ExciteRe(i) == 0) << i;
  }
}

TEST_F(ExciteDialog, OfNoExcitationCommitsSilence) {
  MakeBurst();
  std::fill(wave.ExciteRe.begin(), wave.ExciteRe.end(), 1.0);
  frmExcite dialog;
  const DialogDriver driver(dialog);
  driver.Click("optXwfmSource(0)");
  EXPECT_FALSE(driver.Visible("fraToneBurst"));
  driver.Click("cmdExciteOK");
  EXPECT_EQ(design.ExciteType, 0);
  EXPECT_EQ(design.ExciteLength, -1);
  EXPECT_TRUE(IsSilent(0));
  EXPECT_EQ(design.ExciteFreq, 8e6F) << "the settings of the burst are kept";
}

TEST_F(ExciteDialog, OfNoExcitationStaysSilentWhenOpenedAndClosed) {
  std::fill(wave.ExciteRe.begin(), wave.ExciteRe.end(), 1.0);
  frmExcite dialog;
  DialogDriver(dialog).Click("cmdExciteOK");
  EXPECT_EQ(design.ExciteLength, -1);
  EXPECT_TRUE(IsSilent(0));
}

TEST_F(ExciteDialog, CancelLeavesTheDesign) {
  MakeBurst();
  frmExcite dialog;
  const DialogDriver driver(dialog);
  driver.Click("optXwfmSource(0)");
  driver.Click("cmdExciteCancel");
  EXPECT_FALSE(driver.IsOpen());
  EXPECT_EQ(design.ExciteType, 1);
  EXPECT_EQ(design.ExciteLength, 512);
}

TEST_F(ExciteDialog, ValuesAreBoundedAndTheBoxesSayItWhenLeft) {
  MakeBurst();
  frmExcite dialog;
  const DialogDriver driver(dialog);
  EXPECT_EQ(driver.TypeAndLeave("txtExciteFreq", "-2"), "2.0000");
  EXPECT_EQ(draft.TmpExciteFreq, 2e6F);
  EXPECT_EQ(driver.TypeAndLeave("txtExciteFreq", "100"), "64.0000") << "half the sample rate";
  EXPECT_EQ(draft.TmpExciteFreq, 64e6F);
  EXPECT_EQ(driver.TypeAndLeave("txtExciteFreq", "no"), "0.0000");
  EXPECT_EQ(draft.TmpExciteFreq, 1) << "1 Hz";
  EXPECT_EQ(driver.TypeAndLeave("txtExciteFreq", "2.123456"), "2.123456")
      << "what is in bounds stays as typed";
  EXPECT_EQ(driver.TypeAndLeave("txtExciteCycles", "-4"), "4.0000");
  EXPECT_EQ(draft.TmpExciteCycles, 4);
  EXPECT_EQ(driver.TypeAndLeave("txtExciteDelay", "-0.25"), "0.2500");
  EXPECT_FLOAT_EQ(draft.TmpExciteDelay, 0.25e-6F);
  EXPECT_EQ(driver.TypeAndLeave("txtExcitePhase", "-90"), "90.0000");
  EXPECT_EQ(draft.TmpExcitePhase, 90);
  EXPECT_EQ(driver.TypeAndLeave("txtExcitePoints", "12"), "64");
  EXPECT_EQ(draft.TmpExcitePoints, 64);
  EXPECT_EQ(driver.TypeAndLeave("txtExcitePoints", "-100.5"), "100") << "a half rounds to even";
  EXPECT_EQ(driver.TypeAndLeave("txtExcitePoints", "1e12"), "65535");
  EXPECT_EQ(draft.TmpExcitePoints, 65535);
  EXPECT_TRUE(shownMessages.Shown().empty());
}

TEST_F(ExciteDialog, DelayBeyondThePointsStartsTheBurstAtTheLast) {
  MakeBurst();
  frmExcite dialog;
  const DialogDriver driver(dialog);
  driver.Type("txtExciteDelay", "1000");
  driver.Click("cmdExciteOK");
  for (int i = 0; i < 512; ++i) {
    ASSERT_EQ(wave.ExciteRe(i), 0) << i;
  }
  EXPECT_NEAR(wave.ExciteRe(512), 1, 1e-9) << "a phase of 90 degrees starts at the top";
  EXPECT_TRUE(IsSilent(513));
}

TEST_F(ExciteDialog, ChoosingAFileAsksForItAtOnce) {
  MakeBurst();
  const std::string path = Put("Pulse.xct", "Half a pulse\r\n0\r\n0.25\r\n-0.5\r\n");
  frmExcite dialog;
  const DialogDriver driver(dialog);
  script.ExpectFileDialog("File Open", [&](QFileDialog& files) {
    EXPECT_EQ(files.directory().absolutePath().toStdString(), ProgramPath("\\EXCITE").string());
    EXPECT_EQ(files.nameFilters(), (QStringList{"Excite Files (*.xct)", "All Files (*.*)"}));
    EXPECT_EQ(files.selectedNameFilter(), QStringLiteral("Excite Files (*.xct)"));
    EnterName(files, path);
  });
  driver.Click("optXwfmSource(2)");
  EXPECT_EQ(driver.Caption("lblExciteFileName"), "File name: " + path);
  EXPECT_EQ(driver.Caption("lblExciteLength"), "File length: 3 points");
  EXPECT_EQ(driver.Caption("lblExciteFileHeader"), "File text: Half a pulse");
  driver.Click("optXwfmSource(2)");
  EXPECT_TRUE(script.Finished()) << "chosen already, it does not ask again";
  driver.Click("cmdExciteOK");
  EXPECT_EQ(design.ExciteType, 2);
  EXPECT_EQ(design.ExciteFileName, path) << "with its folder";
  EXPECT_EQ(design.ExciteComment, "Half a pulse");
  EXPECT_EQ(design.ExciteLength, 3);
  EXPECT_EQ(wave.ExciteRe(1), 0.5);
  EXPECT_EQ(wave.ExciteRe(2), -1);
  EXPECT_TRUE(IsSilent(3));
  EXPECT_EQ(design.ExciteFreq, 8e6F) << "the settings of the burst are kept";
}

TEST_F(ExciteDialog, FileThatCannotBeTakenIsToldAndTheDraftStays) {
  MakeFile();
  frmExcite dialog;
  const DialogDriver driver(dialog);
  const auto refused = [&](const std::string& path, const std::string& box) {
    shownMessages.Forget();
    script.ExpectFileDialog("File Open", path);
    driver.Click("cmdOpenExciteFile");
    EXPECT_EQ(shownMessages.Lines(), Lines{box});
    EXPECT_EQ(shownMessages.Shown().at(0).icon, MessageIcon::kCritical);
    EXPECT_EQ(driver.Caption("lblExciteFileName"), "File name: /waves/pulse.xct");
    EXPECT_EQ(draft.TmpExcitePoints, 3);
    EXPECT_EQ(draft.TmpExciteWfm(1), -1);
  };
  refused(Put("a.xct", "c\n1\nvolts\n"), FileBox(13, "Type mismatch"));
  refused(Put("a.xct", "c\n1E999\n"), FileBox(6, "Overflow"));
  refused(Put("a.xct", ""), FileBox(62, "Input past end of file"));
  refused("/none/missing.xct", FileBox(76, "Path not found"));
}

TEST_F(ExciteDialog, ClosingTheFileDialogIsToldAndTheTypeStays) {
  frmExcite dialog;
  const DialogDriver driver(dialog);
  script.ExpectCancelledFileDialog("File Open");
  driver.Click("optXwfmSource(2)");
  EXPECT_EQ(shownMessages.Lines(), Lines{FileBox(53, "File not found")});
  EXPECT_TRUE(driver.Chosen("optXwfmSource(2)"));
  EXPECT_EQ(draft.TmpExciteType, 2);
  driver.Click("cmdExciteOK");
  EXPECT_EQ(design.ExciteType, 2);
}

TEST_F(ExciteDialog, FileWithoutDataHasAPoint) {
  frmExcite dialog;
  const DialogDriver driver(dialog);
  script.ExpectFileDialog("File Open", Put("a.xct", "Only words\n"));
  driver.Click("optXwfmSource(2)");
  EXPECT_EQ(driver.Caption("lblExciteLength"), "File length: 1 points");
  driver.Click("cmdExciteOK");
  EXPECT_EQ(design.ExciteLength, 1);
  EXPECT_TRUE(IsSilent(0));
}

TEST_F(ExciteDialog, BurstBehindAFileHasItsOwnPoints) {
  MakeFile();
  design.ExcitePoints = 200;
  frmExcite dialog;
  const DialogDriver driver(dialog);
  driver.Click("optXwfmSource(1)");
  EXPECT_EQ(driver.Text("txtExcitePoints"), "200");
  EXPECT_EQ(draft.TmpExcitePoints, 200);
  EXPECT_TRUE(shownMessages.Shown().empty());
}

TEST_F(ExciteDialog, EnablesTheExcitationPlotsAndShowsTheResponse) {
  Recalc();
  design.DesignNew = 0;
  MakeBurst();
  EnableConvolve(0);
  view.CurrentPlot = 17;
  frmExcite dialog;
  const DialogDriver driver(dialog);
  window.OwnPicture().Forget();
  driver.Click("cmdExciteOK");
  EXPECT_TRUE(window.IsEnabled(Item::kViewTxExcite));
  EXPECT_EQ(view.CurrentPlot, 17);
  EXPECT_FALSE(window.OwnPicture().Operations().empty()) << "the plot is drawn anew";

  frmExcite none;
  const DialogDriver second(none);
  second.Click("optXwfmSource(0)");
  second.Click("cmdExciteOK");
  EXPECT_FALSE(window.IsEnabled(Item::kViewTxExcite));
  EXPECT_EQ(view.CurrentPlot, 16) << "the impulse response takes its place";
}

TEST_F(ExciteDialog, PreviewFollowsWhatIsTyped) {
  MakeBurst();
  frmExcite dialog;
  const DialogDriver driver(dialog);
  auto* const picture = driver.Find<QWidget>("picExcite");
  const QImage before = picture->grab().toImage();
  driver.Type("txtExciteCycles", "9");
  const QImage longer = picture->grab().toImage();
  EXPECT_NE(longer, before);
  driver.Click("optXwfmSource(0)");
  QImage blank = picture->grab().toImage();
  EXPECT_NE(blank, longer);
  EXPECT_EQ(blank.pixelColor(blank.rect().center()), QColor(Qt::white));
}

TEST_F(ExciteDialog, TabLeadsThroughItAsItIsRead) {
  MakeBurst();
  frmExcite dialog;
  const DialogDriver driver(dialog);
  EXPECT_EQ(driver.TabOrder(), (Lines{"optXwfmSource(1)", "txtExciteFreq", "txtExciteCycles",
                                      "txtExciteDelay", "txtExcitePhase", "txtExcitePoints",
                                      "optSineSquare(0)", "cmdExciteOK", "cmdExciteCancel"}));
}

}  // namespace
}  // namespace halvorne::testing
