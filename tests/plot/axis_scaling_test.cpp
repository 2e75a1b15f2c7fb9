#include "plot/axis_scaling.h"

#include <limits>
#include <tuple>

#include "plot/catalogue.h"
#include "plot/plot_state.h"
#include "plot/shown_plot.h"

namespace halvorne::testing {
namespace {

const std::vector<int> kImpedancePlots{11, 21, 41, 42};
const std::vector<int> kRatioPlots{12, 13, 14, 15, 22, 23, 24, 25, 31};
const std::vector<int> kTimePlots{16, 17, 26, 27, 33, 34};

class AxisScaling : public ShownPlot {};

TEST_F(AxisScaling, EveryDivisorHasItsPrefix) {
  const std::pair<double, const char*> rows[] = {
      {1e-12, "p"}, {1e-9, "n"}, {1e-6, "u"},  {1e-3, "m"},  {1, ""},     {1e3, "K"},
      {1e6, "M"},   {1e9, "G"},  {1e12, "T"},  {1e-15, "?"}, {1e15, "?"}, {10, "?"},
      {0.1, "?"},   {0, "?"},    {1e-30, "?"}, {2, ""},      {-1e3, "K"},
  };
  for (const auto& [divisor, prefix] : rows) {
    EXPECT_EQ(EngrScale(divisor), prefix) << divisor;
  }
}

// --- Rules of the data forms ---

struct RuleRow {
  std::vector<int> plots;
  std::vector<int> forms;
  std::int16_t phaseOption;
  bool logarithmic;
  float leftMax, leftMin, rightMax, rightMin;
};

// The data's own scale is 5 to 1.5 on the left and 50 to -30 on the right; in steps of 5 dB 5 to 0
// and 45 to -30. The spectrum's top over all frequency points is 100. LogRange is 60.
const RuleRow kRules[] = {
    {kImpedancePlots, {0, 1}, 0, false, 5, 0, 90, -90},
    {kImpedancePlots, {2, 3}, 0, false, 5, 1.5F, 50, -30},
    {kImpedancePlots, {4, 5}, 0, true, 5, -55, 90, -90},
    {kImpedancePlots, {0, 1}, 2, false, 5, 0, 90, -90},
    {kRatioPlots, {0}, 0, false, 5, 0, 180, -180},
    {kRatioPlots, {1}, 0, true, 5, -55, 180, -180},
    {kRatioPlots, {0}, 1, false, 5, 0, 50, -30},
    {kRatioPlots, {1}, 2, true, 5, -55, 50, -30},
    {{32}, {0}, 0, false, 5, 0, 180, -180},
    {{32}, {0}, 2, false, 5, 0, 50, -30},
    {{32}, {1}, 0, true, 60, 0, 180, -180},
    {{32}, {1}, 1, true, 60, 0, 50, -30},
    {kTimePlots, {0, 3}, 0, false, 5, -5, 5, -5},
    {kTimePlots, {1, 4}, 0, false, 5, 0, 5, 0},
    {kTimePlots, {2, 5}, 0, true, 5, -55, 5, -55},
    {kTimePlots, {6}, 0, false, 5, -5, 100, 40},
    {kTimePlots, {7}, 0, false, 5, 0, 100, 40},
    {kTimePlots, {8}, 0, true, 5, -55, 100, 40},
    {{51, 52, 53}, {0}, 0, false, 5, 1.5F, 50, -30},
};

TEST_F(AxisScaling, EveryFormHasItsRule) {
  for (const RuleRow& row : kRules) {
    for (const int number : row.plots) {
      for (const int form : row.forms) {
        SCOPED_TRACE("plot " + std::to_string(number) + ", form " + std::to_string(form));
        Show(number, form);
        setup.PhaseDisplayOption = row.phaseOption;
        plot.AmplLog = row.logarithmic;
        plot.SpectrumShown = form >= 6;
        design.NoFreqPts = 3;
        scale.LastPlotPt = 1;
        points.PlotData(0) = {2, -30};
        points.PlotData(1) = {4.1, 40.5};
        points.PlotData(3) = {0, 98};

        GetAmplScale(points.PlotData, true);

        EXPECT_EQ(scale.LeftMax, row.leftMax);
        EXPECT_EQ(scale.LeftMin, row.leftMin);
        EXPECT_EQ(scale.RightMax, row.rightMax);
        EXPECT_EQ(scale.RightMin, row.rightMin);
        EXPECT_TRUE(shownMessages.Shown().empty());
      }
    }
  }
}

/// Data of a real load: a magnitude and a phase that is 0 throughout.
void MakePhaseless() {
  scale.LastPlotPt = 1;
  points.PlotData(0) = {1.5, 0};
  points.PlotData(1) = {1.5, 0};
}

TEST_F(AxisScaling, ARightAxisInDegreesReadsInDegreesThoughTheDataAreAllZero) {
  for (const auto& [plots, forms, text] :
       {std::tuple{kImpedancePlots, std::vector{0, 1, 4, 5}, "90.000"},
        {kRatioPlots, std::vector{0, 1}, "180.000"}}) {
    for (const int number : plots) {
      for (const int form : forms) {
        SCOPED_TRACE("plot " + std::to_string(number) + ", form " + std::to_string(form));
        Show(number, form);
        MakePhaseless();
        GetAmplScale(points.PlotData, true);
        EXPECT_EQ(scale.RightMag, 1);
        EXPECT_EQ(scale.RightPrefix, "");
        EXPECT_EQ(scale.RightMaxText, text);
        EXPECT_EQ(scale.RightMinText, std::string("-") + text);
      }
    }
  }
}

// Kept: where no rule sets both ends, all-zero data keep their divisor of 1e-30.
TEST_F(AxisScaling, ARightAxisThatNoRuleSetsKeepsTheDivisorOfAllZeroData) {
  for (const int form : {2, 3}) {
    Show(41, form);
    MakePhaseless();
    GetAmplScale(points.PlotData, true);
    EXPECT_EQ(scale.RightMag, 1e-30F) << form;
    EXPECT_EQ(scale.RightMaxText, "1.200") << form;
  }
}

TEST_F(AxisScaling, ARightAxisInDegreesKeepsTheDivisorOfDataThatAreNotZero) {
  Show(11, 0);
  MakePhaseless();
  points.PlotData(1).Y2 = 4500;
  GetAmplScale(points.PlotData, true);
  EXPECT_EQ(scale.RightMag, 1000);
  EXPECT_EQ(scale.RightMaxText, "0.090");
}

TEST_F(AxisScaling, AWaveformWithTheLargerNegativeSideIsSymmetricToThatSide) {
  Show(16, 0);
  scale.LastPlotPt = 1;
  points.PlotData(0) = {-7.1, 0};
  points.PlotData(1) = {4.1, 0};
  GetAmplScale(points.PlotData, true);
  EXPECT_EQ(scale.LeftMin, -7.5F);
  EXPECT_EQ(scale.LeftMax, 7.5F);
}

TEST_F(AxisScaling, TheSecondTraceHasNoSayInTheSymmetryOfTheFirst) {
  Show(16, 3);
  scale.LastPlotPt = 1;
  points.PlotData(0) = {-7.1, 400};
  points.PlotData(1) = {4.1, 0};
  GetAmplScale(points.PlotData, true);
  EXPECT_EQ(scale.LeftMin, -7.5F);
  EXPECT_EQ(scale.LeftMax, 7.5F);
}

TEST_F(AxisScaling, TheRightAxisKeepsItsOwnDivisorWhenItTakesTheLeftEnds) {
  Show(16, 3);
  scale.LastPlotPt = 1;
  points.PlotData(0) = {-4.1, 0.001};
  points.PlotData(1) = {4.1, 0.0041};
  GetAmplScale(points.PlotData, true);
  EXPECT_EQ(scale.RightMax, 5);
  EXPECT_FLOAT_EQ(scale.RightMag, 1e-3F);
  EXPECT_EQ(scale.RightMaxText, "5000.000") << "5 in thousandths, not in the left axis's units";
  EXPECT_EQ(scale.RightPrefix, "m");
}

TEST_F(AxisScaling, ALogScaleKeepsTheLinearRightAxisOfAFrequencyPlot) {
  Show(31, 1);
  plot.AmplLog = true;
  setup.PhaseDisplayOption = 2;
  scale.LastPlotPt = 1;
  points.PlotData(0) = {-20, 2.2e-6};
  points.PlotData(1) = {20, 2.9e-6};
  GetAmplScale(points.PlotData, true);
  EXPECT_EQ(scale.LeftMax, 25);
  EXPECT_EQ(scale.LeftMag, 1);
  EXPECT_EQ(scale.LeftMin, -35) << "LogRange below the top";
  EXPECT_FLOAT_EQ(scale.RightMax, 3e-6F);
  EXPECT_FLOAT_EQ(scale.RightMin, 2e-6F);
  EXPECT_FLOAT_EQ(scale.RightMag, 1e-6F);
  EXPECT_EQ(scale.RightPrefix, "u");
}

TEST_F(AxisScaling, AManualScaleGetsTextsOnly) {
  Show(16, 0);
  scale.LeftMax = 4321;
  scale.LeftMin = -12.3456F;
  scale.LeftMag = 1000;
  scale.RightMax = 0.5F;
  scale.RightMin = 0.25F;
  scale.RightMag = 1e-3F;
  points.PlotData(0) = {77, 77};
  GetAmplScale(points.PlotData, false);
  EXPECT_EQ(scale.LeftMax, 4321);
  EXPECT_EQ(scale.LeftMaxText, "4.321");
  EXPECT_EQ(scale.LeftMinText, "-0.012");
  EXPECT_EQ(scale.RightMaxText, "500.000");
  EXPECT_EQ(scale.RightMinText, "250.000");
  EXPECT_EQ(scale.LeftPrefix, "K");
  EXPECT_EQ(scale.RightPrefix, "m");
}

TEST_F(AxisScaling, ADivisorOfZeroIsReported) {
  Show(16, 0);
  scale.LeftMag = 0;
  GetAmplScale(points.PlotData, false);
  EXPECT_EQ(
      shownMessages.Lines(),
      std::vector<std::string>{"ERROR in GetAmplScale of PLOTIT|Error: 11. Division by zero"});
}

// --- The part of the span at which autoscale looks ---

struct SpanRow {
  float percent;
  std::int32_t first, last;
  std::int32_t low, high;  ///< expected part
};

TEST_F(AxisScaling, AutoscaleLooksAtTheMiddleOfTheSpan) {
  const SpanRow rows[] = {
      {100, 0, 100, 0, 100},
      {100, 0, 1000, 0, 1000},
      {120, 10, 110, 10, 110},  // never beyond the span
      {50, 0, 100, 25, 75},
      {50, 200, 300, 225, 275},
      {5, 0, 100, 47, 53},
      {30, 0, 10, 3, 7},  // 0.35 x 10 = 3.5 points left out on each side,
                          // whole ones only
      {5, 0, 3, 1, 2},    // one step
      {5, 0, 1, 0, 1},
      {0, 0, 2, 1, 2},  // nothing between: one step from the lower end
      {0, 0, 10, 5, 6},
  };
  for (const SpanRow& row : rows) {
    SCOPED_TRACE(std::to_string(row.percent) + " % of " + std::to_string(row.first) + " to " +
                 std::to_string(row.last));
    Show(52, 0);
    setup.AmplWindowPercent = row.percent;
    scale.FirstPlotPt = row.first;
    scale.LastPlotPt = row.last;
    // A top of 3 at one end, a bottom of -3 at the other; what lies outside would reach to 20.
    points.PlotData(row.low).Y1 = 2.9;
    points.PlotData(row.high).Y1 = -2.9;
    if (row.low > 0) {
      points.PlotData(row.low - 1).Y1 = 19;
    }
    points.PlotData(row.high + 1).Y1 = -19;
    GetAmplScale(points.PlotData, true);
    EXPECT_EQ(scale.LeftMax, 3);
    EXPECT_EQ(scale.LeftMin, -3);
  }
}

TEST_F(AxisScaling, AWindowOfOnePointIsScaledOnThatPoint) {
  Show(52, 0);
  scale.FirstPlotPt = scale.LastPlotPt = 7;
  points.PlotData(7).Y1 = 4;
  points.PlotData(8).Y1 = 900;
  GetAmplScale(points.PlotData, true);
  EXPECT_EQ(scale.LeftMax, 5);
  EXPECT_EQ(scale.LeftMin, 3);
}

TEST_F(AxisScaling, TheSpectrumsTopComesFromAllFrequencyPointsItsDivisorFromTheTimeWindow) {
  for (const long top : {0L, 7L, 20L}) {
    SCOPED_TRACE(top);
    Show(33, 6);
    plot.SpectrumShown = true;
    design.NoFreqPts = 20;
    scale.FirstPlotPt = 30;
    scale.LastPlotPt = 31;
    for (long i = 0; i <= 20; ++i) {
      points.PlotData(i).Y2 = -40;
    }
    points.PlotData(top).Y2 = -12;
    points.PlotData(21).Y2 = -500;
    points.PlotData(30) = {1, -500};
    points.PlotData(31) = {-1, -500};
    GetAmplScale(points.PlotData, true);
    EXPECT_EQ(scale.RightMax, -10) << "the largest of points 0 to NoFreqPts, a step up";
    EXPECT_EQ(scale.RightMin, -70);
    EXPECT_EQ(scale.RightMag, 1);
  }
}

// --- Horizontal window ---

TEST_F(AxisScaling, AnAutomaticTimeWindowIsItsShareOfTheRecord) {
  Show(16, 0);
  view.TimeAuto = true;
  view.TimeWindowPercent = 50;
  design.NoTimePts = 256;
  design.SampleRateHz = 32e6;
  design.TimeWindow = 8e-6;
  scale.FreqLowerText = "untouched";
  scale.FirstPlotPt = 5;
  scale.TimeLower = 9;
  GetPlotFreqTimeScale();
  EXPECT_EQ(scale.FirstPlotPt, 0);
  EXPECT_EQ(scale.LastPlotPt, 128);
  EXPECT_EQ(scale.TimeLower, 0);
  EXPECT_DOUBLE_EQ(scale.TimeUpper, 4e-6);
  EXPECT_EQ(view.TimeUnit, "usec");
  EXPECT_EQ(scale.TimeLowerText, "0.000");
  EXPECT_EQ(scale.TimeUpperText, "4.000");
  EXPECT_EQ(scale.TimeWindowText, "8.000");
  EXPECT_EQ(scale.FreqLowerText, "untouched") << "no spectrum, no frequency axis";
}

TEST_F(AxisScaling, NineTenthsOfAMicrosecondReadsInNanoseconds) {
  Show(16, 0);
  scale.TimeUpper = 0.9e-6;
  GetPlotFreqTimeScale();
  EXPECT_EQ(view.TimeUnit, "nsec");
  EXPECT_EQ(scale.TimeUpperText, "900.000");
}

TEST_F(AxisScaling, TheSmallestTimeWindowOnAShortRecordHoldsOnePoint) {
  Show(16, 0);
  view.TimeAuto = true;
  view.TimeWindowPercent = 0.25F;
  design.NoTimePts = 256;
  design.SampleRateHz = 32e6;
  GetPlotFreqTimeScale();
  EXPECT_EQ(scale.LastPlotPt, 0);
  EXPECT_EQ(scale.TimeUpper, 0);
  EXPECT_EQ(view.TimeUnit, "psec") << "the logarithm of 0 counts as -38";
  EXPECT_EQ(scale.TimeUpperText, "0.000");
  EXPECT_TRUE(shownMessages.Shown().empty());
}

TEST_F(AxisScaling, ASpectrumBelowATimePlotHasAFrequencyAxisOfItsOwn) {
  for (const bool automatic : {true, false}) {
    Show(33, 6);
    plot.SpectrumShown = true;
    view.FreqAuto = automatic;
    view.TimeScale = 1e-6;
    design.FreqStart = 1e6;
    design.FreqStop = 9.5e6;
    scale.PlotFreqLower = 3e6F;
    scale.PlotFreqUpper = 4e6F;
    scale.TimeUpper = 5e-6;
    scale.FirstPlotPt = 12;
    scale.LastPlotPt = 99;
    GetPlotFreqTimeScale();
    EXPECT_EQ(scale.FreqLowerText, automatic ? "1.000" : "3.000");
    EXPECT_EQ(scale.FreqUpperText, automatic ? "9.500" : "4.000");
    EXPECT_EQ(scale.FirstPlotPt, 12) << "the points belong to the time window";
    EXPECT_EQ(scale.LastPlotPt, 99);
  }
}

TEST_F(AxisScaling, AnAutomaticFrequencyWindowIsTheSweep) {
  Show(31, 0);
  view.FreqAuto = true;
  design.FreqStart = 1e6;
  design.FreqStop = 9.5e6;
  design.NoFreqPts = 400;
  scale.FirstPlotPt = 3;
  GetPlotFreqTimeScale();
  EXPECT_EQ(scale.PlotFreqLower, 1e6F);
  EXPECT_EQ(scale.PlotFreqUpper, 9.5e6F);
  EXPECT_EQ(scale.FirstPlotPt, 0);
  EXPECT_EQ(scale.LastPlotPt, 400);
  EXPECT_EQ(scale.FreqLowerText, "1.000");
  EXPECT_EQ(scale.FreqUpperText, "9.500");
}

TEST_F(AxisScaling, TheUpperFrequencyBelowOneDropsItsZeroTheLowerKeepsIt) {
  Show(31, 0);
  scale.PlotFreqLower = 250e3F;
  scale.PlotFreqUpper = 500e3F;
  GetPlotFreqTimeScale();
  EXPECT_EQ(scale.FreqLowerText, "0.250");
  EXPECT_EQ(scale.FreqUpperText, ".500");
}

TEST_F(AxisScaling, TimeAndFrequencyPlotsShareThePointsOfTheWindow) {
  Show(31, 0);
  view.FreqAuto = true;
  design.FreqStop = 9e6;
  design.NoFreqPts = 400;
  GetPlotFreqTimeScale();
  view.CurrentPlot = 33;
  scale.TimeUpper = 2e-6;
  GetPlotFreqTimeScale();
  EXPECT_EQ(scale.LastPlotPt, 400) << "a manual time window has no points of its own";
}

TEST_F(AxisScaling, ASampleRateOfZeroIsReportedAfterThePointsWereSet) {
  Show(16, 0);
  view.TimeAuto = true;
  view.TimeWindowPercent = 50;
  design.NoTimePts = 256;
  scale.TimeUpper = 3;
  GetPlotFreqTimeScale();
  EXPECT_EQ(shownMessages.Lines(),
            std::vector<std::string>{
                "ERROR in GetPlotFreqTimeScale of PLOTIT|Error: 11. Division by zero"});
  EXPECT_EQ(scale.LastPlotPt, 128);
  EXPECT_EQ(scale.TimeUpper, 3);
}

TEST_F(AxisScaling, ASpanThatIsNoNumberOf32BitsIsReported) {
  Show(11, 0);
  setup.AmplWindowPercent = 200;
  scale.FirstPlotPt = 0;
  scale.LastPlotPt = std::numeric_limits<std::int32_t>::min();
  GetAmplScale(points.PlotData, true);
  EXPECT_EQ(shownMessages.Lines(),
            std::vector<std::string>{"ERROR in GetAmplScale of PLOTIT|Error: 6. Overflow"});
}

}  // namespace
}  // namespace halvorne::testing
