#include <cmath>
#include <complex>
#include <gtest/gtest.h>

#include "platform/numbers.h"
#include "plot/catalogue.h"
#include "plot/conversions.h"
#include "plot/curves_by_formula.h"
#include "plot/plot_select.h"
#include "plot/plot_state.h"
#include "support/fresh_program.h"
#include "timedomain/sample_rate.h"

namespace halvorne::testing {
namespace {

/// What a selected plot measures and shows, from the gathering to the axes.
class PlotMeasures : public FreshProgram {
 protected:
  PlotMeasures() {
    MakeSimpleDesign(kIntervals, 64);
    SetAllCurves();
    design.NoFace = design.NoBack = 1;
    design.FrontArea(1) = 1;
    setup.DispFaceLayer = 1;
    setup.DispBackLayer = 12;
  }

  void Select(int plotNumber, int form) {
    if (plotNumber < 41) {
      setup.PlotFormMemory(plotNumber) = static_cast<std::int16_t>(form);
    }
    view.CurrentPlot = static_cast<std::int16_t>(plotNumber);
    PlotSelect(view.CurrentPlot);
    window.SetPlotTypeIndex(form);
  }

  static constexpr int kIntervals = 8;
};

struct Validity {
  std::vector<int> plots;
  std::vector<int> forms;
  bool band, pulse, attenuation;
};

const std::vector<int> kTimePlots{16, 17, 26, 27, 33, 34};

const Validity kValidities[] = {
    {{11, 21, 41, 42}, {0, 1, 2, 3, 4, 5}, false, false, false},
    {{51, 52, 53}, {0}, false, false, false},
    {{12, 22}, {0, 1}, false, false, false},
    {{13, 14, 15, 23, 24, 25, 31, 32}, {0, 1}, true, false, true},
    {kTimePlots, {0, 1, 2, 3, 4, 5}, false, true, true},
    {kTimePlots, {6, 7, 8}, true, true, true},
};

TEST_F(PlotMeasures, EveryFormOfEveryPlotTellsWhichMeasurementsHold) {
  for (const Validity& expected : kValidities) {
    for (const int number : expected.plots) {
      for (const int form : expected.forms) {
        SCOPED_TRACE("plot " + std::to_string(number) + ", form " + std::to_string(form));
        Reset(measured);
        measured.CFBWValid = measured.PulseWidthValid = measured.AttenValid = true;
        Select(number, form);
        EXPECT_EQ(measured.CFBWValid, expected.band);
        EXPECT_EQ(measured.PulseWidthValid, expected.pulse);
        EXPECT_EQ(measured.AttenValid, expected.attenuation);
        const bool power = number % 10 == 3 || number % 10 == 5;
        const char* const bandLevel = power && number != 33 ? "-3" : "-6";
        EXPECT_EQ(window.GridCell(Grid::kCFBW, 3, 0), expected.band ? bandLevel : "");
        EXPECT_EQ(window.GridCell(Grid::kPulseWidth, 2, 0), expected.pulse ? "-6" : "");
        EXPECT_TRUE(shownMessages.Shown().empty());
      }
    }
  }
}

TEST_F(PlotMeasures, BandsOfPowersCountTenAndBandsOfAmplitudesTwentyPerDecade) {
  for (const int number : {13, 15, 23, 25, 14, 24, 31, 32}) {
    SCOPED_TRACE(number);
    Reset(measured);
    Select(number, 0);
    const bool power = number % 10 == 3 || number % 10 == 5;
    EXPECT_EQ(measured.CFBWText[3][0], power ? "-3" : "-6");
    EXPECT_EQ(measured.CFBWText[4][0], power ? "-10" : "-20");
    EXPECT_EQ(measured.CFBWText[5][0], power ? "-20" : "-40");
  }
}

TEST_F(PlotMeasures, TheBandOfTheInsertionLossIsThatOfTheTransfer) {
  // A triangle of the two-way transfer: 0.1 at the ends, 1 in the middle.
  for (int i = 0; i <= kIntervals; ++i) {
    curves.TwoWayTFRe(i) = 1 - 0.225 * std::abs(i - 4);
    curves.TwoWayTFIm(i) = 0;
  }
  Select(31, 0);
  const auto transfer = measured.CFBWText;
  EXPECT_EQ(transfer[3][1], "5.000") << "1 to 9 MHz";
  Select(32, 0);
  EXPECT_EQ(measured.CFBWText, transfer) << "the notch of the loss is measured as a peak";
}

TEST_F(PlotMeasures, OnlyTransferFunctionsTurnTheirPhaseIntoDelay) {
  // Late by 0.3 radians from point to point of the sweep.
  const auto late = [](double size, int i) { return std::polar(size, -0.3 * (i + 1)); };
  for (int i = 0; i <= kIntervals; ++i) {
    for (FreqCurve* re : {&curves.TxTFRe, &curves.RxTFRe, &curves.TwoWayTFRe}) {
      (*re)(i) = late(2, i).real();
    }
    for (FreqCurve* im : {&curves.TxTFIm, &curves.RxTFIm, &curves.TwoWayTFIm}) {
      (*im)(i) = late(2, i).imag();
    }
  }
  setup.PhaseDisplayOption = 0;
  for (const int number : {12, 22}) {
    Select(number, 0);
    const double phase = points.PlotData(3).Y2;
    setup.PhaseDisplayOption = 2;
    Select(number, 0);
    EXPECT_EQ(points.PlotData(3).Y2, phase) << "a reflection keeps its phase, plot " << number;
    setup.PhaseDisplayOption = 0;
  }
  setup.PhaseDisplayOption = 2;
  for (const int number : {14, 24, 31, 32}) {
    Select(number, 0);
    // 0.3 radians per 1 MHz.
    const double delay = 0.3 / (2 * std::acos(-1.0) * 1e6);
    EXPECT_NEAR(points.PlotData(3).Y2 / delay, 1, 1e-9) << number;
  }
}

TEST_F(PlotMeasures, APointWithoutTransferIsCutOffByTheLogRange) {
  setup.LogRange = 60;
  curves.TxTFRe(2) = curves.TxTFIm(2) = 0;
  Select(14, 1);
  EXPECT_NEAR(points.PlotData(2).Y1, -760, 1e-10);
  EXPECT_EQ(scale.LeftMin, scale.LeftMax - 60);
  EXPECT_GT(scale.LeftMax, -20);
  EXPECT_TRUE(shownMessages.Shown().empty());
}

TEST_F(PlotMeasures, WidthsAreToldInTheUnitOfTheWindowThatIsShown) {
  // The units must stand before the conversions measure.
  view.TimeAuto = true;
  view.TimeWindowPercent = 50;  // half a microsecond: 32 samples at 64 MHz
  view.TimeUnit = "sec";
  view.TimeScale = 1;
  Select(33, 1);
  EXPECT_EQ(view.TimeUnit, "nsec");
  EXPECT_EQ(measured.PulseWidthText[1][1], "nsec");
  EXPECT_NE(measured.PulseWidthText[2][1], "0.000");
}

TEST_F(PlotMeasures, ANewSpectrumHasItsFrequencyAxisAtOnce) {
  view.FreqAuto = true;
  scale.FreqLowerText = scale.FreqUpperText = "of the plot before";
  Select(33, 6);
  EXPECT_EQ(scale.FreqLowerText, "1.000");
  EXPECT_EQ(scale.FreqUpperText, "9.000");
}

TEST_F(PlotMeasures, TheBandOfASpectrumIsMeasuredAtLevelsOfAmplitudes) {
  Select(33, 6);
  EXPECT_EQ(measured.CFBWText[3][0], "-6");
  EXPECT_EQ(measured.CFBWText[4][0], "-20");
  EXPECT_EQ(measured.CFBWText[5][0], "-40");
}

TEST_F(PlotMeasures, TheLongestRecordIsMeasuredInEachForm) {
  design.NoTimePts = 65536;
  view.TimeWindowPercent = 10;
  SampleRate();
  for (int form = 0; form <= 8; ++form) {
    Select(16, form);
    EXPECT_TRUE(measured.PulseWidthValid) << form;
  }
  EXPECT_EQ(shownMessages.Lines(), std::vector<std::string>{});
}

TEST_F(PlotMeasures, AnotherFormTakesBackWhatTheFormBeforeItSet) {
  Select(33, 8);
  EXPECT_TRUE(plot.SpectrumShown && plot.AmplLog && measured.CFBWValid);
  window.SetPlotTypeIndex(0);
  EXPECT_FALSE(plot.SpectrumShown);
  EXPECT_FALSE(plot.AmplLog);
  EXPECT_FALSE(measured.CFBWValid);
}

TEST_F(PlotMeasures, AFormThatPicksThePiezoelectricLayerPutsTheListOnIt) {
  view.CurrentPlot = 52;
  PlotTypeLoad(5);
  VDispConvert();
  EXPECT_EQ(window.PlotTypeIndex(), 0);
  EXPECT_EQ(plot.PlotTitle, "Velocity dispersion in piezoelectric layer");
}

}  // namespace
}  // namespace halvorne::testing
