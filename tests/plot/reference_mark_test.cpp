#include "plot/reference_mark.h"

#include "plot/cursor.h"
#include "plot/graph.h"
#include "plot/graph_description.h"
#include "plot/plot_state.h"
#include "plot/shown_plot.h"

namespace halvorne::testing {
namespace {

using Kind = DrawnOperation::Kind;

/// A plot of 80 intervals from 1 to 9 MHz, points 10 to 30 shown, 2 to 4 MHz.
class Mark : public ShownPlot {
 protected:
  void ShowCurve(int number = 31, int form = 0) {
    Show(number, form);
    design.FreqStart = 1e6;
    design.FreqStop = 9e6;
    design.FreqStep = 1e5;
    design.NoFreqPts = 80;
    design.NoTimePts = 1024;
    design.SampleRateHz = 10e6;
    scale.FirstPlotPt = 10;
    scale.LastPlotPt = 30;
    scale.PlotFreqLower = 2e6F;
    scale.PlotFreqUpper = 4e6F;
    scale.LeftMax = scale.RightMax = 10;
    scale.LeftMin = scale.RightMin = -10;
    scale.LeftUnit = "V/V";
    scale.RightUnit = "Degrees";
    Picture().Scale(-2, 11, 12, -2);
    Picture().Forget();
  }
  void SetMarkAt(std::int32_t point) {
    PutCursorAt(point);
    ToggleMark();
  }
  std::string ReadOutAt(std::int32_t point) {
    PutCursorAt(point);
    return measured.ReadOut;
  }
};

TEST_F(Mark, StandsAtTheCursorWhichItTurnsOn) {
  ShowCurve();
  ToggleMark();
  EXPECT_TRUE(measured.CursorOn);
  EXPECT_TRUE(MarkSet());
  EXPECT_EQ(MarkPoint(), 20) << "the cursor starts in the middle";
  EXPECT_DOUBLE_EQ(reading.FreqMark.Position, 3e6);
}

TEST_F(Mark, ASecondTimeTakesItAway) {
  ShowCurve();
  SetMarkAt(15);
  PutCursorAt(25);
  ToggleMark();
  EXPECT_FALSE(MarkSet());
  EXPECT_EQ(measured.ReadOut, "0.000E+00 V/V at 3.500 MHz");
  EXPECT_EQ(window.CursorValue(), 25) << "the cursor stays where it was";
}

TEST_F(Mark, SettingItDrawsTheGraphAnewAndKeepsTheCursor) {
  ShowCurve();
  PutCursorAt(15);
  Picture().Forget();
  ToggleMark();
  EXPECT_EQ(OfKind(Picture(), Kind::kCls).size(), 1U);
  EXPECT_TRUE(measured.CursorOn);
  EXPECT_EQ(window.CursorValue(), 15);
  EXPECT_EQ(measured.CursorX, 2.5F);
}

TEST_F(Mark, TheReadOutTellsTheDifferences) {
  ShowCurve();
  plot.DualTrace = true;
  points.PlotData(15) = {0.25, -40};
  points.PlotData(25) = {0.75, 5.5};
  SetMarkAt(15);
  EXPECT_EQ(ReadOutAt(25),
            "0.750 V/V / 5.500 Degrees at 3.500 MHz   \u0394 0.500 V/V / 45.500 Degrees, "
            "1.000 MHz");
  points.PlotData(12) = {0.25, -130};
  EXPECT_EQ(ReadOutAt(12),
            "0.250 V/V / -130.000 Degrees at 2.200 MHz   \u0394 0.000 V/V / -90.000 Degrees, "
            "-0.300 MHz")
      << "no difference is a plain zero";
}

TEST_F(Mark, DifferencesFollowTheDivisorsOfTheAxes) {
  ShowCurve();
  scale.LeftMag = 1000;
  scale.LeftPrefix = "K";
  points.PlotData(15).Y1 = 2000;
  points.PlotData(16).Y1 = 2500;
  points.PlotData(17).Y1 = 2003;
  SetMarkAt(15);
  EXPECT_TRUE(ReadOutAt(16).ends_with("\u0394 0.500 KV/V, 0.100 MHz"));
  EXPECT_TRUE(ReadOutAt(17).ends_with("\u0394 3.000E+00 V/V, 0.200 MHz"));
}

TEST_F(Mark, ASpectrumIsNotCompared) {
  ShowCurve(33, 8);
  plot.DualTrace = plot.SpectrumShown = true;
  points.PlotData(15) = {-12, -40};
  points.PlotData(25) = {-6, -10};
  SetMarkAt(15);
  EXPECT_EQ(ReadOutAt(25), "-6.000 dB at 2.500 usec   \u0394 6.000 dB, 1.000 usec");
}

TEST_F(Mark, IsComparedWithEvenWhereTheWindowDoesNotShowIt) {
  ShowCurve();
  points.PlotData(15).Y1 = 1;
  points.PlotData(25).Y1 = 4;
  SetMarkAt(15);
  Cursor1_Click();
  scale.FirstPlotPt = 20;
  scale.PlotFreqLower = 3e6F;
  EXPECT_TRUE(ReadOutAt(25).ends_with("\u0394 3.000 V/V, 1.000 MHz"));
}

TEST_F(Mark, BelongsToItsFrequencyWhateverThePoints) {
  ShowCurve();
  SetMarkAt(15);  // 2.5 MHz
  design.FreqStep = 5e4;
  EXPECT_EQ(MarkPoint(), 30);
  design.FreqStep = 1.1e5;
  EXPECT_EQ(MarkPoint(), 14) << "13.6 intervals from the start";
  design.FreqStart = 2.6e6;
  EXPECT_EQ(MarkPoint(), std::nullopt) << "the sweep does not reach it";
  EXPECT_TRUE(MarkSet()) << "it is there once the sweep does";
  design.FreqStart = 0;
  design.NoFreqPts = 22;
  EXPECT_EQ(MarkPoint(), std::nullopt);
}

TEST_F(Mark, PlotsOverTimeHaveTheirOwn) {
  ShowCurve();
  SetMarkAt(15);
  view.CurrentPlot = 33;
  EXPECT_FALSE(MarkSet());
  ToggleMark();
  EXPECT_EQ(MarkPoint(), 15) << "1.5 usec at 10 MHz";
  view.CurrentPlot = 34;
  EXPECT_TRUE(MarkSet());
  ToggleMark();
  view.CurrentPlot = 11;
  EXPECT_EQ(MarkPoint(), 15) << "that of the frequencies is still there";
}

TEST_F(Mark, ItsLineStandsInTheMainPictureWhereTheWindowShowsIt) {
  const auto uprights = [](SurfaceKind kind) {
    HeadlessSurface surface(kind);
    PlotGraphOn(surface);
    std::vector<double> at;
    for (const DrawnOperation& line : OfKind(surface, Kind::kLine)) {
      if (line.points[0].y == 0 && line.points[1].y == 10) {
        at.push_back(line.points[0].x);
      }
    }
    return at;
  };
  ShowCurve();
  EXPECT_TRUE(uprights(SurfaceKind::kMainPicture).empty());
  reading.FreqMark = {true, 2.5e6};
  EXPECT_EQ(uprights(SurfaceKind::kMainPicture), std::vector<double>{2.5});
  EXPECT_TRUE(uprights(SurfaceKind::kPreview).empty());
  EXPECT_TRUE(uprights(SurfaceKind::kPrinter).empty());
  reading.FreqMark.Position = 1.9e6;
  EXPECT_TRUE(uprights(SurfaceKind::kMainPicture).empty());
  reading.FreqMark.Position = 1e99;
  EXPECT_TRUE(uprights(SurfaceKind::kMainPicture).empty());
}

TEST_F(Mark, OnPaperTheReadOutStaysWithoutDifferences) {
  ShowCurve();
  SetMarkAt(15);
  PutCursorAt(25);
  for (const SurfaceKind kind : {SurfaceKind::kPreview, SurfaceKind::kPrinter}) {
    HeadlessSurface surface(kind);
    surface.Scale(-2, 11.5, 12, -14.5);
    CursorPrint(surface, true);
    EXPECT_EQ(TextsOn(surface), std::vector<std::string>{"0.000E+00 V/V at 3.500 MHz"});
    EXPECT_EQ(OfKind(surface, Kind::kText)[0].text, setup.CursorBlank);
  }
}

TEST_F(Mark, TheReadOutFitsThePictureAndErasesTheOneBefore) {
  for (const double width : {1000.0, 430.0, 250.0}) {
    ShowCurve();
    plot.DualTrace = true;
    reading.FreqMark = {true, 2.5e6};
    points.PlotData(25) = {-1.23456e9, -123.456};
    window.SetCursorMin(10);
    window.SetCursorMax(30);
    window.SetCursorValue(25);
    HeadlessSurface surface(SurfaceKind::kMainPicture, width, 600);
    surface.Scale(-2, 11, 12, -2);
    CursorPrint(surface, true);
    const auto texts = OfKind(surface, Kind::kText);
    ASSERT_EQ(texts.size(), 2U);
    const auto span = [&](const DrawnOperation& text) {
      const double letter = 0.6 * text.fontSize * 96 / 72 * 14 / width;
      return std::pair{text.points[0].x,
                       text.points[0].x + letter * static_cast<double>(text.text.size())};
    };
    EXPECT_EQ(texts[0].text.find_first_not_of(' '), std::string::npos);
    EXPECT_GE(span(texts[1]).first, -2) << width;
    EXPECT_LE(span(texts[1]).second, 12) << width;
    EXPECT_LE(span(texts[0]).first, span(texts[1]).first + 1e-6) << width;
    EXPECT_GE(span(texts[0]).second, span(texts[1]).second - 1e-6) << width;
    EXPECT_EQ(texts[0].fontSize, 8);
    surface.Print("x");
    EXPECT_EQ(surface.Operations().back().fontSize, 8) << "the smaller letters stay";
  }
}

TEST_F(Mark, IsToldToThoseWhoCannotSeeIt) {
  ShowCurve();
  const std::string without = GraphDescription();
  reading.FreqMark = {true, 2.5e6};
  EXPECT_EQ(GraphDescription(), without + " Reference mark at 2.500 MHz.");
}

TEST_F(Mark, WithoutAMarkTheReadOutIsDrawnAsEver) {
  ShowCurve();
  window.SetCursorMax(30);
  window.SetCursorValue(25);
  reading.TimeMark = {true, 1e-6};  // of the other plots
  Picture().Forget();
  CursorPrint(Picture(), true);
  const auto texts = OfKind(Picture(), Kind::kText);
  ASSERT_EQ(texts.size(), 2U);
  EXPECT_EQ(texts[0].text, setup.CursorBlank);
  EXPECT_EQ(texts[1].text, "0.000E+00 V/V at 3.500 MHz");
}

}  // namespace
}  // namespace halvorne::testing
