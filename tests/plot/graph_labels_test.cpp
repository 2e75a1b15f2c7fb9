#include <algorithm>
#include <cmath>
#include <utility>

#include "plot/graph.h"
#include "plot/plot_state.h"
#include "plot/shown_plot.h"

namespace halvorne::testing {
namespace {

using Kind = DrawnOperation::Kind;

constexpr double kWidth = 800;
constexpr double kHeight = 600;

/// Texts in the scale of pane 1 of the main picture.
class GraphLabels : public ShownPlot {
 protected:
  static constexpr double kUnitsPerPixel = 14 / kWidth;
  // Characters of the surface are 1.2 x 8 points high, 96 dots an inch.
  static constexpr double kTextHeight = 1.2 * 8 * 96 / 72 * 13 / kHeight;

  void ShowLabelled(int number, int form) {
    Show(number, form);
    Picture().Scale(-2, 11, 12, -2);
    Picture().Forget();
    plot.PlotTitle = "The title";
    plot.DualTrace = true;
    scale.LeftMaxText = "5.000";
    scale.LeftMinText = "-1.500";
    scale.RightMaxText = "90.000";
    scale.RightMinText = "-45.000";
    scale.FreqLowerText = "1.000";
    scale.FreqUpperText = "9.000";
    scale.TimeLowerText = "0.000";
    scale.TimeUpperText = "4.000";
    scale.LeftPrefix = "K";
    scale.RightPrefix = "m";
    scale.PeakUnit = "V/V";
  }

  void ExpectCentred(const std::string& text, double x, double y) {
    const DrawnOperation drawn = FindText(Picture(), text);
    EXPECT_NEAR(MiddleOf(drawn, kUnitsPerPixel), x, 1e-5) << text;
    EXPECT_NEAR(drawn.points[0].y, y, 1e-12) << text;
    EXPECT_FALSE(drawn.fontTransparent) << text << " does not erase what stood under it";
  }

