#include "plot/band_marks.h"

#include <cmath>

#include "engine/frequency_sweep.h"
#include "plot/graph.h"
#include "plot/plot_select.h"
#include "plot/plot_state.h"
#include "plot/shown_plot.h"

namespace halvorne::testing {
namespace {

using Kind = DrawnOperation::Kind;

// The picture is 800 by 600 and a letter 6.4 by 12.8 pixels: 0.112 by 0.277 box units.
constexpr double kLetter = 6.4 * 14 / 800;
constexpr double kLine = 12.8 * 13 / 600;

class BandMarks : public ShownPlot {
 protected:
  /// 80 intervals from 1 to 9 MHz, all shown, from 0 to 2 or -60 to 0 dB, crossed at 3 and 5 MHz.
  void ShowBand(int number, int form) {
    Show(number, form);
    design.FreqStart = 1e6;
    design.FreqStop = 9e6;
    design.FreqStep = 1e5;
    design.NoFreqPts = scale.LastPlotPt = 80;
    design.NoTimePts = 1024;
    design.SampleRateHz = 10e6;
    scale.LeftMax = form == 0 ? 2 : 0;
    scale.LeftMin = form == 0 ? 0 : -60;
    scale.RightMax = 1;
    plot.AmplLog = form == 1;
    measured.CFBWText[3][0] = "-6";
    measured.CFBWText[4][0] = "-20";
    measured.Band[0] = {20, 40, 0.5, -6};
    measured.CFBWValid = reading.BandOn = true;
  }
  void Draw() {
    Picture().Scale(-2, 11, 12, -2);
    Picture().Forget();
    BandMarksOn(Picture());
  }
  /// The lines drawn, each as x1, y1, x2, y2.
  std::vector<std::vector<double>> Lines() {
    std::vector<std::vector<double>> lines;
    for (const DrawnOperation& line : OfKind(Picture(), Kind::kLine)) {
      lines.push_back({line.points[0].x, line.points[0].y, line.points[1].x, line.points[1].y});
    }
    return lines;
  }
  using Way = std::vector<std::vector<double>>;
};

TEST_F(BandMarks, AreOffAtFirstAndOnlyInTheMainPicture) {
  EXPECT_FALSE(reading.BandOn);
  ShowBand(31, 0);
  for (const SurfaceKind kind : {SurfaceKind::kPreview, SurfaceKind::kPrinter}) {
    HeadlessSurface paper(kind);
    BandMarksOn(paper);
    EXPECT_TRUE(paper.Operations().empty());
  }
  reading.BandOn = false;
  Draw();
  EXPECT_TRUE(Picture().Operations().empty());
}

TEST_F(BandMarks, StandAtTheCrossingsAtTheHeightOfTheLevel) {
  ShowBand(31, 0);
  Draw();
  EXPECT_EQ(Lines(), (Way{{2.5, 0, 2.5, 2.5}, {5, 0, 5, 2.5}, {2.5, 2.5, 5, 2.5}}));
  EXPECT_EQ(TextsOn(Picture()), std::vector<std::string>{"-6 dB: 3.000 to 5.000 MHz"});
  const Point at = OfKind(Picture(), Kind::kText)[0].points[0];
  EXPECT_DOUBLE_EQ(at.x, 5.1) << "beyond the band, where the curve is below the level";
  EXPECT_NEAR(at.y - kLine, 2.55, 1e-9) << "the text stands on the level";
}

TEST_F(BandMarks, LogFormsTakeTheLevelInDecibels) {
  ShowBand(31, 1);
  Draw();
  EXPECT_EQ(Lines()[2], (std::vector<double>{2.5, 9, 5, 9}));
}

TEST_F(BandMarks, ALossIsMeasuredUpsideDown) {
  ShowBand(32, 0);
  scale.LeftMax = 4;
  Draw();
  EXPECT_EQ(Lines()[2], (std::vector<double>{2.5, 5, 5, 5})) << "1/0.5 of 4";
  EXPECT_NEAR(OfKind(Picture(), Kind::kText)[0].points[0].y, 4.95, 1e-9)
      << "below the level, above which the curve goes on";
  ShowBand(32, 1);
  scale.LeftMax = 60;
  scale.LeftMin = 0;
  Draw();
  EXPECT_EQ(Lines()[2], (std::vector<double>{2.5, 1, 5, 1}));
}

TEST_F(BandMarks, WhatLiesBesideTheBoxIsCutOff) {
  ShowBand(31, 0);
  scale.FirstPlotPt = 30;
  scale.LastPlotPt = 50;
  Draw();
  EXPECT_EQ(Lines(), (Way{{5, 0, 5, 2.5}, {0, 2.5, 5, 2.5}}));
  scale.FirstPlotPt = 41;
  Draw();
  EXPECT_TRUE(Lines().empty()) << "the band is beside the window";
  ShowBand(31, 0);
  scale.LeftMax = 0.25;
  Draw();
  EXPECT_EQ(Lines(), (Way{{2.5, 0, 2.5, 10}, {5, 0, 5, 10}})) << "its level is above the box";
  scale.LeftMax = 2;
  scale.LeftMin = 1;
  Draw();
  EXPECT_TRUE(Picture().Operations().empty()) << "its level is below the box";
}

TEST_F(BandMarks, ALevelThatIsNotCrossedHasNone) {
  ShowBand(31, 0);
  measured.Band[0] = {80, 0, 0.5, -6};
  Draw();
  EXPECT_TRUE(Picture().Operations().empty());
  measured.Band[0] = {20, 40, 0.5, -6};
  measured.CFBWValid = false;
  Draw();
  EXPECT_TRUE(Picture().Operations().empty()) << "measured on another plot";
}

TEST_F(BandMarks, TheEdgesOfALargeBandHaveTwoDigits) {
  ShowBand(31, 0);
  design.FreqUnit = "KHz";
  design.FreqScale = 1e3F;
  Draw();
  EXPECT_EQ(TextsOn(Picture()), std::vector<std::string>{"-6 dB: 3000.00 to 5000.00 KHz"});
}

TEST_F(BandMarks, TextsFindAPlaceInTheBoxAndApart) {
  ShowBand(31, 0);
  measured.Band[0] = {20, 70, 0.02, -6};
  measured.Band[1] = {18, 70, 0.01, -20};
  measured.Band[2] = {16, 75, 0.005, -40};
  Draw();
  const auto texts = OfKind(Picture(), Kind::kText);
  ASSERT_EQ(texts.size(), 3U);
  for (std::size_t i = 0; i < 3; ++i) {
    const Point at = texts[i].points[0];
    EXPECT_GE(at.x, 0);
    EXPECT_LE(at.x + kLetter * static_cast<double>(texts[i].text.size()), 10);
    for (std::size_t other = 0; other < i; ++other) {
      const Point before = texts[other].points[0];
      EXPECT_TRUE(std::abs(at.y - before.y) > kLine - 1e-9 || std::abs(at.x - before.x) > 2)
          << i << " lies on " << other;
    }
  }
}

TEST_F(BandMarks, APulseIsMarkedWithItsWidth) {
  ShowBand(33, 1);
  plot.AmplLog = false;
  scale.LeftMax = 2;
  scale.LeftMin = -2;
  measured.CFBWValid = false;
  measured.PulseWidthValid = true;
  measured.Pulse[0] = {8, 24, 1, 0};
  measured.PulseWidthText[1] = {"dB", "usec"};
  measured.PulseWidthText[2] = {"-6", "1.600"};
  Draw();
  EXPECT_EQ(Lines(), (Way{{1, 0, 1, 7.5}, {3, 0, 3, 7.5}, {1, 7.5, 3, 7.5}}));
  EXPECT_EQ(TextsOn(Picture()), std::vector<std::string>{"-6 dB: 1.600 usec"});
}

TEST_F(BandMarks, TheBandOfASpectrumStandsOnItsOwnAxes) {
  ShowBand(33, 8);
  plot.SpectrumShown = plot.AmplLog = true;
  scale.LastPlotPt = 500;  // samples
  scale.RightMax = 20;
  scale.RightMin = -20;
  Draw();
  EXPECT_EQ(Lines()[2], (std::vector<double>{2.5, 3.5, 5, 3.5})) << "points 20 and 40 of 80";
}

/// Value of the first trace at a fractional point.
double TraceAt(double point) {
  const auto before = static_cast<long>(point);
  const double part = point - static_cast<double>(before);
  return points.PlotData(before).Y1 * (1 - part) + points.PlotData(before + 1).Y1 * part;
}

TEST_F(BandMarks, TheMeasuresLeaveTheirCrossingsWhereTheCurveIsAtTheLevel) {
  MakeSimpleDesign(200, 1024);
  PrelimCalc();
  MainCalc();
  view.CurrentPlot = 31;
  setup.PlotFormMemory(31) = 0;
  PlotSelect(31);
  double top = 0;
  for (int i = 0; i <= 200; ++i) {
    top = std::max(top, points.PlotData(i).Y1);
  }
  int inside = 0;
  for (std::size_t i = 0; i < 3; ++i) {
    const LevelCrossings& found = measured.Band[i];
    const double share[] = {0.5, 0.1, 0.01};
    EXPECT_NEAR(found.level, share[i] * top, 1e-6 * top);
    EXPECT_NEAR(found.decibels, 20 * std::log10(share[i] * top), 1e-4);
    for (const double edge : {found.lower, found.upper}) {
      if (edge > 0 && edge < 200) {
        EXPECT_NEAR(TraceAt(edge), found.level, 1e-5 * top);
        ++inside;
      }
    }
  }
  EXPECT_GT(inside, 1) << "no edge lies within the sweep";
  EXPECT_TRUE(shownMessages.Lines().empty());
}

}  // namespace
}  // namespace halvorne::testing
