#include "plot/manual_scales.h"

#include "engine/frequency_sweep.h"
#include "persistence/setup_state.h"
#include "plot/cursor.h"
#include "plot/graph_position.h"
#include "plot/plot_select.h"
#include "plot/plot_state.h"
#include "support/fresh_program.h"

namespace halvorne::testing {
namespace {

/// A swept design: 80 intervals from 1 to 9 MHz, 1024 samples, half of which are shown.
class ManualScales : public FreshProgram {
 protected:
  ManualScales() {
    MakeSimpleDesign(80, 1024);
    PrelimCalc();
    MainCalc();
    Show(11, 0);
  }
  static void Show(std::int16_t plotNumber, std::int16_t form) {
    view.CurrentPlot = plotNumber;
    setup.PlotFormMemory(plotNumber) = form;
    PlotSelect(plotNumber);
  }
  /// A round amplitude scale: 0 to 200 and -90 to 90.
  static void TakeRoundScale() {
    view.AmplAuto = false;
    scale.LeftMax = 200;
    scale.LeftMin = 0;
    scale.LeftMag = 1;
  }
};

// --- Places ---

TEST_F(ManualScales, PlacesInThePictureAreThoseOfItsBox) {
  EXPECT_DOUBLE_EQ(GraphPlace(0, 0).x, -2);
  EXPECT_DOUBLE_EQ(GraphPlace(0, 0).y, 11);
  EXPECT_DOUBLE_EQ(GraphPlace(1, 1).x, 12);
  EXPECT_DOUBLE_EQ(GraphPlace(1, 1).y, -2);
  EXPECT_DOUBLE_EQ(PictureShares({5, 4.5}).x, 0.5);
  EXPECT_DOUBLE_EQ(PictureShares({5, 4.5}).y, 0.5);
  view.CurrentPlot = 34;
  EXPECT_DOUBLE_EQ(GraphPlace(0, 0).y, 20.37) << "in the response, below the two others";
  EXPECT_DOUBLE_EQ(GraphPlace(0, 1).y, -3.7);
  EXPECT_TRUE(InBox({0, 10}));
  EXPECT_FALSE(InBox({-0.01, 5}));
  EXPECT_FALSE(InBox({5, 10.01}));
}

TEST_F(ManualScales, PointsAndPlacesAreThoseOfTheWindowShown) {
  scale.FirstPlotPt = 10;
  scale.LastPlotPt = 30;
  EXPECT_EQ(PointAt(0), 10);
  EXPECT_EQ(PointAt(10), 30);
  EXPECT_EQ(PointAt(2.7), 15);
  EXPECT_EQ(PointAt(2.8), 16);
  EXPECT_EQ(PointAt(-3), 10);
  EXPECT_EQ(PointAt(12), 30);
  EXPECT_DOUBLE_EQ(BoxX(15), 2.5);
  EXPECT_DOUBLE_EQ(BoxX(5), -2.5);
}

// --- Rectangle ---

TEST_F(ManualScales, ARectangleSetsBothAmplitudesAndTheWindow) {
  TakeRoundScale();
  ZoomTo({.left = 2, .right = 4.5, .bottom = 1, .top = 6});
  EXPECT_FALSE(view.AmplAuto);
  EXPECT_FALSE(view.FreqAuto);
  EXPECT_EQ(scale.LeftMin, 20);
  EXPECT_EQ(scale.LeftMax, 120);
  EXPECT_EQ(scale.RightMin, -72);
  EXPECT_EQ(scale.RightMax, 18);
  EXPECT_EQ(scale.FirstPlotPt, 16);
  EXPECT_EQ(scale.LastPlotPt, 36);
  EXPECT_EQ(scale.LeftMaxText, "120.000") << "the graph was not drawn anew";
  EXPECT_EQ(scale.FreqLowerText, "2.600");
  EXPECT_EQ(scale.FreqUpperText, "4.600");
  EXPECT_TRUE(shownMessages.Lines().empty());
}

TEST_F(ManualScales, AmplitudesAreThoseThatTheAxisTextsTell) {
  TakeRoundScale();
  ZoomTo({.bottom = 1.23456789, .top = 6.66666667});
  EXPECT_FLOAT_EQ(scale.LeftMin, 24.691F);
  EXPECT_FLOAT_EQ(scale.LeftMax, 133.333F);
  EXPECT_TRUE(view.FreqAuto);
}

TEST_F(ManualScales, ARectangleFinerThanTheTextsIsAThousandthHigh) {
  TakeRoundScale();
  ZoomTo({.bottom = 5, .top = 5.00001});
  EXPECT_FLOAT_EQ(scale.LeftMin, 100);
  EXPECT_FLOAT_EQ(scale.LeftMax, 100.001F);
  EXPECT_EQ(scale.LeftMaxText, "100.001");
}

TEST_F(ManualScales, AnAxisInThousandsIsCutInItsOwnUnits) {
  TakeRoundScale();
  scale.LeftMax = 2000;
  scale.LeftMag = 1000;
  ZoomTo({.bottom = 1.23456, .top = 5});
  EXPECT_FLOAT_EQ(scale.LeftMin, 247) << "0.247 of thousands";
  EXPECT_FLOAT_EQ(scale.LeftMax, 1000);
}

TEST_F(ManualScales, AWindowIsAtLeastOneIntervalWide) {
  ZoomTo({.left = 3, .right = 3.01});
  EXPECT_EQ(scale.FirstPlotPt, 24);
  EXPECT_EQ(scale.LastPlotPt, 25);
  ZoomTo({.left = 9.5, .right = 9.9});
  EXPECT_EQ(scale.FirstPlotPt, 24) << "the last point has none behind it";
  EXPECT_EQ(scale.LastPlotPt, 25);
}

TEST_F(ManualScales, TheWindowHasTheBoundsOfOneTypedByHand) {
  ZoomTo({.left = 9.9, .right = 9.99});
  EXPECT_EQ(scale.FirstPlotPt, 76) << "95 percent of the stop frequency, 8.55 MHz, is the highest";
  EXPECT_EQ(scale.LastPlotPt, 80);
}

TEST_F(ManualScales, ARectangleAsLargeAsTheBoxChangesNothing) {
  ZoomTo({});
  EXPECT_TRUE(view.AmplAuto);
  EXPECT_TRUE(view.FreqAuto);
}

TEST_F(ManualScales, OverTimeTheWindowMovesToSamples) {
  Show(33, 1);
  ASSERT_EQ(scale.LastPlotPt, 512);
  ZoomTo({.left = 1, .right = 5});
  EXPECT_FALSE(view.TimeAuto);
  EXPECT_TRUE(view.FreqAuto);
  EXPECT_EQ(scale.FirstPlotPt, 51);
  EXPECT_EQ(scale.LastPlotPt, 256);
  EXPECT_DOUBLE_EQ(scale.TimeUpper, 256 / design.SampleRateHz);
}

TEST_F(ManualScales, ARectangleEndsTheCursorAsEveryNewScaleDoes) {
  Cursor1_Click();
  ZoomTo({.left = 2, .right = 5});
  EXPECT_FALSE(measured.CursorOn);
}

TEST_F(ManualScales, TheManualScaleEndsWithThePlotAndTheWindowStays) {
  ZoomTo({.left = 2, .right = 5, .bottom = 1, .top = 6});
  Show(13, 0);
  EXPECT_TRUE(view.AmplAuto);
  EXPECT_EQ(scale.FirstPlotPt, 16);
}

TEST_F(ManualScales, AnExcitationPlotZoomsItsResponse) {
  Show(34, 1);
  const float top = scale.LeftMax;
  ZoomTo({.bottom = 0, .top = 5});
  EXPECT_NEAR(scale.LeftMax, top / 2, 0.0005 * scale.LeftMag);
}

// --- In words ---

TEST_F(ManualScales, ARectangleIsToldInWords) {
  TakeRoundScale();
  scale.LeftPrefix = "";
  EXPECT_EQ(RectangleText({.left = 2, .right = 4.5, .bottom = 1, .top = 6}),
            "2.600 to 4.600 MHz, 20.000 to 120.000 Ohms, -72.000 to 18.000 Degrees");
  plot.DualTrace = false;
  EXPECT_EQ(RectangleText({}), "1.000 to 9.000 MHz, 0.000 to 200.000 Ohms");
}

// --- Automatic ---

TEST_F(ManualScales, AutomaticScalesUndoARectangle) {
  const float top = scale.LeftMax;
  EXPECT_FALSE(ScaledByHand());
  ZoomTo({.left = 2, .right = 5, .bottom = 1, .top = 6});
  EXPECT_TRUE(ScaledByHand());
  AutomaticScales();
  EXPECT_FALSE(ScaledByHand());
  EXPECT_EQ(scale.LeftMax, top);
  EXPECT_EQ(scale.LastPlotPt, 80);
}

TEST_F(ManualScales, AutomaticScalesAreThoseOfThePlotOnShow) {
  ZoomTo({.left = 2, .right = 5});
  Show(33, 1);
  EXPECT_FALSE(ScaledByHand()) << "its own window is automatic";
  ZoomTo({.left = 2, .right = 5});
  AutomaticScales();
  EXPECT_TRUE(view.TimeAuto);
  EXPECT_FALSE(view.FreqAuto) << "no frequencies are on show";
  Show(33, 8);
  EXPECT_TRUE(ScaledByHand()) << "the spectrum's axis";
  AutomaticScales();
  EXPECT_TRUE(view.FreqAuto);
}

}  // namespace
}  // namespace halvorne::testing