  /// Places at which blanks were printed.
  std::vector<std::pair<double, double>> Blanks() {
    std::vector<std::pair<double, double>> places;
    for (const DrawnOperation& drawn : OfKind(Picture(), Kind::kText)) {
      if (drawn.text == "  ") {
        places.emplace_back(drawn.points[0].x, drawn.points[0].y);
      }
    }
    return places;
  }
};

TEST_F(GraphLabels, ATextIsCentredInASingleNumber) {
  HeadlessSurface surface;
  surface.Scale(-2, 11, 12, -2);
  float start = 0;
  CenterIt(surface, "abc", 5, start);
  // Three characters of 6.4 pixels, 14 units over 800 pixels.
  EXPECT_EQ(start, static_cast<float>(5 - 3 * 6.4 * 14 / 800 / 2));
}

TEST_F(GraphLabels, ATextErasesWhatStoodUnderIt) {
  HeadlessSurface surface;
  PrintAt(surface, 3, 4, "words");
  const DrawnOperation& drawn = surface.Operations().at(0);
  EXPECT_EQ(drawn.points[0].x, 3);
  EXPECT_EQ(drawn.points[0].y, 4);
  EXPECT_FALSE(drawn.fontTransparent);
}

TEST_F(GraphLabels, TheFontFollowsTheSurface) {
  struct Row {
    SurfaceKind kind;
    double pixels, expected;
  };
  const Row rows[] = {
      {SurfaceKind::kMainPicture, 600, 8}, {SurfaceKind::kPrinter, 600, 10},
      {SurfaceKind::kPreview, 449, 4},      // 6735 twips: 4.5 down to 4
      {SurfaceKind::kPreview, 505.125, 5},  // 7576.875 twips: 4.5 + 0.5
      {SurfaceKind::kPreview, 600, 5},      // 9000 twips: 5.35 + 0.5
      {SurfaceKind::kPreview, 673.5, 6},    // 10102.5 twips: 6 + 0.5
      {SurfaceKind::kPreview, 1000, 9},     // 15000 twips: 8.91 + 0.5
  };
  for (const Row& row : rows) {
    for (const bool small : {false, true}) {
      ShowLabelled(17, 0);
      HeadlessSurface surface(row.kind, 800, row.pixels);
      surface.SetFontSize(30);
      if (small) {
        ExImAxisLabelOn(surface, 2);
      } else {
        AxisLabelOn(surface, 1);
      }
      EXPECT_EQ(FindText(surface, "5.000").fontSize, row.expected) << row.pixels;
    }
  }
}

TEST_F(GraphLabels, TheTitleStandsAboveThePane) {
  ShowLabelled(31, 0);
  AxisLabelOn(Picture(), 1);
  ExpectCentred("The title", 5, 10.75);
  Picture().Forget();
  AxisLabelOn(Picture(), 4);
  ExpectCentred("The title", 5, 19.91);
}

TEST_F(GraphLabels, Pane5IsTheXAxisAlone) {
  ShowLabelled(33, 8);
  plot.SpectrumShown = true;
  AxisLabelOn(Picture(), 5);
  EXPECT_EQ(TextsOn(Picture()), (std::vector<std::string>{"Time in usec", "0.000", "4.000",
                                                          "Frequency in MHz", "1.000", "9.000"}));
}

TEST_F(GraphLabels, AFrequencyPlotHasItsAxisTextsInTheirPlaces) {
  ShowLabelled(31, 0);
  AxisLabelOn(Picture(), 1);
  ExpectCentred("Frequency in MHz", 5, -0.2);
  ExpectCentred("1.000", 0, -0.2);
  ExpectCentred("9.000", 10, -0.2);
  ExpectCentred("5.000", -1, 10 + kTextHeight / 2);
  ExpectCentred("-1.500", -1, kTextHeight / 2);
  ExpectCentred("90.000", 11, 10 + kTextHeight / 2);
  ExpectCentred("-45.000", 11, kTextHeight / 2);
  ExpectCentred("Vo/Vi", -1, 6.3);
  ExpectCentred("KV/V", -1, 4.3);
  ExpectCentred("Theta", 11, 6.3);
  ExpectCentred("mDegrees", 11, 4.3);
  EXPECT_EQ(Blanks(), (std::vector<std::pair<double, double>>{
                          {-1.8, 6.3}, {-1.8, 4.3}, {10.2, 6.3}, {10.2, 6.3}, {10.2, 4.3}}));
}

TEST_F(GraphLabels, WithoutASecondTraceThereIsNoRightAxis) {
  ShowLabelled(13, 0);
  plot.DualTrace = false;
  AxisLabelOn(Picture(), 1);
  EXPECT_EQ(TextsOn(Picture()),
            (std::vector<std::string>{"The title", "Frequency in MHz", "1.000", "9.000", "5.000",
                                      "-1.500", "Po/Pi", "KW/W"}));
  EXPECT_EQ(Blanks(),
            (std::vector<std::pair<double, double>>{{-1.8, 6.3}, {-1.8, 4.3}, {10.2, 6.3}}));
}

TEST_F(GraphLabels, ATimePlotHasATimeAxis) {
  ShowLabelled(33, 1);
  AxisLabelOn(Picture(), 4);
  ExpectCentred("Time in usec", 5, -0.2);
  ExpectCentred("0.000", 0, -0.2);
  ExpectCentred("4.000", 10, -0.2);
}

TEST_F(GraphLabels, ASpectrumHasASecondAxisOnTheReadOutLine) {
  ShowLabelled(33, 8);
  plot.SpectrumShown = true;
  AxisLabelOn(Picture(), 4);
  ExpectCentred("Frequency in MHz", 5, -1.75 * kTextHeight);
  ExpectCentred("1.000", 0, -1.75 * kTextHeight);
  ExpectCentred("9.000", 10, -1.75 * kTextHeight);
}

TEST_F(GraphLabels, TheReadOutLineStandsBelowTheCaptionOfTheXAxisHoweverTallThePicture) {
  constexpr double captionTop = -0.2;
  for (const int bottom : {-2, -4, -10, -40}) {
    Picture().Scale(-2, 11, 12, bottom);
    const double height = std::abs(Picture().TextHeight(setup.CursorBlank));
    EXPECT_LE(ReadOutLine(Picture()), captionTop - height + 1e-12) << bottom;
    EXPECT_LE(ReadOutLine(Picture()), -1.75 * height + 1e-12) << bottom;
  }
  // Letters of a tenth of a unit: told by their height alone, the line would begin within them.
  Picture().Scale(0, 10 / (1.2 * 8 * 96 / 72) * kHeight / 100, 1, 0);
  EXPECT_NEAR(ReadOutLine(Picture()), -0.3, 1e-12);
}

TEST_F(GraphLabels, OnPaperWithTheCursorOnTheSpectrumsCaptionIsLeftOutAndItsLimitsStandAtZero) {
  for (const SurfaceKind kind :
       {SurfaceKind::kMainPicture, SurfaceKind::kPreview, SurfaceKind::kPrinter}) {
    ShowLabelled(33, 8);
    plot.SpectrumShown = true;
    measured.CursorOn = true;
    HeadlessSurface surface(kind);
    surface.Scale(-2, 11, 12, -2);
    AxisLabelOn(surface, 5);
    const std::vector<std::string> texts = TextsOn(surface);
    const bool printer = kind == SurfaceKind::kPrinter;
    EXPECT_EQ(std::ranges::count(texts, "Frequency in MHz"), printer ? 0 : 1);
    EXPECT_EQ(FindText(surface, "1.000").points[0].y == 0, printer);
    EXPECT_EQ(FindText(surface, "9.000").points[0].y == 0, printer);
  }
}

TEST_F(GraphLabels, OnPaperWithTheCursorOffTheSpectrumsCaptionStands) {
  ShowLabelled(33, 8);
  plot.SpectrumShown = true;
  HeadlessSurface paper(SurfaceKind::kPrinter);
  paper.Scale(-2, 11.5, 12, -14.5);
  AxisLabelOn(paper, 4);
  EXPECT_LT(FindText(paper, "Frequency in MHz").points[0].y, 0);
}

// --- Peak text ---

TEST_F(GraphLabels, ThePeakOfAnImpulseResponseIsTold) {
  ShowLabelled(33, 0);
  measured.PeakAmpl = 0.01F;
  AxisLabelOn(Picture(), 1);
  EXPECT_EQ(measured.PeakAmplText, "Pk Ampl = -40.00 dB re 1 V/V");
  EXPECT_EQ(window.PeakLabel(), "Pk Ampl = -40.00 dB re 1 V/V");
  EXPECT_EQ(measured.PkAmplCaption, window.PeakLabel());
}

TEST_F(GraphLabels, ThePeaksOfAnExcitationResponseAreTwoLinesOnScreenAndOneInTheReport) {
  for (const int number : {17, 27, 34}) {
    ShowLabelled(number, 0);
    measured.PeakAmpl = 100;
    measured.ImpulsePeak = 2;
    AxisLabelOn(Picture(), 4);
    const std::string unit = number == 17 ? "Pa/V" : number == 27 ? "V/MPa" : "V/V";
    std::string peak = "Pk Ampl = 40.00 dB re 1 ";
    peak += unit;
    std::string impulse = "Impulse = 6.02 dB re 1 ";
    impulse += unit;
    EXPECT_EQ(window.PeakLabel(), peak + "\r\n" + impulse);
    EXPECT_EQ(measured.PeakAmplText, peak + " " + impulse);
  }
}

TEST_F(GraphLabels, APeakOfZeroIsMinus760Decibels) {
  ShowLabelled(34, 0);
  AxisLabelOn(Picture(), 4);
  EXPECT_EQ(measured.PeakAmplText, "Pk Ampl = -760.00 dB re 1 V/V Impulse = -760.00 dB re 1 V/V");
  EXPECT_EQ(measured.ImpulsePeak, 1e-38) << "the logarithm writes back what it used";
}

TEST_F(GraphLabels, OtherPlotsEmptyTheLabelAndKeepTheReportsText) {
  ShowLabelled(31, 0);
  measured.PeakAmplText = measured.PkAmplCaption = "of the plot before";
  window.SetPeakLabel("of the plot before");
  AxisLabelOn(Picture(), 1);
  EXPECT_EQ(window.PeakLabel(), "");
  EXPECT_EQ(measured.PkAmplCaption, "");
  EXPECT_EQ(measured.PeakAmplText, "of the plot before");
}

TEST_F(GraphLabels, PreviewAndPrinterLeaveThePeakTextAlone) {
  for (const SurfaceKind kind : {SurfaceKind::kPreview, SurfaceKind::kPrinter}) {
    ShowLabelled(33, 0);
    window.SetPeakLabel("kept");
    measured.PeakAmplText = "kept";
    HeadlessSurface surface(kind);
    AxisLabelOn(surface, 1);
    EXPECT_EQ(window.PeakLabel(), "kept");
    EXPECT_EQ(measured.PeakAmplText, "kept");
  }
}

// --- Small panes ---

TEST_F(GraphLabels, TheImpulsePaneHasItsCaptionsOnTheLeft) {
  ShowLabelled(34, 3);
  ExImAxisLabelOn(Picture(), 2);
  ExpectCentred("5.000", -2.08, 10 + kTextHeight / 2);
  ExpectCentred("-1.500", -2.08, kTextHeight / 2);
  ExpectCentred(" Vo/Vi", -2.08, 6.3);
  ExpectCentred("KV/V", -2.08, 4.3);
  EXPECT_EQ(Blanks(),
            (std::vector<std::pair<double, double>>{{-1.8, 6.3}, {-1.8, 4.3}, {10.2, 6.3}}));
  EXPECT_EQ(TextsOn(Picture()).size(), 4U);
}

TEST_F(GraphLabels, TheExcitationPaneHasItsUnitOnTheRightAndATagInTheBox) {
  struct Row {
    int number;
    std::int16_t exciteType;
    const char* unit;
    const char* tag;
  };
  const Row rows[] = {
      {17, 1, "Volts", "2.500 MHz"}, {27, 1, "MPa", "2.500 MHz"}, {34, 1, "Volts", "2.500 MHz"},
      {17, 2, "Volts", "BURST.XCT"}, {27, 2, "MPa", "BURST.XCT"}, {34, 2, "Volts", "BURST.XCT"},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.number);
    ShowLabelled(row.number, 0);
    design.ExciteType = row.exciteType;
    design.ExciteFreq = 2.5e6F;
    design.ExciteFileName = "\\EXCITE\\BURST.XCT";
    ExImAxisLabelOn(Picture(), 3);
    ExpectCentred("5.000", 12.08, 10 + kTextHeight / 2);
    ExpectCentred("-1.500", 12.08, kTextHeight / 2);
    ExpectCentred(row.unit, 12.08, 5 + kTextHeight / 2);
    const DrawnOperation tag = FindText(Picture(), row.tag);
    EXPECT_NEAR(tag.points[0].x, 9.8 - 9 * 6.4 * kUnitsPerPixel, 1e-9) << "its end at 9.8";
    EXPECT_EQ(tag.points[0].y, 9.8);
    EXPECT_EQ(TextsOn(Picture()).size(), 4U);
  }
}

TEST_F(GraphLabels, WithoutAnExcitationTheTagIsTheUnit) {
  ShowLabelled(27, 0);
  ExImAxisLabelOn(Picture(), 3);
  const std::vector<std::string> texts = TextsOn(Picture());
  EXPECT_EQ(std::ranges::count(texts, "MPa"), 2);
}

TEST_F(GraphLabels, WithoutAWindowEachRoutineReportsItsOwnFailure) {
  ShowLabelled(16, 0);
  HeadlessSurface surface;
  SetMainWindow(nullptr);
  AxisLabelOn(surface, 1);
  const std::string words = " of PLOTIT|Error: 5. Invalid procedure call or argument";
  EXPECT_EQ(shownMessages.Lines(), (std::vector<std::string>{"ERROR in GetAmplLabels" + words,
                                                             "ERROR in AxisLabelOn" + words}));
}

TEST_F(GraphLabels, ATextWiderThanAnyNumberHasNoMiddle) {
  HeadlessSurface surface;
  surface.Scale(0, 1, 1e41, 0);
  float start = 7;
  CenterIt(surface, "x", 0, start);
  EXPECT_EQ(start, 7);
  EXPECT_EQ(shownMessages.Lines(),
            std::vector<std::string>{"ERROR in CenterIt of PLOTIT|Error: 6. Overflow"});
}

TEST_F(GraphLabels, AFailureIsReportedByTheRoutineOfThePane) {
  ShowLabelled(17, 0);
  design.ExciteType = 1;
  design.FreqScale = 0;
  ExImAxisLabelOn(Picture(), 3);
  EXPECT_EQ(
      shownMessages.Lines(),
      std::vector<std::string>{"ERROR in ExImAxisLabelOn of PLOTIT|Error: 11. Division by zero"});
}

}  // namespace
}  // namespace halvorne::testing
