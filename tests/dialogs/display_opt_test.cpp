#include "dialogs/dialog_driver.h"
#include "engine/frequency_sweep.h"
#include "plot/plot_select.h"
#include "plot/plot_state.h"
#include "plot/windows/frm_display_opt.h"

namespace halvorne::testing {
namespace {

class DisplayOptions : public FreshProgram {
 protected:
  DisplayOptions() {
    MakeSimpleDesign(80, 1024);
    PrelimCalc();
    MainCalc();
    view.CurrentPlot = 14;
    PlotSelect(14);
    design.AttenLength = 2.5F;
    design.AttenRate = 0.3F;
    design.AttenFreq = 2e6F;
    design.AttenExp = -1;
  }
};

TEST_F(DisplayOptions, LoadsAllThreePages) {
  setup.PhaseDisplayOption = 1;
  setup.DisplayFontSize = 2;
  frmDisplayOpt dialog;
  const DialogDriver driver(dialog);
  EXPECT_EQ(dialog.windowTitle().toStdString(), "Display Options");
  EXPECT_TRUE(driver.Visible("FramePhase"));
  EXPECT_TRUE(driver.Chosen("optPhase(1)"));
  driver.Click("CmdView(1)");
  EXPECT_TRUE(driver.Visible("FrameAttin"));
  EXPECT_FALSE(driver.Visible("FramePhase"));
  EXPECT_EQ(driver.Text("txtAttenLength"), "2.500");
  EXPECT_EQ(driver.Text("txtAttenRate"), "0.300");
  EXPECT_EQ(driver.Text("txtAttenFreq"), "2.000");
  EXPECT_EQ(driver.Text("txtAttenExp"), "-1.000");
  EXPECT_EQ(driver.Caption("lblAttenFreq"), "MHz");
  EXPECT_FALSE(driver.Chosen("chkAttenEnable"));
  driver.Click("CmdView(2)");
  EXPECT_TRUE(driver.Visible("FrameFonts"));
  EXPECT_TRUE(driver.Chosen("optFontSize(2)"));
}

TEST_F(DisplayOptions, PhaseAndFontActAtOnce) {
  frmDisplayOpt dialog;
  const DialogDriver driver(dialog);
  driver.Click("optPhase(2)");
  EXPECT_EQ(setup.PhaseDisplayOption, 2);
  driver.Click("CmdView(2)");
  driver.Click("optFontSize(1)");
  EXPECT_EQ(setup.DisplayFontSize, 1);
  EXPECT_EQ(window.TitleBoxFontSize(), 10);
  driver.Press(Qt::Key_Escape);
  EXPECT_EQ(setup.PhaseDisplayOption, 2) << "closing keeps the options";
}

TEST_F(DisplayOptions, OkTakesMagnitudesAndKeepsTheSignOfTheExponent) {
  frmDisplayOpt dialog;
  const DialogDriver driver(dialog);
  driver.Click("optPhase(2)");
  driver.Click("CmdView(1)");
  driver.Click("chkAttenEnable");
  driver.Type("txtAttenLength", "-4");
  driver.Type("txtAttenRate", "-0.5");
  driver.Type("txtAttenFreq", "-3");
  driver.Type("txtAttenExp", "-2");
  driver.Click("cmdDisplayOptOK");
  EXPECT_FALSE(driver.IsOpen());
  EXPECT_EQ(design.AttenLength, 4);
  EXPECT_EQ(design.AttenRate, 0.5F);
  EXPECT_EQ(design.AttenFreq, 3e6F);
  EXPECT_EQ(design.AttenExp, -2);
  EXPECT_TRUE(design.AttenOn);
  EXPECT_EQ(scale.RightLabel, "Delay") << "the plot was gathered afresh";
  EXPECT_EQ(measured.AttenCaptions[0], "Path length 4.000 cm");
}

TEST_F(DisplayOptions, ClosingDropsTypedValues) {
  frmDisplayOpt dialog;
  const DialogDriver driver(dialog);
  driver.Click("CmdView(1)");
  driver.Type("txtAttenLength", "9");
  driver.Click("chkAttenEnable");
  driver.Press(Qt::Key_Escape);
  EXPECT_EQ(design.AttenLength, 2.5F);
  EXPECT_FALSE(design.AttenOn);
}

TEST_F(DisplayOptions, KeyboardAloneReachesEveryPage) {
  frmDisplayOpt dialog;
  const DialogDriver driver(dialog);
  using Way = std::vector<std::string>;
  EXPECT_EQ(driver.TabOrder(), (Way{"optPhase(0)", "cmdDisplayOptOK", "CmdView(0)"}));
  QTest::keyClick(driver.Find<QWidget>("optPhase(0)"), Qt::Key_Down);
  EXPECT_EQ(setup.PhaseDisplayOption, 1);
  driver.Find<QWidget>("CmdView(0)")->setFocus();
  QTest::keyClick(driver.Find<QWidget>("CmdView(0)"), Qt::Key_Right);
  EXPECT_TRUE(driver.Visible("FrameAttin"));
  EXPECT_EQ(driver.TabOrder(),
            (Way{"CmdView(1)", "chkAttenEnable", "txtAttenLength", "txtAttenRate", "txtAttenFreq",
                 "txtAttenExp", "cmdDisplayOptOK"}));
  QTest::keyClick(driver.Find<QWidget>("CmdView(1)"), Qt::Key_Right);
  EXPECT_EQ(driver.TabOrder(), (Way{"CmdView(2)", "optFontSize(0)", "cmdDisplayOptOK"}));
}

}  // namespace
}  // namespace halvorne::testing
