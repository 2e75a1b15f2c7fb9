#include "plot/graph.h"

#include <algorithm>
#include <array>

#include "plot/plot_state.h"
#include "plot/shown_plot.h"

namespace halvorne::testing {
namespace {

using Kind = DrawnOperation::Kind;

constexpr SurfaceKind kSurfaces[] = {SurfaceKind::kMainPicture, SurfaceKind::kPreview,
                                     SurfaceKind::kPrinter};

class Graphs : public ShownPlot {
 protected:
  /// A plot of two traces in a window of three points, in a manual scale of -10 to 10.
  void ShowTwoTraces(int number, int form) {
    Show(number, form);
    plot.DualTrace = true;
    scale.LastPlotPt = 2;
    scale.LeftMax = scale.RightMax = 10;
    scale.LeftMin = scale.RightMin = -10;
    for (TimePoints* array : {&points.PlotData, &points.PlotDataImpulse, &points.PlotDataExcite}) {
      (*array)(0) = {1, -4};
      (*array)(1) = {2, -5};
      (*array)(2) = {3, -6};
    }
  }
  static std::vector<double> Corners(const DrawnOperation& scaling) {
    return {scaling.points[0].x, scaling.points[0].y, scaling.points[1].x, scaling.points[1].y};
  }
  std::vector<std::string> Boxes() { return shownMessages.Lines(); }
};

// --- Panes ---

TEST_F(Graphs, EveryPaneHasItsScaleOnEverySurface) {
  const std::vector<double> single[] = {
      {-2, 11, 12, -2}, {-2.35, 12.65, 12.35, -15.65}, {-2, 11.5, 12, -14.5}};
  const std::vector<double> threePanes[][3] = {
      {{-4.17, 12.5, 25, -20}, {-15, 12.5, 14.17, -20}, {-2, 20.37, 12, -3.7}},
      {{-4.9, 16.63, 25.73, -54.13}, {-15.73, 16.63, 14.9, -54.13}, {-2.35, 23.43, 12.35, -28.98}},
      {{-4.17, 13.75, 25, -51.25}, {-15, 13.75, 14.17, -51.25}, {-2, 21.3, 12, -26.85}}};
  for (std::size_t i = 0; i < 3; ++i) {
    ShowTwoTraces(31, 0);
    HeadlessSurface surface(kSurfaces[i]);
    PlotGraphOn(surface);
    const auto one = OfKind(surface, Kind::kScale);
    ASSERT_EQ(one.size(), 1U);
    EXPECT_EQ(Corners(one[0]), single[i]);

    for (const int number : {17, 27, 34}) {
      ShowTwoTraces(number, 0);
      HeadlessSurface panes(kSurfaces[i]);
      PlotGraphOn(panes);
      const auto three = OfKind(panes, Kind::kScale);
      ASSERT_EQ(three.size(), 3U);
      for (std::size_t pane = 0; pane < 3; ++pane) {
        EXPECT_EQ(Corners(three[pane]), threePanes[i][pane]) << "pane " << pane + 2;
      }
    }
  }
}

TEST_F(Graphs, OnlyThePrinterIsNotClearedFirst) {
  for (const SurfaceKind kind : kSurfaces) {
    ShowTwoTraces(31, 0);
    HeadlessSurface surface(kind);
    PlotGraphOn(surface);
    EXPECT_EQ(surface.Operations()[0].kind,
              kind == SurfaceKind::kPrinter ? Kind::kScale : Kind::kCls);
    EXPECT_EQ(OfKind(surface, Kind::kCls).size(), kind == SurfaceKind::kPrinter ? 0U : 1U);
  }
}

TEST_F(Graphs, TheMeasurementsAreRefreshedForTheMainPictureOnly) {
  for (const SurfaceKind kind : kSurfaces) {
    ShowTwoTraces(31, 0);
    measured.CFBWValid = measured.PulseWidthValid = measured.AttenValid = design.AttenOn = true;
    measured.CFBWText[3][0] = "-6";
    measured.PulseWidthText[2][0] = "-20";
    window.SetGridCell(Grid::kCFBW, 3, 0, "old");
    window.SetGridCell(Grid::kPulseWidth, 2, 0, "old");
    window.SetAttenuationLabels({"old", "", "", ""});
    HeadlessSurface surface(kind);
    PlotGraphOn(surface);
    const bool main = kind == SurfaceKind::kMainPicture;
    EXPECT_EQ(window.GridCell(Grid::kCFBW, 3, 0), main ? "-6" : "old");
    EXPECT_EQ(window.GridCell(Grid::kPulseWidth, 2, 0), main ? "-20" : "old");
    EXPECT_EQ(window.AttenuationLabels()[0], main ? "Path length 0.000 cm" : "old");
  }
}

TEST_F(Graphs, EachPaneDrawsItsOwnData) {
  ShowTwoTraces(17, 0);
  plot.DualTrace = false;
  points.PlotData(1).Y1 = -9;
  points.PlotDataImpulse(1).Y1 = 0;
  points.PlotDataExcite(1).Y1 = 1.5;
  scale.LeftMax = 10;
  PlotGraphOn(Picture());
  const auto traces = OfKind(Picture(), Kind::kPolyline);
  ASSERT_EQ(traces.size(), 3U);
  EXPECT_NEAR(traces[0].points[1].y, 5, 1e-9) << "impulse: 0 in the middle of -3 to 3";
  EXPECT_NEAR(traces[1].points[1].y, 7.5, 1e-9) << "excitation: 1.5 in -3 to 3";
  EXPECT_NEAR(traces[2].points[1].y, 0.5, 1e-9) << "response: -9 in the manual -10 to 10";
}

TEST_F(Graphs, AManualScaleSurvivesTheSmallPanesWhichScaleThemselves) {
  ShowTwoTraces(34, 0);
  scale.LeftMax = 8;
  scale.LeftMin = -6;
  scale.LeftMag = 0.001F;
  scale.RightMax = 4;
  scale.RightMin = -2;
  scale.RightMag = 10;
  PlotGraphOn(Picture());
  EXPECT_EQ(scale.LeftMax, 8);
  EXPECT_EQ(scale.LeftMin, -6);
  EXPECT_EQ(scale.LeftMag, 0.001F);
  EXPECT_EQ(scale.RightMax, 4);
  EXPECT_EQ(scale.RightMin, -2);
  EXPECT_EQ(scale.RightMag, 10);
  // 3 tops the data of the small panes; 8 in thousandths stands at the response.
  const std::vector<std::string> texts = TextsOn(Picture());
  EXPECT_EQ(std::ranges::count(texts, "3.000"), 2);
  EXPECT_EQ(std::ranges::count(texts, "8000.000"), 1);
}

TEST_F(Graphs, AnAutomaticScaleIsMadeForEachPane) {
  ShowTwoTraces(34, 0);
  view.AmplAuto = true;
  plot.DualTrace = false;
  points.PlotDataImpulse(2).Y1 = 70;
  points.PlotDataExcite(2).Y1 = 0.2;
  points.PlotDataExcite(1).Y1 = 0.2;
  points.PlotDataExcite(0).Y1 = 0.15;
  PlotGraphOn(Picture());
  EXPECT_EQ(scale.LeftMax, 3);
  const std::vector<std::string> texts = TextsOn(Picture());
  EXPECT_EQ(std::ranges::count(texts, "75.000"), 1);
  EXPECT_EQ(std::ranges::count(texts, "200.000"), 1);
  EXPECT_EQ(std::ranges::count(texts, "3.000"), 1);
}

// --- Axes ---

TEST_F(Graphs, TheAxesAreABoxAndThirtySixTicksInward) {
  HeadlessSurface surface;
  surface.SetDrawStyle(kDots);
  surface.SetDrawMode(kXorPen);
  surface.SetDrawWidth(5);
  AxisDrawOn(surface);
  const auto& drawn = surface.Operations();
  ASSERT_EQ(drawn.size(), 37U);
  EXPECT_EQ(drawn[0].kind, Kind::kBox);
  EXPECT_EQ(Corners(drawn[0]), (std::vector<double>{0, 0, 10, 10}));
  std::size_t next = 1;
  for (int i = 1; i <= 9; ++i) {
    const std::vector<double> ticks[] = {{1.0 * i, 0, 1.0 * i, 0.13},
                                         {1.0 * i, 10, 1.0 * i, 9.87},
                                         {0, 1.0 * i, 0.1, 1.0 * i},
                                         {10, 1.0 * i, 9.9, 1.0 * i}};
    for (const std::vector<double>& expected : ticks) {
      const DrawnOperation& tick = drawn.at(next++);
      EXPECT_EQ(tick.kind, Kind::kLine);
      EXPECT_EQ(Corners(tick), expected);
      EXPECT_EQ(tick.drawStyle, kSolid);
      EXPECT_EQ(tick.drawMode, kCopyPen);
      EXPECT_EQ(tick.drawWidth, 1);
    }
  }
  EXPECT_EQ(surface.ScaleMode(), 0);
}

TEST_F(Graphs, PictureAndPreviewAreKeptForRepaintsThePrinterIsNot) {
  for (const SurfaceKind kind : kSurfaces) {
    HeadlessSurface surface(kind);
    AxisDrawOn(surface);
    EXPECT_EQ(surface.AutoRedraw(), kind != SurfaceKind::kPrinter);
  }
}

TEST_F(Graphs, EachPaneHasItsAxesAndTheLargeOneTheTitle) {
  for (const int number : {31, 34}) {
    ShowTwoTraces(number, 0);
    plot.PlotTitle = "The title";
    PlotGraphOn(Picture());
    EXPECT_EQ(OfKind(Picture(), Kind::kBox).size(), number == 34 ? 3U : 1U);
    EXPECT_EQ(FindText(Picture(), "The title").points[0].y, number == 34 ? 19.91 : 10.75);
    EXPECT_EQ(std::ranges::count(TextsOn(Picture()), "The title"), 1);
  }
}

// --- Traces ---

TEST_F(Graphs, BothTracesAreDrawnInTheirScalesAndColours) {
  for (const SurfaceKind kind : kSurfaces) {
    ShowTwoTraces(31, 0);
    scale.RightMin = -6;
    scale.RightMax = -4;
    HeadlessSurface surface(kind);
    surface.SetForeColor(kCyan);
    PlotItOn(surface, 0, 2, 1, points.PlotData);
    const auto traces = OfKind(surface, Kind::kPolyline);
    ASSERT_EQ(traces.size(), 2U);
    EXPECT_EQ(traces[0].drawWidth, 1);
    ASSERT_EQ(traces[0].points.size(), 3U);
    EXPECT_EQ(traces[0].points[0].y, 5.5) << "1 between -10 and 10";
    EXPECT_EQ(traces[0].points[2].y, 6.5);
    EXPECT_NEAR(traces[0].points[1].x, 5, 1e-6);
    EXPECT_EQ(traces[0].colour, kBlack);
    EXPECT_EQ(traces[0].drawStyle, kSolid);
    ASSERT_EQ(traces[1].points.size(), 3U);
    EXPECT_EQ(traces[1].points[0].y, 10) << "-4 between -6 and -4";
    EXPECT_EQ(traces[1].points[2].y, 0);
    EXPECT_EQ(traces[1].colour, kBlue);
    EXPECT_EQ(traces[1].drawStyle, kind == SurfaceKind::kPrinter ? kDots : kSolid)
        << "dots tell the traces apart on black and white paper";
    // What is drawn next is black and solid again.
    surface.Line(0, 0, 1, 1);
    EXPECT_EQ(surface.Operations().back().colour, kBlack);
    EXPECT_EQ(surface.Operations().back().drawStyle, kSolid);
  }
}

TEST_F(Graphs, WithoutASecondTraceOnlyTheFirstIsDrawn) {
  ShowTwoTraces(31, 0);
  plot.DualTrace = false;
  PlotItOn(Picture(), 0, 2, 1, points.PlotData);
  EXPECT_EQ(OfKind(Picture(), Kind::kPolyline).size(), 1U);
}

TEST_F(Graphs, ASpectrumSpansTheBoxWhateverTimeWindowIsShown) {
  ShowTwoTraces(33, 8);
  plot.SpectrumShown = true;
  design.NoFreqPts = 4;
  for (long i = 0; i <= 4; ++i) {
    points.PlotData(i).Y2 = static_cast<double>(i);
  }
  for (long i = 5; i < 200; ++i) {
    points.PlotData(i).Y2 = -500;  // what follows a spectrum in the record
  }
  points.PlotData(100).Y2 = -8;
  PlotItOn(Picture(), 100, 150, 4, points.PlotData);
  const auto traces = OfKind(Picture(), Kind::kPolyline);
  ASSERT_EQ(traces.size(), 2U);
  ASSERT_EQ(traces[1].points.size(), 5U) << "it stops at NoFreqPts";
  EXPECT_EQ(traces[1].points[0].y, 1) << "it starts with the first point shown, -8, not with 0";
  EXPECT_EQ(traces[1].points[1].y, 5.5) << "and goes on with point 1 of the spectrum";
  EXPECT_NEAR(traces[1].points[4].x, 10, 1e-6);
  EXPECT_EQ(traces[1].points[4].y, 7);
}

TEST_F(Graphs, ASecondTraceOfMoreThan32767IntervalsOverflowsAfterTheFirstWasDrawn) {
  ShowTwoTraces(33, 3);
  PlotItOn(Picture(), 0, 32767, 4, points.PlotData);
  EXPECT_EQ(OfKind(Picture(), Kind::kPolyline).size(), 2U);
  EXPECT_TRUE(Boxes().empty());

  Picture().Forget();
  PlotItOn(Picture(), 0, 32768, 4, points.PlotData);
  const auto traces = OfKind(Picture(), Kind::kPolyline);
  ASSERT_EQ(traces.size(), 1U);
  EXPECT_EQ(traces[0].points.size(), 32769U);
  EXPECT_EQ(Boxes(), std::vector<std::string>{"ERROR in PlotItOn of PLOTIT|Error: 6. Overflow"});
}

TEST_F(Graphs, EqualEndsOfAnAxisAreADivisionByZeroOfTheGraph) {
  ShowTwoTraces(31, 0);
  scale.LeftMin = scale.LeftMax;
  PlotGraphOn(Picture());
  EXPECT_EQ(Boxes(),
            std::vector<std::string>{"ERROR in PlotItOn of PLOTIT|Error: 11. Division by zero"});
  EXPECT_TRUE(OfKind(Picture(), Kind::kPolyline).empty());
}

TEST_F(Graphs, AWindowOfOnePointDrawsNoLine) {
  ShowTwoTraces(16, 0);
  PlotItOn(Picture(), 0, 0, 1, points.PlotData);
  EXPECT_TRUE(OfKind(Picture(), Kind::kPolyline).empty());
  EXPECT_TRUE(Boxes().empty());
}

// --- The excitation's pane ---

TEST_F(Graphs, TheExcitationPaneWidensANormalisedScaleAndFollowsWithTheRightAxis) {
  struct Row {
    int form;
    bool logarithmic;
    float leftMax, leftMin, rightMax, rightMin;
  };
  const Row rows[] = {
      {0, false, 1.25F, -1.25F, 1.25F, -1.25F},
      {1, false, 1.25F, 0, 1.25F, 0},
      {2, true, 5, -55, 5, -55},
      {3, false, 1.25F, -1.25F, 1.25F, -1.25F},
      {4, false, 1.25F, 0, 1.25F, 0},
      {5, true, 5, -55, 5, -55},
      {6, false, 1.25F, -1.25F, 45, -15},
      {7, false, 1.25F, 0, 45, -15},
      {8, true, 5, -55, 45, -15},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE("form " + std::to_string(row.form));
    Show(17, row.form);
    plot.AmplLog = row.logarithmic;
    plot.SpectrumShown = row.form >= 6;
    plot.DualTrace = row.form >= 3;
    design.NoFreqPts = 1;
    scale.LastPlotPt = 1;
    points.PlotDataExcite(0) = {1, -30};
    points.PlotDataExcite(1) = {-1, 40.5};
    PlotItOn(Picture(), 0, 1, 3, points.PlotDataExcite);
    EXPECT_EQ(scale.LeftMax, row.leftMax);
    EXPECT_EQ(scale.LeftMin, row.leftMin);
    EXPECT_EQ(scale.RightMax, row.rightMax);
    EXPECT_EQ(scale.RightMin, row.rightMin);
    EXPECT_EQ(scale.LeftMaxText, row.logarithmic ? "5.000" : "1.250") << "the texts are made anew";
    EXPECT_TRUE(Boxes().empty());
  }
}

TEST_F(Graphs, TheExcitationPaneWidensExactlyOneOnly) {
  Show(17, 0);
  scale.LastPlotPt = 1;
  points.PlotDataExcite(0).Y1 = 1.2;
  points.PlotDataExcite(1).Y1 = -1.2;
  PlotItOn(Picture(), 0, 1, 3, points.PlotDataExcite);
  EXPECT_EQ(scale.LeftMax, 1.5F);
  EXPECT_EQ(scale.LeftMin, -1.5F);
}

TEST_F(Graphs, TheImpulsePaneIsNotWidened) {
  Show(17, 0);
  scale.LastPlotPt = 1;
  points.PlotDataImpulse(0).Y1 = 1;
  points.PlotDataImpulse(1).Y1 = -1;
  PlotItOn(Picture(), 0, 1, 2, points.PlotDataImpulse);
  EXPECT_EQ(scale.LeftMax, 1);
  EXPECT_EQ(scale.LeftMin, -1);
}

// --- Cursor ---

TEST_F(Graphs, ARedrawSwitchesTheCursorOffOnTheMainPictureOnly) {
  for (const SurfaceKind kind : kSurfaces) {
    ShowTwoTraces(31, 0);
    window.SetCursorMax(2);
    measured.CursorOn = true;
    HeadlessSurface surface(kind);
    PlotGraphOn(surface);
    EXPECT_EQ(measured.CursorOn, kind != SurfaceKind::kMainPicture);
  }
}

}  // namespace
}  // namespace halvorne::testing
