#include "platform/headless_surface.h"

#include <gtest/gtest.h>
#include <vector>

namespace halvorne {
namespace {

using Kind = DrawnOperation::Kind;

TEST(HeadlessSurface, WritesALineDownWithTheStateItWasDrawnIn) {
  HeadlessSurface surface;
  surface.SetForeColor(kBlue);
  surface.SetDrawWidth(2);
  surface.SetDrawStyle(kDots);
  surface.SetDrawMode(kXorPen);
  surface.Line(1, 2, 3, 4);
  surface.SetDrawWidth(1);
  surface.Line(3, 4, 5, 6, kCyan);
  ASSERT_EQ(surface.Operations().size(), 2U);
  const DrawnOperation& first = surface.Operations()[0];
  EXPECT_EQ(first.kind, Kind::kLine);
  EXPECT_EQ(first.points[0].x, 1);
  EXPECT_EQ(first.points[1].y, 4);
  EXPECT_EQ(first.colour, kBlue);
  EXPECT_EQ(first.drawWidth, 2);
  EXPECT_EQ(first.drawStyle, kDots);
  EXPECT_EQ(first.drawMode, kXorPen);
  EXPECT_EQ(surface.Operations()[1].colour, kCyan) << "a line's own colour";
  EXPECT_EQ(surface.Operations()[1].drawWidth, 1);
  surface.Line(0, 0, 1, 1);
  EXPECT_EQ(surface.Operations()[2].colour, kBlue) << "and it does not stay";
}

TEST(HeadlessSurface, TakesAPolylineAsOneOperation) {
  HeadlessSurface surface;
  const std::vector<Point> trace = {{0, 0}, {1, 5}, {2, 3}};
  surface.Polyline(trace);
  ASSERT_EQ(surface.Operations().size(), 1U);
  EXPECT_EQ(surface.Operations()[0].points.size(), 3U);
  EXPECT_EQ(surface.CurrentX(), 2);
  EXPECT_EQ(surface.CurrentY(), 3);
  surface.Polyline(std::vector<Point>{{9, 9}});
  EXPECT_EQ(surface.Operations().size(), 1U) << "one point draws nothing";
  EXPECT_EQ(surface.CurrentX(), 2);
  surface.Polyline(std::vector<Point>{{2, 3}, {4, 5}});
  EXPECT_EQ(surface.Operations().size(), 2U) << "two are a line";
  EXPECT_EQ(surface.CurrentX(), 4);
}

TEST(HeadlessSurface, MeasuresTextInLogicalUnits) {
  HeadlessSurface surface(SurfaceKind::kMainPicture, 800, 600);
  surface.SetFontSize(9);  // 12 pixels
  surface.Scale(0, 100, 10, -20);
  EXPECT_NEAR(surface.TextWidth("abcde"), 5 * 0.6 * 12 * 10 / 800, 1e-12);
  EXPECT_NEAR(surface.TextHeight("abcde"), -1.2 * 12 * 120 / 600, 1e-12) << "y grows upward";
}

TEST(HeadlessSurface, LeavesThePenAtTheEndOfAText) {
  HeadlessSurface surface;
  surface.Scale(0, 0, 800, 600);
  surface.MoveTo(10, 20);
  surface.Print("ab");
  EXPECT_EQ(surface.Operations().back().points[0].x, 10);
  EXPECT_EQ(surface.Operations().back().text, "ab");
  EXPECT_EQ(surface.CurrentX(), 10 + surface.TextWidth("ab"));
  surface.PrintLineEnd();
  EXPECT_EQ(surface.CurrentX(), 0);
  EXPECT_EQ(surface.CurrentY(), 20 + surface.TextHeight(""));
}

TEST(HeadlessSurface, EndsThePrintedLineWhereATextDoes) {
  HeadlessSurface surface;
  surface.Scale(0, 0, 800, 600);
  surface.MoveTo(10, 20);
  surface.Print("ab\r\ncde");
  ASSERT_EQ(surface.Operations().size(), 2U) << "the scale and one text";
  EXPECT_EQ(surface.CurrentX(), surface.TextWidth("cde"));
  EXPECT_EQ(surface.CurrentY(), 20 + surface.TextHeight("cde"));
  EXPECT_EQ(surface.TextWidth("abcd\r\ne"), surface.TextWidth("abcd")) << "the widest line";
  EXPECT_NEAR(surface.TextHeight("abcd\r\n"), 2 * surface.TextHeight(""), 1e-12);
}

TEST(HeadlessSurface, KeepsWhatWasDrawnBeforeItWasCleared) {
  HeadlessSurface surface(SurfaceKind::kPrinter);
  EXPECT_EQ(surface.Kind(), SurfaceKind::kPrinter);
  surface.Box(0, 0, 1, 1);
  surface.FillBox(2, 3, 4, 5, kBlue);
  EXPECT_EQ(surface.Operations().back().colour, kBlue);
  EXPECT_EQ(surface.CurrentY(), 5);
  surface.Cls();
  surface.NewPage();
  surface.EndDoc();
  std::vector<Kind> kinds;
  for (const DrawnOperation& operation : surface.Operations()) {
    kinds.push_back(operation.kind);
  }
  EXPECT_EQ(kinds, (std::vector<Kind>{Kind::kBox, Kind::kFill, Kind::kCls, Kind::kNewPage,
                                      Kind::kEndDoc}));
  EXPECT_EQ(surface.CurrentX(), 0) << "Cls takes the pen home";
  surface.Forget();
  EXPECT_TRUE(surface.Operations().empty());
}

}  // namespace
}  // namespace halvorne
