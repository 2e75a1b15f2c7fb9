#include "plot/graph_grid.h"

#include <algorithm>
#include <set>

#include "plot/graph.h"
#include "plot/plot_state.h"
#include "plot/shown_plot.h"

namespace halvorne::testing {
namespace {

using Kind = DrawnOperation::Kind;

// The picture is 800 by 600 and a letter 6.4 by 12.8 pixels: 0.112 by 0.277 box units.
constexpr double kLetter = 6.4 * 14 / 800;
constexpr double kLine = 12.8 * 13 / 600;

bool IsGrey(Colour colour) {
  return colour.red == colour.green && colour.green == colour.blue && colour != kBlack;
}

class Grid : public ShownPlot {
 protected:
  /// A plot of two traces from 1 to 9 MHz or 0 to 4 usec, from -10 to 10 and from -2 to 2.
  void ShowTwoTraces(int number = 31, int form = 0) {
    Show(number, form);
    plot.DualTrace = true;
    scale.LastPlotPt = 2;
    design.NoFreqPts = 2;
    scale.LeftMax = 10;
    scale.LeftMin = -10;
    scale.RightMax = 2;
    scale.RightMin = -2;
    scale.PlotFreqLower = 1e6F;
    scale.PlotFreqUpper = 9e6F;
    scale.FreqLowerText = "1.000";
    scale.FreqUpperText = "9.000";
    scale.TimeUpper = 4e-6;
    scale.TimeLowerText = "0.000";
    scale.TimeUpperText = "4.000";
    for (TimePoints* array : {&points.PlotData, &points.PlotDataImpulse, &points.PlotDataExcite}) {
      (*array)(0) = {1, -1};
      (*array)(1) = {2, -2};
      (*array)(2) = {3, -1};
    }
  }
  static std::vector<DrawnOperation> Drawn(bool grid, SurfaceKind kind = SurfaceKind::kMainPicture,
                                           double width = 800, double height = 600) {
    reading.GridOn = grid;
    HeadlessSurface surface(kind, width, height);
    PlotGraphOn(surface);
    return surface.Operations();
  }
  static std::vector<DrawnOperation> Added(const std::vector<DrawnOperation>& all, Kind kind) {
    std::vector<DrawnOperation> added;
    std::ranges::copy_if(all, std::back_inserter(added), [=](const DrawnOperation& operation) {
      return operation.kind == kind && IsGrey(operation.colour);
    });
    return added;
  }
  /// The values at an axis: those that start left or right of the box, or below it.
  static std::vector<std::string> Values(const std::vector<DrawnOperation>& all,
                                         bool (*at)(Point)) {
    std::vector<std::string> values;
    for (const DrawnOperation& text : Added(all, Kind::kText)) {
      if (at(text.points[0])) {
        values.push_back(text.text);
      }
    }
    return values;
  }
  static bool AtLeft(Point at) { return at.x < 0 && at.y > 0.5; }
  static bool AtRight(Point at) { return at.x > 10; }
  static bool Below(Point at) { return at.y < 0; }
};

bool Same(const DrawnOperation& a, const DrawnOperation& b) {
  const auto near = [](Point p, Point q) { return p.x == q.x && p.y == q.y; };
  return a.kind == b.kind && a.text == b.text && a.colour == b.colour &&
         a.drawStyle == b.drawStyle && a.drawMode == b.drawMode && a.drawWidth == b.drawWidth &&
         a.fontSize == b.fontSize && a.points.size() == b.points.size() &&
         std::equal(a.points.begin(), a.points.end(), b.points.begin(), near);
}

TEST_F(Grid, OnlyAddsToTheGraph) {
  for (const int number : {11, 31, 33, 34, 52}) {
    ShowTwoTraces(number);
    const auto without = Drawn(false);
    for (const DrawnOperation& operation : without) {
      EXPECT_FALSE(IsGrey(operation.colour)) << number;
    }
    auto with = Drawn(true);
    std::erase_if(with, [](const DrawnOperation& each) { return IsGrey(each.colour); });
    ASSERT_EQ(with.size(), without.size()) << number;
    for (std::size_t i = 0; i < with.size(); ++i) {
      EXPECT_TRUE(Same(with[i], without[i])) << number << ", operation " << i;
    }
  }
}

TEST_F(Grid, StaysOffThePaper) {
  for (const SurfaceKind kind : {SurfaceKind::kPreview, SurfaceKind::kPrinter}) {
    ShowTwoTraces();
    const auto without = Drawn(false, kind);
    const auto with = Drawn(true, kind);
    ASSERT_EQ(with.size(), without.size());
    for (std::size_t i = 0; i < with.size(); ++i) {
      EXPECT_TRUE(Same(with[i], without[i]));
    }
  }
}

TEST_F(Grid, LinesRunFromTickToTickBehindTheCurves) {
  ShowTwoTraces();
  const auto all = Drawn(true);
  const auto lines = Added(all, Kind::kLine);
  ASSERT_EQ(lines.size(), 18U);
  for (int i = 1; i <= 9; ++i) {
    const auto& upright = lines[static_cast<std::size_t>(2 * i - 2)].points;
    EXPECT_EQ(upright[0].x, i);
    EXPECT_EQ(upright[1].x, i);
    EXPECT_EQ(upright[0].y, 0.13) << "the tick is 0.13 long";
    EXPECT_EQ(upright[1].y, 9.87);
    const auto& level = lines[static_cast<std::size_t>(2 * i - 1)].points;
    EXPECT_EQ(level[0].x, 0.1);
    EXPECT_EQ(level[1].x, 9.9);
    EXPECT_EQ(level[0].y, i);
    EXPECT_EQ(level[1].y, i);
  }
  const auto place = [&](auto which) { return std::ranges::find_if(all, which) - all.begin(); };
  EXPECT_LT(place([](const DrawnOperation& each) {
              return each.kind == Kind::kLine && IsGrey(each.colour);
            }),
            place([](const DrawnOperation& each) { return each.kind == Kind::kPolyline; }));
}

TEST_F(Grid, EachPaneOfAnExcitationPlotHasItsLinesAndTheResponseItsValues) {
  ShowTwoTraces(34);
  const auto all = Drawn(true);
  EXPECT_EQ(Added(all, Kind::kLine).size(), 54U);
  EXPECT_EQ(Values(all, Below),
            (std::vector<std::string>{"0.400", "0.800", "1.200", "2.800", "3.200", "3.600"}));
}

TEST_F(Grid, ValuesOfTheVerticalAxesStandAtTheirTicks) {
  ShowTwoTraces();
  const auto all = Drawn(true);
  // Ticks 4 and 6 make room for "V/V" and "Vo/Vi", "Degrees" and "Theta".
  EXPECT_EQ(Values(all, AtLeft), (std::vector<std::string>{"-8.000", "-6.000", "-4.000", "0.000",
                                                           "4.000", "6.000", "8.000"}));
  EXPECT_EQ(Values(all, AtRight), (std::vector<std::string>{"-1.600", "-1.200", "-0.800", "0.000",
                                                            "0.800", "1.200", "1.600"}));
  for (const DrawnOperation& text : Added(all, Kind::kText)) {
    const Point at = text.points[0];
    if (AtLeft(at)) {
      EXPECT_NEAR(at.x + kLetter * static_cast<double>(text.text.size()), -0.15, 1e-9);
      const double value = std::stod(text.text);
      EXPECT_NEAR(at.y - kLine / 2, (value + 10) / 2, 1e-9) << "the middle is beside the tick";
    } else if (AtRight(at)) {
      EXPECT_NEAR(at.x, 10.15, 1e-9);
    }
  }
}

TEST_F(Grid, ValuesAreInTheUnitsOfTheAxis) {
  ShowTwoTraces();
  scale.LeftMax = 50000;
  scale.LeftMin = 0;
  scale.LeftMag = 1000;
  const auto values = Values(Drawn(true), AtLeft);
  ASSERT_FALSE(values.empty());
  EXPECT_EQ(values.front(), "5.000");
  EXPECT_EQ(values.back(), "45.000");
}

TEST_F(Grid, OneTraceHasNoValuesAtTheRight) {
  ShowTwoTraces(52);
  plot.DualTrace = false;
  EXPECT_TRUE(Values(Drawn(true), AtRight).empty());
}

TEST_F(Grid, ValuesMakeRoomForTheAxisNames) {
  ShowTwoTraces(52);  // "Velocity", "normalized"
  const auto values = Values(Drawn(true), AtLeft);
  EXPECT_EQ(std::ranges::count(values, "2.000"), 0) << "tick 6, beside the name";
  EXPECT_EQ(std::ranges::count(values, "-2.000"), 0) << "tick 4, beside the unit";
  EXPECT_EQ(values.size(), 7U);
}

TEST_F(Grid, ValuesOfTheHorizontalAxisMakeRoomForItsCaption) {
  ShowTwoTraces();
  EXPECT_EQ(Values(Drawn(true), Below),
            (std::vector<std::string>{"1.800", "2.600", "3.400", "6.600", "7.400", "8.200"}));
}

TEST_F(Grid, ASpectrumHasValuesOnBothItsHorizontalAxes) {
  ShowTwoTraces(33, 8);
  plot.SpectrumShown = true;
  const auto values = Values(Drawn(true), Below);
  EXPECT_EQ(values,
            (std::vector<std::string>{"0.400", "0.800", "1.200", "2.800", "3.200", "3.600", "1.800",
                                      "2.600", "3.400", "6.600", "7.400", "8.200"}));
}

TEST_F(Grid, NoTwoTextsMeetHoweverSmallThePictureIs) {
  for (const auto& [width, height] : {std::pair{800, 600}, {430, 240}, {300, 160}, {1900, 400}}) {
    for (const int number : {11, 31, 33, 34, 52}) {
      ShowTwoTraces(number);
      scale.LeftMax = 12345;
      scale.LeftMin = -12345;
      const auto all = Drawn(true, SurfaceKind::kMainPicture, width, height);
      const bool panes = number == 34;
      const double letter = 6.4 * 14 / width;
      const double line = 12.8 * (panes ? 24.07 : 13) / height;
      struct Box {
        double left, right, bottom, top;
        std::string text;
        bool value;
      };
      std::vector<Box> boxes;
      // Behind the last scale stand the texts of the graph that has values.
      auto from = std::find_if(all.rbegin(), all.rend(),
                               [](const auto& each) { return each.kind == Kind::kScale; });
      for (auto each = from.base(); each != all.end(); ++each) {
        if (each->kind == Kind::kText && each->text.find_first_not_of(' ') != std::string::npos) {
          const Point at = each->points[0];
          boxes.push_back({at.x, at.x + letter * static_cast<double>(each->text.size()),
                           at.y - line, at.y, each->text, IsGrey(each->colour)});
        }
      }
      for (const Box& a : boxes) {
        for (const Box& b : boxes) {
          const bool meet = a.left < b.right - 1e-9 && b.left < a.right - 1e-9 &&
                            a.bottom < b.top - 1e-9 && b.bottom < a.top - 1e-9;
          EXPECT_FALSE(&a != &b && a.value && meet) << a.text << " on " << b.text << " of plot "
                                                    << number << " at " << width << "x" << height;
        }
      }
    }
  }
}

TEST_F(Grid, TheValuesOfASpectrumAreRepairedBehindTheCursor) {
  ShowTwoTraces(33, 8);
  plot.SpectrumShown = true;
  reading.GridOn = true;
  Picture().Scale(-2, 11, 12, -2);
  Picture().Forget();
  AxisLabelOn(Picture(), 5);
  EXPECT_EQ(Values(Picture().Operations(), Below).size(), 12U);
}

}  // namespace
}  // namespace halvorne::testing
