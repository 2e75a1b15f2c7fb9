#include <QTemporaryDir>
#include <algorithm>
#include <filesystem>

#include "dialogs/dialog_driver.h"
#include "dialogs/frm_time_entry.h"
#include "platform/paths.h"
#include "plot/plot_select.h"
#include "plot/plot_state.h"

namespace halvorne::testing {
namespace {

using Lines = std::vector<std::string>;

std::string Option(int index) {
  return "optPoints(" + std::to_string(index) + ")";
}

class TimeDialog : public FreshProgram {
 protected:
  TimeDialog() {
    MakeSimpleDesign();  // 36 points are needed
    Recalc();
    design.DesignNew = 0;
  }
};

TEST_F(TimeDialog, ShowsTheSizeAndWhatFollowsFromIt) {
  frmTimeEntry dialog;
  const DialogDriver driver(dialog);
  for (int i = 0; i <= 8; ++i) {
    EXPECT_EQ(driver.Find<QAbstractButton>(Option(i).c_str())->text().toInt(), 256 << i);
    EXPECT_TRUE(driver.Enabled(Option(i).c_str()));
  }
  EXPECT_TRUE(driver.Chosen("optPoints(0)"));
  EXPECT_EQ(driver.Caption("lblStartFreq"), "Start frequency 1.000 MHz");
  EXPECT_EQ(driver.Caption("lblStopFreq"), "Stop frequency 9.000 MHz");
  // 8 MHz x 256/16 samples a second; 255 of their intervals.
  EXPECT_EQ(driver.Caption("lblSampleRate"), "Waveform sample rate 128.000 MHz");
  EXPECT_EQ(driver.Caption("lblTMax"), "Max. time window 1.992 usec");
  driver.Click("optPoints(4)");
  EXPECT_EQ(driver.Caption("lblSampleRate"), "Waveform sample rate 2048.000 MHz");
  EXPECT_EQ(driver.Caption("lblTMax"), "Max. time window 2.000 usec");
}

TEST_F(TimeDialog, CommitsTheSizeAndItsSampleRate) {
  frmTimeEntry dialog;
  const DialogDriver driver(dialog);
  driver.Click("optPoints(3)");
  EXPECT_EQ(design.NoTimePts, 256);
  driver.Press(Qt::Key_Return);
  EXPECT_FALSE(driver.IsOpen());
  EXPECT_EQ(design.NoTimePts, 2048);
  EXPECT_DOUBLE_EQ(design.SampleRateHz, 1024e6);
  EXPECT_EQ(design.DesignNew, 0) << "no sweep runs";
}

TEST_F(TimeDialog, CancelKeepsTheSize) {
  frmTimeEntry dialog;
  const DialogDriver driver(dialog);
  driver.Click("optPoints(3)");
  driver.Click("CmdTimeCancel");
  EXPECT_FALSE(driver.IsOpen());
  EXPECT_EQ(design.NoTimePts, 256);
}

TEST_F(TimeDialog, ReturnPressesCancelOnlyWhereItHasTheFocus) {
  for (const char* focused : {"CmdTimeCancel", "CmdTimeOK", "optPoints(3)"}) {
    design.NoTimePts = 256;
    frmTimeEntry dialog;
    const DialogDriver driver(dialog);
    driver.Click("optPoints(3)");
    driver.Find<QWidget>("CmdTimeCancel")->setFocus();
    driver.Find<QWidget>(focused)->setFocus();
    QTest::keyClick(driver.Find<QWidget>(focused), Qt::Key_Return);
    EXPECT_FALSE(driver.IsOpen());
    EXPECT_EQ(design.NoTimePts, focused == std::string("CmdTimeCancel") ? 256 : 2048) << focused;
  }
}

TEST_F(TimeDialog, RedrawsTimePlotsOnly) {
  for (const int plotNumber : {11, 31, 16, 26, 33}) {
    view.CurrentPlot = static_cast<std::int16_t>(plotNumber);
    PlotSelect(view.CurrentPlot);
    window.OwnPicture().Forget();
    const std::size_t pointers = window.Pointers().size();
    frmTimeEntry dialog;
    const DialogDriver driver(dialog);
    driver.Click("CmdTimeOK");
    const bool redrawn = !window.OwnPicture().Operations().empty();
    EXPECT_EQ(redrawn, IsTimePlot(plotNumber)) << plotNumber;
    const std::vector<int> shown(window.Pointers().begin() + static_cast<std::ptrdiff_t>(pointers),
                                 window.Pointers().end());
    const bool hourglass =
        shown.size() >= 2 && shown.front() == kBusyPointer && shown.back() == kNormalPointer;
    EXPECT_EQ(hourglass, IsTimePlot(plotNumber)) << plotNumber;
  }
}

// Kept: a size that is no option's is corrected when the dialog opens, whatever becomes of it.
TEST_F(TimeDialog, CorrectsAnOddSizeEvenWhenCancelled) {
  for (const std::int32_t odd : {100, 0, -256, 131072, 257}) {
    design.NoTimePts = odd;
    frmTimeEntry dialog;
    const DialogDriver driver(dialog);
    EXPECT_TRUE(driver.Chosen("optPoints(1)")) << odd;
    driver.Click("CmdTimeCancel");
    EXPECT_EQ(design.NoTimePts, 512) << odd;
  }
}

// Kept: the unit of the time axis follows the labels, also of a dialog that is cancelled.
TEST_F(TimeDialog, ChangesTheTimeUnitEvenWhenCancelled) {
  view.TimeUnit = "sec";
  view.TimeScale = 1;
  frmTimeEntry dialog;
  const DialogDriver driver(dialog);
  driver.Click("CmdTimeCancel");
  EXPECT_EQ(view.TimeUnit, "usec");
  EXPECT_EQ(view.TimeScale, 1e-6);
}

TEST_F(TimeDialog, SizesThatWouldAliasAreDisabled) {
  design.NoFreqPts = 1000;  // 2250 points are needed
  frmTimeEntry dialog;
  const DialogDriver driver(dialog);
  for (int i = 0; i <= 8; ++i) {
    EXPECT_EQ(driver.Enabled(Option(i).c_str()), i >= 4) << i;
  }
  QTest::mouseClick(driver.Find<QWidget>("optPoints(3)"), Qt::LeftButton);
  EXPECT_TRUE(driver.Chosen("optPoints(0)")) << "the size in force is shown all the same";
  const Lines way = driver.TabOrder();
  EXPECT_NE(std::find(way.begin(), way.end(), "optPoints(4)"), way.end())
      << "the keyboard reaches the sizes though the chosen one is disabled";
}

TEST_F(TimeDialog, EqualLimitsAreTold) {
  design.FreqStart = design.FreqStop;
  frmTimeEntry dialog;
  const DialogDriver driver(dialog);
  EXPECT_EQ(shownMessages.Lines(),
            (Lines{"ERROR in PrintParameters of frmTimeEntry|Error: 11. Division by zero",
                   "ERROR in Form_Load of frmTimeEntry|Error: 11. Division by zero"}));
  driver.Click("CmdTimeCancel");
  EXPECT_FALSE(driver.IsOpen());
}

TEST_F(TimeDialog, WritesTheSettings) {
  const QTemporaryDir folder;
  SetProgramFolder(folder.path().toStdString());
  window.SetKeepsSession(true);
  frmTimeEntry dialog;
  DialogDriver(dialog).Click("CmdTimeOK");
  EXPECT_TRUE(std::filesystem::exists(ProgramPath("\\HALVORNESETUP")));
}

}  // namespace
}  // namespace halvorne::testing
