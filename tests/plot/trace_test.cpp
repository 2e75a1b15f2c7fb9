#include "plot/trace.h"

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

#include "platform/failure.h"
#include "plot/shown_plot.h"

namespace halvorne::testing {
namespace {

bool SamePoints(const std::vector<Point>& a, const std::vector<Point>& b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](const Point& p, const Point& q) {
    return std::abs(p.x - q.x) < 1e-12 && std::abs(p.y - q.y) < 1e-12;
  });
}

using Piece = std::vector<Point>;

/// Values from 0 at the bottom of the box to 10 at its top, one box unit per interval.
class Traces : public FreshProgram {
 protected:
  void Draw(const std::vector<double>& values) {
    for (std::size_t i = 0; i < values.size(); ++i) {
      points.PlotData(static_cast<long>(i)).Y1 = values[i];
    }
    // Beyond the values given the curve stays far above the box, which draws nothing.
    for (std::size_t i = values.size(); i <= 10; ++i) {
      points.PlotData(static_cast<long>(i)).Y1 = 1e6;
    }
    DrawTrace(surface, {.array = points.PlotData,
                        .channel = &PlotPoint::Y1,
                        .intervals = 10,
                        .min = 0,
                        .max = 10});
  }
  void ExpectPieces(const std::vector<Piece>& expected) {
    const auto drawn = OfKind(surface, DrawnOperation::Kind::kPolyline);
    ASSERT_EQ(drawn.size(), expected.size());
    for (std::size_t i = 0; i < drawn.size(); ++i) {
      EXPECT_TRUE(SamePoints(drawn[i].points, expected[i]))
          << "piece " << i << ": " << ::testing::PrintToString(Coordinates(drawn[i].points));
    }
  }
  static std::vector<std::pair<double, double>> Coordinates(const Piece& piece) {
    std::vector<std::pair<double, double>> coordinates;
    for (const Point& point : piece) {
      coordinates.emplace_back(point.x, point.y);
    }
    return coordinates;
  }

  HeadlessSurface surface;
};

TEST_F(Traces, ACurveInsideTheBoxIsOnePiece) {
  Draw({1, 2, 3, 4, 5, 6, 7, 8, 9, 9.5, 2});
  ExpectPieces({{{0, 1},
                 {1, 2},
                 {2, 3},
                 {3, 4},
                 {4, 5},
                 {5, 6},
                 {6, 7},
                 {7, 8},
                 {8, 9},
                 {9, 9.5},
                 {10, 2}}});
}

TEST_F(Traces, ATraceThatLeavesThroughTheTopComesBackAsASecondPieceBothEndingOnTheEdge) {
  Draw({5, 5, 15, 5, 5});
  // The last piece leaves for 1e6 within interval 5: c = 5 - (1e6 - 10)/(1e6 - 5).
  ExpectPieces(
      {{{0, 5}, {1, 5}, {1.5, 10}}, {{2.5, 10}, {3, 5}, {4, 5}, {5 - 999990.0 / 999995.0, 10}}});
}

TEST_F(Traces, ATraceThatLeavesThroughTheBottomComesBackAsASecondPiece) {
  Draw({4, -4, 1, 1, 1, 1, 1, 1, 1, 1, -3});
  ExpectPieces(
      {{{0, 4}, {0.5, 0}},
       {{1.8, 0}, {2, 1}, {3, 1}, {4, 1}, {5, 1}, {6, 1}, {7, 1}, {8, 1}, {9, 1}, {9.25, 0}}});
}

TEST_F(Traces, AValueALittleOutsideIsOut) {
  Draw({5, 10.5, 5, -0.5, 5, 5, 5, 5, 5, 5, 5});
  const double up = 5 / 5.5;
  ExpectPieces({{{0, 5}, {up, 10}},
                {{2 - up, 10}, {2, 5}, {2 + up, 0}},
                {{4 - up, 0}, {4, 5}, {5, 5}, {6, 5}, {7, 5}, {8, 5}, {9, 5}, {10, 5}}});
}

TEST_F(Traces, ASegmentThatCrossesTheWholeBoxIsDropped) {
  Draw({-5, 15, -5, 15});
  ExpectPieces({});
}

TEST_F(Traces, APointExactlyOnTheEdgeBelongsToTheBox) {
  Draw({5, 10, 5, 0, 5, 5, 5, 5, 5, 5, 5});
  ExpectPieces(
      {{{0, 5}, {1, 10}, {2, 5}, {3, 0}, {4, 5}, {5, 5}, {6, 5}, {7, 5}, {8, 5}, {9, 5}, {10, 5}}});
}

TEST_F(Traces, AValueWhoseDistanceFromTheMiddleRoundsToFiveIsNotOut) {
  Draw({5, -1e-20, 5, 5, 5, 5, 5, 5, 5, 5, 5});
  ASSERT_EQ(OfKind(surface, DrawnOperation::Kind::kPolyline).size(), 1U);
  EXPECT_EQ(OfKind(surface, DrawnOperation::Kind::kPolyline)[0].points.size(), 11U);
}

TEST_F(Traces, ComingBackOverAPointOnTheEdgeTheLineStartsWhereThePenStayed) {
  Draw({5, 15, 10, 5});
  // Out at (0.5, 10); from 15 to the edge nothing; from the edge inward a line from the pen.
  ExpectPieces({{{0, 5}, {0.5, 10}, {3, 5}, {4 - 999990.0 / 999995.0, 10}}});
}

TEST_F(Traces, FromAPointOnTheEdgeOutwardNothingIsDrawn) {
  Draw({5, 10, 15, 5});
  ExpectPieces({{{0, 5}, {1, 10}}, {{2.5, 10}, {3, 5}, {4 - 999990.0 / 999995.0, 10}}});
}

