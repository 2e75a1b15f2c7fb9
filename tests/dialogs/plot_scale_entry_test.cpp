#include <algorithm>
#include <cmath>

#include "dialogs/dialog_driver.h"
#include "engine/frequency_sweep.h"
#include "plot/plot_select.h"
#include "plot/plot_state.h"
#include "plot/windows/frm_plot_scale_entry.h"

namespace halvorne::testing {
namespace {

/// A swept design with a plot on show: 80 intervals from 1 to 9 MHz, steps of 0.1 MHz, 1024 samples
/// at 102.4 MHz.
class PlotScaleEntry : public FreshProgram {
 protected:
  PlotScaleEntry() {
    MakeSimpleDesign(80, 1024);
    PrelimCalc();
    MainCalc();
    Show(14, 0);
  }

  static void Show(std::int16_t plotNumber, std::int16_t form) {
    view.CurrentPlot = plotNumber;
    setup.PlotFormMemory(plotNumber) = form;
    PlotSelect(plotNumber);
  }
};

TEST_F(PlotScaleEntry, LoadsScalesUnitsAndLimits) {
  frmPlotScaleEntry dialog;
  const DialogDriver driver(dialog);
  EXPECT_EQ(dialog.windowTitle().toStdString(), "Plot Scale Entry");
  EXPECT_TRUE(driver.Chosen("optAmplAuto"));
  EXPECT_TRUE(driver.Chosen("optFreqAuto"));
  EXPECT_TRUE(driver.Chosen("optTimeAuto"));
  EXPECT_EQ(driver.Text("txtLeftMax"), scale.LeftMaxText);
  EXPECT_EQ(driver.Text("txtRightMin"), "-180.000");
  EXPECT_EQ(driver.Caption("strLeftUnit"), scale.LeftPrefix + "Pa/V");
  EXPECT_EQ(driver.Caption("lblLeftAxis"), "Po/Vi");
  EXPECT_EQ(driver.Caption("lblRightAxis"), "Theta");
  EXPECT_FALSE(driver.Enabled("txtLeftMax"));
  EXPECT_TRUE(driver.Enabled("txtAmplWindow"));
  EXPECT_FALSE(driver.Visible("txtLogRng")) << "the first trace is not in dB";
  EXPECT_TRUE(driver.Visible("FrameAmp"));
  EXPECT_FALSE(driver.Visible("FrameFreq"));
  EXPECT_TRUE(driver.Enabled("CmdShow(1)"));
  EXPECT_FALSE(driver.Enabled("CmdShow(2)")) << "a frequency plot has no time page";
  driver.Click("CmdShow(1)");
  EXPECT_TRUE(driver.Visible("FrameFreq"));
  EXPECT_FALSE(driver.Visible("FrameAmp"));
  EXPECT_EQ(driver.Caption("lblStartFreqLimit"), "1.000");
  EXPECT_EQ(driver.Caption("lblStopFreqLimit"), "9.000");
  EXPECT_EQ(driver.Caption("lblFreqUnit"), "MHz");
}

TEST_F(PlotScaleEntry, SingleTraceHidesTheRightAxis) {
  Show(13, 1);
  frmPlotScaleEntry dialog;
  const DialogDriver driver(dialog);
  EXPECT_FALSE(driver.Visible("txtRightMax"));
  EXPECT_FALSE(driver.Visible("lblRightAxis"));
  EXPECT_TRUE(driver.Visible("txtLogRng"));
  EXPECT_TRUE(driver.Enabled("txtLogRng"));
  EXPECT_EQ(driver.Text("txtLogRng"), "60");
}

TEST_F(PlotScaleEntry, AmplitudePageOfASingleTraceIsAsEvenAsThatOfTwo) {
  for (const bool dual : {true, false}) {
    for (const std::int16_t form : {std::int16_t{0}, std::int16_t{1}}) {
      SCOPED_TRACE(dual ? "two traces" : "a single trace");
      Show(dual ? std::int16_t{14} : std::int16_t{13}, form);
      frmPlotScaleEntry dialog;
      const DialogDriver driver(dialog);
      const auto* const frame = driver.Find<QWidget>("FrameAmp");
      const auto place = [&](const QWidget* control) {
        return QRect(control->mapTo(frame, QPoint()), control->size());
      };
      const QList<QLabel*> labels = frame->findChildren<QLabel*>();
      const auto head = std::ranges::find(labels, QStringLiteral("Max"), &QLabel::text);
      ASSERT_NE(head, labels.end());
      // A label's words stand in the middle of its place, however high that is.
      const int words = place(*head).center().y();
      const QRect box = place(driver.Find<QLineEdit>("txtLeftMax"));
      EXPECT_LE(box.top() - words, box.height()) << "the head does not stand close above its box";
      EXPECT_LE(words - place(driver.Find<QWidget>("optAmplAuto")).bottom(), box.height())
          << "the rows are spread";
      // Rows in their order, each as far from the one above as the next.
      std::vector<int> tops;
      for (const char* name : {"txtLeftMax", "txtRightMax", "txtLogRng", "txtAmplWindow"}) {
        if (driver.Visible(name)) {
          tops.push_back(place(driver.Find<QLineEdit>(name)).top());
        }
      }
      for (std::size_t i = 2; i < tops.size(); ++i) {
        EXPECT_NEAR(tops[i] - tops[i - 1], tops[1] - tops[0], 2);
      }
      EXPECT_LE(tops[1] - tops[0], 2 * driver.Find<QLineEdit>("txtLeftMax")->height());
    }
  }
}

TEST_F(PlotScaleEntry, OptionsActBeforeOk) {
  frmPlotScaleEntry dialog;
  const DialogDriver driver(dialog);
  driver.Click("optAmplManual");
  EXPECT_FALSE(view.AmplAuto);
  EXPECT_TRUE(driver.Enabled("txtLeftMax"));
  EXPECT_FALSE(driver.Enabled("txtAmplWindow"));
  driver.Press(Qt::Key_Escape);
  EXPECT_FALSE(view.AmplAuto) << "closing keeps the options";
}

TEST_F(PlotScaleEntry, GoingBackToAutoFillsEachPageAnew) {
  Show(14, 1);
  const std::string top = scale.LeftMaxText;
  frmPlotScaleEntry dialog;
  const DialogDriver driver(dialog);
  driver.Click("optAmplManual");
  driver.Type("txtLeftMax", "999");
  driver.Click("optAmplAuto");
  EXPECT_TRUE(view.AmplAuto);
  EXPECT_EQ(driver.Text("txtLeftMax"), top);
  EXPECT_FALSE(driver.Enabled("txtLeftMax"));
  EXPECT_TRUE(driver.Enabled("txtAmplWindow"));
  EXPECT_TRUE(driver.Enabled("txtLogRng"));
  driver.Click("CmdShow(1)");
  driver.Click("optFreqManual");
  EXPECT_FALSE(view.FreqAuto);
  EXPECT_TRUE(driver.Enabled("txtFreqUpper"));
  driver.Type("txtFreqLower", "4");
  driver.Click("optFreqAuto");
  EXPECT_TRUE(view.FreqAuto);
  EXPECT_EQ(driver.Text("txtFreqLower"), "1.000");
  EXPECT_FALSE(driver.Enabled("txtFreqLower"));
  EXPECT_EQ(driver.Caption("lblFreqUnit2"), "MHz");
}

TEST_F(PlotScaleEntry, GoingBackToAutoFillsTheTimePageAnew) {
  Show(16, 1);
  const std::string end = scale.TimeUpperText;
  frmPlotScaleEntry dialog;
  const DialogDriver driver(dialog);
  driver.Click("CmdShow(2)");
  EXPECT_TRUE(driver.Enabled("txtTWindow"));
  EXPECT_EQ(driver.Text("txtTWindow"), "50");
  EXPECT_EQ(driver.Caption("lblStopTimeLimit"), "9.990") << "1023 steps at 102.4 MHz";
  EXPECT_EQ(driver.Caption("lblTimeUnit2"), driver.Caption("lblTimeUnit"));
  driver.Click("optTimeManual");
  EXPECT_FALSE(view.TimeAuto);
  EXPECT_FALSE(driver.Enabled("txtTWindow"));
  driver.Type("txtTimeUpper", "3");
  driver.Click("optTimeAuto");
  EXPECT_TRUE(view.TimeAuto);
  EXPECT_EQ(driver.Text("txtTimeUpper"), end);
  EXPECT_FALSE(driver.Enabled("txtTimeUpper"));
  EXPECT_TRUE(driver.Enabled("txtTWindow"));
}

TEST_F(PlotScaleEntry, ManualScaleCountsInTheUnitsOfTheAxisTexts) {
  const float magnitude = scale.LeftMag;
  frmPlotScaleEntry dialog;
  const DialogDriver driver(dialog);
  driver.Click("optAmplManual");
  driver.Type("txtLeftMax", "12.5");
  driver.Type("txtLeftMin", "-2.5");
  driver.Click("cmdPlotScaleOK");
  EXPECT_FLOAT_EQ(scale.LeftMax, 12.5F * magnitude);
  EXPECT_FLOAT_EQ(scale.LeftMin, -2.5F * magnitude);
  EXPECT_EQ(scale.LeftMaxText, "12.500");
  EXPECT_FALSE(view.AmplAuto) << "plot and form did not change, so the manual scale stays";
}

TEST_F(PlotScaleEntry, EqualEndsRaiseTheTopByOnePlottedUnit) {
  const float magnitude = scale.LeftMag;
  frmPlotScaleEntry dialog;
  const DialogDriver driver(dialog);
  driver.Click("optAmplManual");
  driver.Type("txtLeftMax", "3");
  driver.Type("txtLeftMin", "3");
  driver.Click("cmdPlotScaleOK");
  EXPECT_FLOAT_EQ(scale.LeftMax, 3 * magnitude + 1);
  EXPECT_FLOAT_EQ(scale.LeftMin, 3 * magnitude);
}

TEST_F(PlotScaleEntry, LogRangeIsBoundedFromOneTo200) {
  for (const auto& [typed, taken] :
       {std::pair<const char*, double>{"0.5", 1}, {"500", 200}, {"-40", 40}, {"wide", 1}}) {
    Show(14, 1);
    frmPlotScaleEntry dialog;
    const DialogDriver driver(dialog);
    driver.Type("txtLogRng", typed);
    driver.Click("cmdPlotScaleOK");
    EXPECT_EQ(setup.LogRange, taken) << typed;
    EXPECT_FLOAT_EQ(scale.LeftMax - scale.LeftMin, static_cast<float>(taken));
  }
}

TEST_F(PlotScaleEntry, LogRangeTypedBeforeGoingManualIsDropped) {
  Show(14, 1);
  frmPlotScaleEntry dialog;
  const DialogDriver driver(dialog);
  driver.Type("txtLogRng", "30");
  driver.Click("optAmplManual");
  EXPECT_FALSE(driver.Enabled("txtLogRng"));
  driver.Click("cmdPlotScaleOK");
  EXPECT_EQ(setup.LogRange, 60);
}

TEST_F(PlotScaleEntry, AmplitudeWindowIsBoundedFrom5To100) {
  for (const auto& [typed, taken] :
       {std::pair<const char*, float>{"1", 5}, {"150", 100}, {"-50", 50}, {"all", 5}}) {
    frmPlotScaleEntry dialog;
    const DialogDriver driver(dialog);
    driver.Type("txtAmplWindow", typed);
    driver.Click("cmdPlotScaleOK");
    EXPECT_EQ(setup.AmplWindowPercent, taken) << typed;
  }
}

TEST_F(PlotScaleEntry, ManualFrequenciesSwapAndSnapToPoints) {
  frmPlotScaleEntry dialog;
  const DialogDriver driver(dialog);
  driver.Click("CmdShow(1)");
  driver.Click("optFreqManual");
  driver.Type("txtFreqLower", "-6.04");
  driver.Type("txtFreqUpper", "2.16");
  driver.Click("cmdPlotScaleOK");
  EXPECT_EQ(scale.FirstPlotPt, 12) << "2.16 MHz is nearest to 1 + 12 x 0.1";
  EXPECT_EQ(scale.LastPlotPt, 50);
  EXPECT_FLOAT_EQ(scale.PlotFreqLower, 2.2e6F);
  EXPECT_FLOAT_EQ(scale.PlotFreqUpper, 6.0e6F);
  EXPECT_EQ(scale.FreqLowerText, "2.200");
}

TEST_F(PlotScaleEntry, EqualFrequenciesLeaveNothingToJoin) {
  frmPlotScaleEntry dialog;
  const DialogDriver driver(dialog);
  driver.Click("CmdShow(1)");
  driver.Click("optFreqManual");
  driver.Type("txtFreqLower", "5");
  driver.Type("txtFreqUpper", "5");
  driver.Click("cmdPlotScaleOK");
  EXPECT_EQ(scale.FirstPlotPt, scale.LastPlotPt);
}

TEST_F(PlotScaleEntry, UpperFrequencyGuardUsesFivePercentOfTheStart) {
  frmPlotScaleEntry dialog;
  const DialogDriver driver(dialog);
  driver.Click("CmdShow(1)");
  driver.Click("optFreqManual");
  driver.Type("txtFreqLower", "0.01");
  driver.Type("txtFreqUpper", "0.02");
  driver.Click("cmdPlotScaleOK");
  // 0.02 MHz becomes 0.05 MHz, which snaps to point Int(-9.5 + 0.5) = -9.
  EXPECT_EQ(scale.FirstPlotPt, 0);
  EXPECT_EQ(scale.LastPlotPt, -9);
}

TEST_F(PlotScaleEntry, TimeValuesInTheWrongOrderSwapAndSnapToSamples) {
  Show(16, 1);
  frmPlotScaleEntry dialog;
  const DialogDriver driver(dialog);
  EXPECT_FALSE(driver.Enabled("CmdShow(1)"));
  driver.Click("CmdShow(2)");
  EXPECT_TRUE(driver.Visible("FrameTime"));
  EXPECT_EQ(driver.Caption("lblStartTimeLimit"), "0.000");
  ASSERT_EQ(driver.Caption("lblTimeUnit"), "usec") << "the window is 5 microseconds";
  driver.Click("optTimeManual");
  EXPECT_TRUE(driver.Enabled("txtTimeLower"));
  driver.Type("txtTimeLower", "4");
  driver.Type("txtTimeUpper", "-1");
  driver.Click("cmdPlotScaleOK");
  EXPECT_EQ(scale.FirstPlotPt, 102) << "102.4 samples per microsecond";
  EXPECT_EQ(scale.LastPlotPt, 410);
  EXPECT_DOUBLE_EQ(scale.TimeLower, 102 / design.SampleRateHz);
  EXPECT_DOUBLE_EQ(scale.TimeUpper, 410 / design.SampleRateHz);
}

TEST_F(PlotScaleEntry, TimeWindowPercentIsBounded) {
  for (const auto& [typed, taken] :
       {std::pair<const char*, float>{"0.1", 0.25F}, {"100", 99.5F}, {"-3", 0.25F}, {"", 0.25F}}) {
    Show(16, 1);
    frmPlotScaleEntry dialog;
    const DialogDriver driver(dialog);
    driver.Click("CmdShow(2)");
    driver.Type("txtTWindow", typed);
    driver.Click("cmdPlotScaleOK");
    EXPECT_EQ(view.TimeWindowPercent, taken) << typed;
  }
}

TEST_F(PlotScaleEntry, KeyboardAloneReachesEveryControl) {
  Show(14, 1);
  frmPlotScaleEntry dialog;
  const DialogDriver driver(dialog);
  using Way = std::vector<std::string>;
  EXPECT_EQ(driver.TabOrder(),
            (Way{"txtLogRng", "txtAmplWindow", "cmdPlotScaleOK", "CmdShow(0)", "optAmplAuto"}));
  driver.Find<QWidget>("optAmplAuto")->setFocus();
  QTest::keyClick(driver.Find<QWidget>("optAmplAuto"), Qt::Key_Right);
  EXPECT_FALSE(view.AmplAuto) << "an arrow leads on to Manual";
  EXPECT_EQ(driver.TabOrder(), (Way{"optAmplManual", "txtLeftMax", "txtLeftMin", "txtRightMax",
                                    "txtRightMin", "cmdPlotScaleOK", "CmdShow(0)"}));
  driver.Find<QWidget>("CmdShow(0)")->setFocus();
  QTest::keyClick(driver.Find<QWidget>("CmdShow(0)"), Qt::Key_Right);
  EXPECT_TRUE(driver.Visible("FrameFreq"));
  EXPECT_EQ(driver.TabOrder(), (Way{"CmdShow(1)", "optFreqAuto", "cmdPlotScaleOK"}));
}

TEST_F(PlotScaleEntry, StartsInTheFirstBoxThatTakesAValue) {
  frmPlotScaleEntry automatic;
  DialogDriver driver(automatic);
  EXPECT_TRUE(driver.Find<QWidget>("txtAmplWindow")->hasFocus());
  driver.Click("optAmplManual");
  driver.Press(Qt::Key_Escape);
  frmPlotScaleEntry manual;
  const DialogDriver next(manual);
  EXPECT_TRUE(next.Find<QWidget>("txtLeftMax")->hasFocus());
  EXPECT_EQ(next.TabOrder().back(), "optAmplManual") << "the chosen option is the one to stop at";
}

}  // namespace
}  // namespace halvorne::testing
