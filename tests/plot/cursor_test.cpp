#include "plot/cursor.h"

#include <algorithm>

#include "plot/plot_state.h"
#include "plot/shown_plot.h"

namespace halvorne::testing {
namespace {

using Kind = DrawnOperation::Kind;

/// A two-way transfer function from 1 to 9 MHz, points 10 to 30 shown.
class Cursor : public ShownPlot {
 protected:
  void ShowCurve(int number = 31, int form = 0) {
    Show(number, form);
    Picture().Scale(-2, 11, 12, -2);
    Picture().Forget();
    scale.FirstPlotPt = 10;
    scale.LastPlotPt = 30;
    scale.PlotFreqLower = 1e6F;
    scale.PlotFreqUpper = 9e6F;
    scale.LeftUnit = "V/V";
    scale.RightUnit = "Degrees";
    scale.FreqLowerText = "1.000";
    scale.FreqUpperText = "9.000";
    window.SetEnabled(Item::kCursorBar, false);
  }
  /// x of each line drawn since, in order.
  std::vector<double> LinesAt() {
    std::vector<double> at;
    for (const DrawnOperation& line : OfKind(Picture(), Kind::kLine)) {
      EXPECT_EQ(line.points[0].y, 0);
      EXPECT_EQ(line.points[1].y, 10);
      EXPECT_EQ(line.points[0].x, line.points[1].x);
      EXPECT_EQ(line.colour, kCyan);
      EXPECT_EQ(line.drawMode, kXorPen) << "the line could not be removed again";
      EXPECT_EQ(line.drawStyle, kDots);
      EXPECT_EQ(line.drawWidth, 1);
      at.push_back(line.points[0].x);
    }
    return at;
  }
  std::string ReadOut() {
    Picture().Forget();
    CursorPrint(Picture(), true);
    const std::vector<std::string> texts = TextsOn(Picture());
    return texts.size() == 1 ? texts[0] : "not one text";
  }
};

// --- On, off, moved ---

TEST_F(Cursor, StartsInTheMiddleOfTheWindow) {
  ShowCurve();
  Picture().SetAutoRedraw(false);
  Picture().SetScaleMode(3);
  Picture().SetDrawWidth(5);
  Cursor1_Click();
  EXPECT_TRUE(measured.CursorOn);
  EXPECT_EQ(window.CursorMin(), 10);
  EXPECT_EQ(window.CursorMax(), 30);
  EXPECT_EQ(window.CursorValue(), 20);
  EXPECT_EQ(measured.CursorX, 5);
  EXPECT_EQ(LinesAt(), std::vector<double>{5});
  EXPECT_TRUE(window.IsEnabled(Item::kCursorBar));
  EXPECT_EQ(TextsOn(Picture()), std::vector<std::string>{"0.000E+00 V/V at 5.000 MHz"});
  EXPECT_TRUE(Picture().AutoRedraw());
  EXPECT_EQ(Picture().ScaleMode(), 0);
}

/// A window that counts how often its scroll bar is given the focus.
class FocusWindow : public HeadlessWindow {
 public:
  void FocusCursorBar() override { ++focused; }
  int focused = 0;
};

TEST_F(Cursor, TheScrollBarHasTheFocusOnceTheCursorIsOn) {
  ShowCurve();
  FocusWindow focusing;
  MainWindow* const before = SetMainWindow(&focusing);
  Cursor1_Click();
  EXPECT_EQ(focusing.focused, 1);
  Cursor1_Click();
  EXPECT_EQ(focusing.focused, 1) << "turning it off leaves the focus";
  SetMainWindow(before);
}

TEST_F(Cursor, TheMiddleOfAnOddWindowIsTheLowerPoint) {
  ShowCurve();
  scale.FirstPlotPt = 0;
  scale.LastPlotPt = 5;
  Cursor1_Click();
  EXPECT_EQ(window.CursorValue(), 2);
  EXPECT_EQ(measured.CursorX, 4);
}

TEST_F(Cursor, TurnedOffDrawsTheSameLineAgainAndErasesTheReadOut) {
  ShowCurve();
  Cursor1_Click();
  window.SetCursorValue(17);
  Picture().Forget();
  Cursor1_Click();
  EXPECT_FALSE(measured.CursorOn);
  EXPECT_EQ(LinesAt(), std::vector<double>{3.5});
  EXPECT_FALSE(window.IsEnabled(Item::kCursorBar));
  EXPECT_TRUE(TextsOn(Picture()).empty());
  const auto texts = OfKind(Picture(), Kind::kText);
  ASSERT_FALSE(texts.empty());
  EXPECT_EQ(texts[0].text, setup.CursorBlank);
  Picture().Line(0, 0, 1, 1);
  EXPECT_EQ(Picture().Operations().back().drawMode, kCopyPen);
  EXPECT_EQ(Picture().Operations().back().drawStyle, kSolid);
}

TEST_F(Cursor, TurnedOffTakesItsPlaceFromTheScrollBarOnceMore) {
  ShowCurve();
  Cursor1_Click();
  Picture().Forget();
  measured.CursorX = 1;
  Cursor1_Click();
  EXPECT_EQ(LinesAt(), std::vector<double>{5});
  EXPECT_EQ(measured.CursorX, 5);
}

TEST_F(Cursor, EachLineIsDrawnAnEvenNumberOfTimesUntilTheCursorIsOff) {
  ShowCurve();
  scale.LastPlotPt = 37;  // 27 intervals: positions that are no round numbers
  Cursor1_Click();
  for (const std::int32_t value : {11, 29, 30, 13}) {
    window.SetCursorValue(value);
  }
  Cursor1_Click();
  std::vector<double> lines = LinesAt();
  EXPECT_EQ(lines.size(), 10U);
  std::ranges::sort(lines);
  for (std::size_t i = 0; i + 1 < lines.size(); i += 2) {
    EXPECT_EQ(lines[i], lines[i + 1]) << "a line stays on the picture";
  }
}

TEST_F(Cursor, MovingRemovesTheOldLineBeforeItDrawsTheNewOne) {
  ShowCurve();
  Cursor1_Click();
  Picture().Forget();
  window.SetCursorValue(30);
  EXPECT_EQ(LinesAt(), (std::vector<double>{5, 10}));
  EXPECT_EQ(measured.CursorX, 10);
  EXPECT_EQ(TextsOn(Picture()), std::vector<std::string>{"0.000E+00 V/V at 9.000 MHz"});
}

TEST_F(Cursor, TheScrollBarDoesNothingWhileTheCursorIsOff) {
  ShowCurve();
  window.SetCursorMax(30);
  window.SetCursorValue(4);
  HScroll1_Change();
  EXPECT_TRUE(Picture().Operations().empty());
  EXPECT_EQ(measured.CursorX, 0);
}

TEST_F(Cursor, AWindowOfOnePointIsADivisionByZero) {
  ShowCurve();
  scale.LastPlotPt = 10;
  Cursor1_Click();
  EXPECT_EQ(shownMessages.Lines(),
            std::vector<std::string>{
                "ERROR in Cursor1_Click of frmHalvorneMain|Error: 11. Division by zero"});
  EXPECT_TRUE(measured.CursorOn) << "it had been turned by then";
  EXPECT_FALSE(window.IsEnabled(Item::kCursorBar));
  EXPECT_TRUE(Picture().Operations().empty());
}

TEST_F(Cursor, EachWayToMoveItReportsItsOwnFailure) {
  ShowCurve();
  measured.CursorOn = true;
  window.SetCursorMin(-1);  // there is no such point
  window.SetCursorMax(10);
  shownMessages.Forget();
  FindMax_Click();
  FindMin_Click();
  window.SetCursorMax(-1);
  HScroll1_Change();
  const std::string words = " of frmHalvorneMain|Error: ";
  EXPECT_EQ(
      shownMessages.Lines(),
      (std::vector<std::string>{"ERROR in FindMax_Click" + words + "9. Subscript out of range",
                                "ERROR in FindMin_Click" + words + "9. Subscript out of range",
                                "ERROR in HScroll1_Change" + words + "11. Division by zero"}));
}

TEST_F(Cursor, WithoutAWindowClearingIsReported) {
  SetMainWindow(nullptr);
  ClearCursor();
  EXPECT_EQ(shownMessages.Lines(),
            std::vector<std::string>{"ERROR in ClearCursor of PLOTIT|Error: 5. Invalid procedure "
                                     "call or argument"});
}

TEST_F(Cursor, ClearingTurnsItOffAndItsButtonOn) {
  ShowCurve();
  Cursor1_Click();
  window.SetEnabled(Item::kCursor, false);
  Picture().Forget();
  ClearCursor();
  EXPECT_FALSE(measured.CursorOn);
  EXPECT_TRUE(window.IsEnabled(Item::kCursor));
  EXPECT_EQ(LinesAt(), std::vector<double>{5});

  Picture().Forget();
  ClearCursor();
  EXPECT_TRUE(Picture().Operations().empty()) << "nothing to clear";
}

// --- Read-out ---

TEST_F(Cursor, TheReadOutStandsCentredOnItsLineOverBlanks) {
  ShowCurve();
  window.SetCursorMax(30);
  window.SetCursorValue(20);
  Picture().Forget();
  CursorPrint(Picture(), true);
  const auto texts = OfKind(Picture(), Kind::kText);
  ASSERT_EQ(texts.size(), 2U);
  EXPECT_EQ(texts[0].text, std::string(102, ' '));
  const double y = -1.75 * (1.2 * 8 * 96 / 72) * 13 / 600;
  for (const DrawnOperation& text : texts) {
    EXPECT_NEAR(text.points[0].y, y, 1e-12);
    EXPECT_NEAR(MiddleOf(text, 14.0 / 800), 5, 1e-5);
    EXPECT_FALSE(text.fontTransparent);
  }
}

TEST_F(Cursor, TheReadOutPicksItsFormByTheScaledValue) {
  struct Row {
    double value;
    float magnitude;
    const char* prefix;
    const char* text;
  };
  const Row rows[] = {
      {12.3456, 1, "", "12.346 V/V"},
      {999.9, 1, "", "999.900 V/V"},
      {1000, 1, "", "1.000E+03 V/V"},
      {-999.9, 1, "", "-999.900 V/V"},
      {-1000, 1, "", "-1.000E+03 V/V"},
      {0.01, 1, "", "0.010 V/V"},
      {0.0099, 1, "", "9.900E-03 V/V"},
      {0, 1, "", "0.000E+00 V/V"},
      {12345.6, 1000, "K", "12.346 KV/V"},
      {9.99, 1000, "K", "9.990E+00 V/V"},  // the unscaled value, without the prefix
      {2.5e-3, 1e-3F, "m", "2.500 mV/V"},
      {2.5, 1e-3F, "m", "2.500E+00 V/V"},
  };
  for (const Row& row : rows) {
    ShowCurve();
    window.SetCursorMax(30);
    window.SetCursorValue(20);
    scale.LeftMag = row.magnitude;
    scale.LeftPrefix = row.prefix;
    points.PlotData(20).Y1 = row.value;
    EXPECT_EQ(ReadOut(), std::string(row.text) + " at 5.000 MHz");
  }
}

TEST_F(Cursor, BothTracesAreReadOut) {
  ShowCurve();
  plot.DualTrace = true;
  window.SetCursorMax(30);
  window.SetCursorValue(15);
  scale.LeftMag = 1e-3F;
  scale.LeftPrefix = "m";
  scale.RightMag = 1000;
  scale.RightPrefix = "K";
  points.PlotData(15) = {0.25, -2500};
  EXPECT_EQ(ReadOut(), "250.000 mV/V / -2.500 KDegrees at 3.000 MHz");
}

TEST_F(Cursor, ASpectrumIsNotReadOut) {
  ShowCurve(33, 8);
  plot.DualTrace = plot.SpectrumShown = true;
  design.SampleRateHz = 10e6;
  window.SetCursorMax(30);
  window.SetCursorValue(25);
  points.PlotData(25) = {-12.5, -40};
  EXPECT_EQ(ReadOut(), "-12.500 V/V at 2.500 usec");
}

TEST_F(Cursor, TurnedOffOverASpectrumRepairsTheFrequencyAxisThatSharesTheLine) {
  ShowCurve(33, 8);
  plot.SpectrumShown = true;
  plot.PlotTitle = "The title";
  scale.TimeLowerText = "0.000";
  scale.TimeUpperText = "4.000";
  const std::vector<std::string> bothAxes{"Time in usec",     "0.000", "4.000",
                                          "Frequency in MHz", "1.000", "9.000"};
  CursorPrint(Picture(), false);
  EXPECT_EQ(TextsOn(Picture()), bothAxes) << "the axes below the graph and nothing else";

  Picture().Forget();
  ClearCursor();
  EXPECT_EQ(TextsOn(Picture()), bothAxes);

  Picture().Forget();
  plot.SpectrumShown = false;
  CursorPrint(Picture(), false);
  EXPECT_TRUE(TextsOn(Picture()).empty());
}

TEST_F(Cursor, AReadOutWithoutADivisorIsReported) {
  ShowCurve();
  scale.LeftMag = 0;
  CursorPrint(Picture(), true);
  EXPECT_EQ(shownMessages.Lines(),
            std::vector<std::string>{"ERROR in CursorPrint of PLOTIT|Error: 11. Division by zero"});
}

// --- Extremes ---

TEST_F(Cursor, TheMaximumIsTheFirstOfEqualOnesWithinTheWindow) {
  ShowCurve();
  points.PlotData(5).Y1 = 99;
  points.PlotData(13).Y1 = 7;
  points.PlotData(18).Y1 = 7;
  points.PlotData(25).Y2 = 99;
  points.PlotData(31).Y1 = 99;
  FindMax_Click();
  EXPECT_TRUE(measured.CursorOn) << "finding turns the cursor on";
  EXPECT_EQ(window.CursorValue(), 13);
  EXPECT_EQ(measured.CursorX, 1.5F);
  EXPECT_EQ(TextsOn(Picture()).back(), "7.000 V/V at 2.200 MHz");
}

TEST_F(Cursor, TheMinimumIsTheFirstOfEqualOnesWithinTheWindow) {
  ShowCurve();
  points.PlotData(9).Y1 = -99;
  points.PlotData(11).Y1 = -7;
  points.PlotData(30).Y1 = -7;
  points.PlotData(31).Y1 = -99;
  FindMin_Click();
  EXPECT_EQ(window.CursorValue(), 11);
  EXPECT_EQ(measured.CursorX, 0.5F);
}

TEST_F(Cursor, TheEndsOfTheWindowAreSearchedToo) {
  ShowCurve();
  points.PlotData(10).Y1 = 5;
  points.PlotData(30).Y1 = -5;
  FindMax_Click();
  EXPECT_EQ(window.CursorValue(), 10);
  FindMin_Click();
  EXPECT_EQ(window.CursorValue(), 30);
  EXPECT_TRUE(measured.CursorOn) << "the second search leaves it on";
}

}  // namespace
}  // namespace halvorne::testing