TEST_F(Traces, AStartAboveTheBoxPutsThePenOnTheTopEdge) {
  Draw({15, 10, 5});
  // From 15 to the edge nothing; then the line comes from the clamped start.
  ExpectPieces({{{0, 10}, {2, 5}, {3 - 999990.0 / 999995.0, 10}}});
}

TEST_F(Traces, AStartBelowTheBoxPutsThePenOnTheBottomEdge) {
  Draw({-7, 0, 5, 5, 5, 5, 5, 5, 5, 5, 5});
  ExpectPieces({{{0, 0}, {2, 5}, {3, 5}, {4, 5}, {5, 5}, {6, 5}, {7, 5}, {8, 5}, {9, 5}, {10, 5}}});
}

TEST_F(Traces, AStartOutsideThatEntersAtOnceLeavesNoLineAtTheEdge) {
  Draw({-5, 5, 5, 5, 5, 5, 5, 5, 5, 5, 5});
  ExpectPieces({{{0.5, 0},
                 {1, 5},
                 {2, 5},
                 {3, 5},
                 {4, 5},
                 {5, 5},
                 {6, 5},
                 {7, 5},
                 {8, 5},
                 {9, 5},
                 {10, 5}}});
}

TEST_F(Traces, ATraceOutsideAltogetherOnlyMovesThePen) {
  surface.MoveTo(3, 3);
  Draw({12, 13});
  ExpectPieces({});
  EXPECT_EQ(surface.CurrentX(), 0);
  EXPECT_EQ(surface.CurrentY(), 10);
}

TEST_F(Traces, ThePenEndsAtTheLastPointDrawn) {
  Draw({5, 5, 15});
  EXPECT_EQ(surface.CurrentX(), 1.5);
  EXPECT_EQ(surface.CurrentY(), 10);
}

TEST_F(Traces, PointsPerBoxUnitAreA32BitNumber) {
  for (long i = 0; i <= 3; ++i) {
    points.PlotData(i).Y2 = 2;
  }
  DrawTrace(
      surface,
      {.array = points.PlotData, .channel = &PlotPoint::Y2, .intervals = 3, .min = 0, .max = 4});
  const auto drawn = OfKind(surface, DrawnOperation::Kind::kPolyline);
  ASSERT_EQ(drawn.size(), 1U);
  EXPECT_EQ(drawn[0].points[1].x, 1 / double{0.3F});
  EXPECT_NE(drawn[0].points[1].x, 1 / 0.3);
  EXPECT_EQ(drawn[0].points[1].y, 5);
}

TEST_F(Traces, TheStartingValueMayStandElsewhereThanTheLaterPoints) {
  points.PlotData(100).Y2 = 7;
  for (long i = 0; i <= 10; ++i) {
    points.PlotData(i).Y2 = 1;
  }
  DrawTrace(surface, {.array = points.PlotData,
                      .channel = &PlotPoint::Y2,
                      .start = 100,
                      .origin = 0,
                      .intervals = 10,
                      .min = 0,
                      .max = 10});
  const auto drawn = OfKind(surface, DrawnOperation::Kind::kPolyline);
  ASSERT_EQ(drawn.size(), 1U);
  EXPECT_EQ(drawn[0].points[0].y, 7);
  EXPECT_EQ(drawn[0].points[1].y, 1);
}

TEST_F(Traces, ATraceOf65536PointsInsideTheBoxIsOneCall) {
  for (long i = 0; i <= kLastTimePoint; ++i) {
    points.PlotData(i).Y1 = i % 2 == 0 ? 3 : 8;
  }
  DrawTrace(surface, {.array = points.PlotData,
                      .channel = &PlotPoint::Y1,
                      .intervals = kLastTimePoint,
                      .min = 0,
                      .max = 10});
  const auto drawn = OfKind(surface, DrawnOperation::Kind::kPolyline);
  ASSERT_EQ(drawn.size(), 1U);
  EXPECT_EQ(drawn[0].points.size(), 65536U);
  EXPECT_NEAR(drawn[0].points.back().x, 10, 1e-6);
}

TEST_F(Traces, OneIntervalTooFewDrawsNothing) {
  for (const std::int32_t intervals : {0, -5}) {
    DrawTrace(surface, {.array = points.PlotData,
                        .channel = &PlotPoint::Y1,
                        .intervals = intervals,
                        .min = -1,
                        .max = 1});
  }
  ExpectPieces({});
  EXPECT_EQ(surface.CurrentY(), 5);
}

TEST_F(Traces, AnEmptyRangeIsADivisionByZero) {
  try {
    DrawTrace(
        surface,
        {.array = points.PlotData, .channel = &PlotPoint::Y1, .intervals = 10, .min = 3, .max = 3});
    FAIL() << "drawn over no range";
  } catch (const Failure& failure) {
    EXPECT_EQ(failure.Number(), failure_number::kDivisionByZero);
  }
}

TEST_F(Traces, WhatStoodBeforeAFailureIsDrawn) {
  const Trace beyondTheArray{.array = points.PlotData,
                             .channel = &PlotPoint::Y1,
                             .start = kLastTimePoint - 2,
                             .origin = kLastTimePoint - 2,
                             .intervals = 10,
                             .min = -1,
                             .max = 1};
  EXPECT_THROW(DrawTrace(surface, beyondTheArray), Failure);
  ExpectPieces({{{0, 5}, {1, 5}, {2, 5}}});
}

}  // namespace
}  // namespace halvorne::testing
