#include <QTemporaryDir>
#include <array>
#include <filesystem>

#include "dialogs/dialog_driver.h"
#include "dialogs/frm_freq_entry.h"
#include "dialogs/frm_time_entry.h"
#include "engine/acoustic_sections.h"
#include "platform/paths.h"
#include "plot/plot_select.h"
#include "plot/plot_state.h"

namespace halvorne::testing {
namespace {

using Lines = std::vector<std::string>;

class FreqDialog : public FreshProgram {
 protected:
  FreqDialog() { MakeSimpleDesign(); }

  /// Opens the dialog, types into boxes and presses OK.
  static void Enter(std::initializer_list<std::pair<const char*, const char*>> texts) {
    frmFreqEntry dialog;
    const DialogDriver driver(dialog);
    for (const auto& [box, text] : texts) {
      driver.Type(box, text);
    }
    driver.Click("cmdFreqOK");
  }
};

TEST_F(FreqDialog, ShowsTheSweepInItsUnit) {
  frmFreqEntry dialog;
  const DialogDriver driver(dialog);
  EXPECT_EQ(driver.Text("txtStartFreq"), "1.000");
  EXPECT_EQ(driver.Text("txtStopFreq"), "9.000");
  EXPECT_EQ(driver.Text("txtNoPts"), "16");
  EXPECT_EQ(driver.Text("txtDesFreq"), "5.000");
  for (const char* label : {"lblStartFreqUnit", "lblStopFreqUnit", "lblDesFreqUnit"}) {
    EXPECT_EQ(driver.Caption(label), "MHz");
  }
  EXPECT_TRUE(driver.Chosen("optMHz"));
}

TEST_F(FreqDialog, KeepsAUnitThatIsNoneOfTheThree) {
  design.FreqUnit = "Hz";
  design.FreqScale = 1;
  frmFreqEntry dialog;
  const DialogDriver driver(dialog);
  for (const char* option : {"optKHz", "optMHz", "optGHz"}) {
    EXPECT_FALSE(driver.Chosen(option)) << option;
  }
  EXPECT_EQ(driver.Text("txtStartFreq"), "1000000.000");
  EXPECT_EQ(driver.Caption("lblStopFreqUnit"), "Hz");
  driver.Click("cmdFreqOK");
  EXPECT_EQ(design.FreqUnit, "Hz");
  EXPECT_EQ(design.FreqStop, 9e6);
}

TEST_F(FreqDialog, AnotherUnitShowsTheSameFrequencies) {
  frmFreqEntry dialog;
  const DialogDriver driver(dialog);
  driver.Click("optKHz");
  EXPECT_EQ(driver.Text("txtStartFreq"), "1000.000");
  EXPECT_EQ(driver.Text("txtStopFreq"), "9000.000");
  EXPECT_EQ(driver.Text("txtDesFreq"), "5000.000");
  EXPECT_EQ(driver.Caption("lblDesFreqUnit"), "kHz");
  driver.Type("txtStopFreq", "9000.4");
  driver.Click("optGHz");
  EXPECT_EQ(driver.Text("txtStopFreq"), "0.009") << "what is finer than three digits is lost";
  EXPECT_EQ(driver.Text("txtNoPts"), "16");
  driver.Click("cmdFreqOK");
  EXPECT_EQ(design.FreqUnit, "GHz");
  EXPECT_EQ(design.FreqScale, 1e9F);
  EXPECT_DOUBLE_EQ(design.FreqStart, 1e6);
  EXPECT_DOUBLE_EQ(design.FreqStop, 9e6);
}

TEST_F(FreqDialog, CancelAndEscapeKeepTheUnitToo) {
  for (const bool byKey : {false, true}) {
    frmFreqEntry dialog;
    const DialogDriver driver(dialog);
    driver.Click("optKHz");
    driver.Type("txtStopFreq", "20");
    if (byKey) {
      driver.Press(Qt::Key_Escape);
    } else {
      driver.Click("cmdFreqCancel");
    }
    EXPECT_FALSE(driver.IsOpen());
    EXPECT_EQ(design.FreqUnit, "MHz");
    EXPECT_EQ(design.FreqStop, 9e6);
    EXPECT_EQ(design.DesignNew, 0);
  }
}

TEST_F(FreqDialog, StartOfZeroIsStoredAsNearlyZero) {
  Enter({{"txtStartFreq", "0"}});
  EXPECT_EQ(design.FreqStart, 1e-05);
  EXPECT_EQ(design.DesignNew, 65535);
  frmFreqEntry again;
  EXPECT_EQ(DialogDriver(again).Text("txtStartFreq"), "0.000");
}

TEST_F(FreqDialog, LimitsTheWrongWayRoundAreSwappedInSilence) {
  Enter({{"txtStartFreq", "12"}, {"txtStopFreq", "3"}});
  EXPECT_EQ(design.FreqStart, 3e6);
  EXPECT_EQ(design.FreqStop, 12e6);
  EXPECT_TRUE(shownMessages.Shown().empty());
}

TEST_F(FreqDialog, UnchangedValuesAreStillRecalculated) {
  Enter({});
  EXPECT_EQ(design.DesignNew, 65535);
  EXPECT_EQ(design.FreqStart, 1e6);
  EXPECT_EQ(design.NoFreqPts, 16);
  EXPECT_EQ(design.PZThick(1), 0.0004);
}

TEST_F(FreqDialog, TimeRecordGrowsToTheNextPowerOfTwo) {
  Enter({{"txtStartFreq", "0"}, {"txtNoPts", "16000"}});
  EXPECT_EQ(design.NoFreqPts, 16000);
  EXPECT_EQ(design.NoTimePts, 32768) << "2 x 16000 points are needed";
  EXPECT_DOUBLE_EQ(design.SampleRateHz, (9e6 - 1e-05) * 32768 / 16000);
}

// 2 x 64 x 9/(9 - 4.5) is 256, and so is the size.
TEST_F(FreqDialog, SizeThatIsJustEnoughStaysAndIsDisabledInTheTimeDialog) {
  Enter({{"txtStartFreq", "4.5"}, {"txtNoPts", "64"}});
  EXPECT_EQ(design.NoTimePts, 256);
  frmTimeEntry sizes;
  const DialogDriver driver(sizes);
  EXPECT_TRUE(driver.Chosen("optPoints(0)"));
  EXPECT_FALSE(driver.Enabled("optPoints(0)"));
  EXPECT_TRUE(driver.Enabled("optPoints(1)"));
}

TEST_F(FreqDialog, NarrowBandTakesTheLargestSizeWithoutAWord) {
  Enter({{"txtStartFreq", "8.9"}, {"txtNoPts", "1000"}});  // 180000 points are needed
  EXPECT_EQ(design.NoTimePts, 65536);
  EXPECT_TRUE(shownMessages.Shown().empty());
  frmTimeEntry sizes;
  const DialogDriver driver(sizes);
  for (int i = 0; i < 8; ++i) {
    EXPECT_FALSE(driver.Enabled(("optPoints(" + std::to_string(i) + ")").c_str())) << i;
  }
  EXPECT_TRUE(driver.Enabled("optPoints(8)"));
}

// 4 MHz/(1 - 1024/4096) is 5.3333 MHz; the thousandth above it, and one more.
TEST_F(FreqDialog, SizeBeyondTheLargestRaisesTheStopFrequency) {
  design.NoTimePts = 131072;
  Enter({{"txtStartFreq", "4"}, {"txtNoPts", "1024"}, {"txtDesFreq", "6"}});
  EXPECT_EQ(shownMessages.Lines(),
            Lines{"Error in Frequency Entry|"
                  "Current frequency values will result in aliasing of the time waveform.\r\n"
                  "To eliminate the aliasing, the stop frequency has been increased to: \r\n"
                  "Stop frequency = 5.335 MHz"});
  EXPECT_EQ(shownMessages.Shown().at(0).icon, MessageIcon::kExclamation);
  EXPECT_DOUBLE_EQ(design.FreqStop, 5.335e6);
  EXPECT_EQ(design.NoTimePts, 8192) << "8184.3 points are needed";
  EXPECT_EQ(design.DesignFreq, 5e6) << "the boxes were filled anew with the old one";
  EXPECT_DOUBLE_EQ(design.PZThick(1), 0.0004);
}

TEST_F(FreqDialog, SizeBeyondTheLargestFailsWhereItsFormulaDividesByZero) {
  design.NoTimePts = 131072;
  frmFreqEntry dialog;
  const DialogDriver driver(dialog);
  driver.Type("txtStartFreq", "4");
  driver.Type("txtNoPts", "4096");
  driver.Click("cmdFreqOK");
  EXPECT_EQ(shownMessages.Lines(),
            Lines{"ERROR in cmdFreqOK_Click of frmFreqEntry|Error: 11. Division by zero"});
  EXPECT_TRUE(driver.IsOpen());
}

// Kept: beyond 4096 points the formula's own bound is passed: 4 MHz/(1 - 5000/4096) is -18.12 MHz.
TEST_F(FreqDialog, SizeBeyondTheLargestTurnsTheStopFrequencyOfManyPoints) {
  design.NoTimePts = 131072;
  Enter({{"txtStartFreq", "4"}, {"txtNoPts", "5000"}});
  EXPECT_DOUBLE_EQ(design.FreqStop, -18.122e6);
  EXPECT_EQ(design.NoTimePts, 8192);
}

TEST_F(FreqDialog, EqualLimitsAreToldAndTheDialogStays) {
  frmFreqEntry dialog;
  const DialogDriver driver(dialog);
  driver.Type("txtStartFreq", "9");
  driver.Click("cmdFreqOK");
  EXPECT_EQ(shownMessages.Lines(),
            Lines{"ERROR in cmdFreqOK_Click of frmFreqEntry|Error: 11. Division by zero"});
  EXPECT_TRUE(driver.IsOpen());
  EXPECT_EQ(design.FreqStart, 9e6) << "what was stored before stays";
  EXPECT_EQ(design.DesignNew, 0);
  driver.Type("txtStartFreq", "1");
  driver.Click("cmdFreqOK");
  EXPECT_FALSE(driver.IsOpen());
  EXPECT_EQ(design.FreqStart, 1e6);
}

TEST_F(FreqDialog, LayersFollowTheDesignFrequency) {
  design.NoPiezo = 2;
  design.PZMatl(2) = design.PZMatl(1);
  design.PZThick(2) = 0.001;
  Enter({{"txtDesFreq", "10"}});
  EXPECT_EQ(design.DesignFreq, 10e6);
  EXPECT_DOUBLE_EQ(design.PZThick(1), 0.0002);
  EXPECT_DOUBLE_EQ(design.PZThick(2), 0.0005);
  EXPECT_DOUBLE_EQ(design.BackThick(0), 0.0001) << "half layers follow";
  EXPECT_DOUBLE_EQ(design.PZFa(1), 10e6) << "constants follow";
}

// Twice the frequencies, half the thickness and a quarter of the area leave each reactance and each
// angle as it is.
TEST_F(FreqDialog, CurvesOverTheDesignFrequencyStay) {
  Recalc();
  const FreqCurve re = curves.ZinElecRe;
  const FreqCurve im = curves.ZinElecIm;
  design.ElementArea /= 4;
  Enter({{"txtStartFreq", "2"}, {"txtStopFreq", "18"}, {"txtDesFreq", "10"}});
  for (int i = 0; i <= 16; ++i) {
    EXPECT_NEAR(curves.ZinElecRe(i), re(i), 1e-9 * std::abs(im(i))) << i;
    EXPECT_NEAR(curves.ZinElecIm(i), im(i), 1e-9 * std::abs(im(i))) << i;
  }
}

TEST_F(FreqDialog, TextRulesWaitUntilABoxIsLeft) {
  frmFreqEntry dialog;
  const DialogDriver driver(dialog);
  EXPECT_EQ(driver.TypeAndLeave("txtNoPts", "150"), "150");
  EXPECT_EQ(driver.TypeAndLeave("txtNoPts", ""), "2");
  EXPECT_EQ(driver.TypeAndLeave("txtNoPts", "1"), "2");
  EXPECT_EQ(driver.TypeAndLeave("txtNoPts", "-7.9"), "7");
  EXPECT_EQ(driver.TypeAndLeave("txtNoPts", "many"), "2");
  EXPECT_EQ(driver.TypeAndLeave("txtNoPts", "16000"), "16000");
  EXPECT_EQ(driver.TypeAndLeave("txtNoPts", "123456789"), "16000");
  EXPECT_EQ(driver.TypeAndLeave("txtStartFreq", "-3"), "0.000");
  EXPECT_EQ(driver.TypeAndLeave("txtStartFreq", "0.5"), "0.500");
  EXPECT_EQ(driver.TypeAndLeave("txtStopFreq", "-1"), "0.000");
  EXPECT_EQ(driver.TypeAndLeave("txtStopFreq", "7.12349"), "7.123");
  EXPECT_EQ(driver.TypeAndLeave("txtStopFreq", "x"), "0.000");
  EXPECT_EQ(driver.TypeAndLeave("txtDesFreq", "0"), "0.001");
  EXPECT_EQ(driver.TypeAndLeave("txtDesFreq", "2"), "2.000");
}

TEST_F(FreqDialog, ReturnAppliesTheRulesOfTheBoxInWhichItIsPressed) {
  frmFreqEntry dialog;
  const DialogDriver driver(dialog);
  driver.Type("txtNoPts", "31.7");
  QTest::keyClick(driver.Find<QLineEdit>("txtNoPts"), Qt::Key_Return);
  EXPECT_FALSE(driver.IsOpen());
  EXPECT_EQ(design.NoFreqPts, 31);
}

TEST_F(FreqDialog, NumbersBeyondAllBoundsAreToldOrBounded) {
  frmFreqEntry dialog;
  const DialogDriver driver(dialog);
  driver.Type("txtStopFreq", "1e305");
  driver.Type("txtNoPts", "1e300");
  driver.Click("cmdFreqOK");
  EXPECT_EQ(shownMessages.Lines(),
            Lines{"ERROR in cmdFreqOK_Click of frmFreqEntry|Error: 6. Overflow"});
  EXPECT_TRUE(driver.IsOpen());
  EXPECT_EQ(driver.Text("txtNoPts"), "16000");
  EXPECT_EQ(design.FreqStop, 9e6) << "a failed statement stores nothing";
}

TEST_F(FreqDialog, ManualWindowsDoNotOutliveTheGrid) {
  view.FreqAuto = view.TimeAuto = false;
  Enter({});
  EXPECT_TRUE(view.FreqAuto);
  EXPECT_TRUE(view.TimeAuto);
}

// Kept: flag and name stay, so the load comes back with the next OK of its own dialog.
TEST_F(FreqDialog, FlattensComplexLoads) {
  design.ZFrontComplex = true;
  design.ZFrontFile = "piston.lac";
  std::fill(design.ZFrontNormRe.begin(), design.ZFrontNormRe.end(), 2.0);
  CmplxLoad();
  ASSERT_EQ(design.ZFrontRe(3), 3e6);
  Enter({});
  EXPECT_EQ(design.ZFrontRe(3), 1.5e6);
  EXPECT_TRUE(design.ZFrontComplex);
  EXPECT_EQ(design.ZFrontFile, "piston.lac");
}

TEST_F(FreqDialog, WritesTheSettings) {
  const QTemporaryDir folder;
  SetProgramFolder(folder.path().toStdString());
  window.SetKeepsSession(true);
  Enter({});
  EXPECT_TRUE(std::filesystem::exists(ProgramPath("\\HALVORNESETUP")));
}

TEST_F(FreqDialog, TabLeadsThroughItAsItIsRead) {
  frmFreqEntry dialog;
  const DialogDriver driver(dialog);
  EXPECT_EQ(driver.TabOrder(), (Lines{"txtStartFreq", "txtStopFreq", "txtNoPts", "txtDesFreq",
                                      "optMHz", "cmdFreqOK", "cmdFreqCancel"}));
}

}  // namespace
}  // namespace halvorne::testing
