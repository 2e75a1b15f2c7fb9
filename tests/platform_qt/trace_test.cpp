#include <QImage>
#include <QPainter>
#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <random>

#include "platform/qt/painter_surface.h"
#include "platform/qt/trace_thinning.h"
#include "support/upper_halves.h"

namespace halvorne::testing {
namespace {

constexpr QSize kSize(1200, 800);
constexpr AxisMap kAcross{kSize.width() / 10.0, 0};
constexpr AxisMap kDown{-kSize.height() / 10.0, kSize.height()};

std::vector<Point> TraceOf(std::size_t count, double (*value)(double)) {
  std::vector<Point> trace(count);
  for (std::size_t i = 0; i < count; ++i) {
    const double x = 10 * static_cast<double>(i) / static_cast<double>(count - 1);
    trace[i] = {x, value(x)};
  }
  return trace;
}

double Noise(double /*x*/) {
  static std::mt19937 random(7);
  return std::uniform_real_distribution(0.5, 9.5)(random);
}
double Burst(double x) {
  return 5 + 4.5 * std::exp(-(x - 5) * (x - 5) / 4) * std::sin(2000 * x);
}
double Chirp(double x) {
  return 5 + 4 * std::sin(60 * x * x);
}

QImage WhitePage() {
  QImage page(kSize, QImage::Format_RGB32);
  page.setDotsPerMeterX(3780);
  page.setDotsPerMeterY(3780);
  page.fill(Qt::white);
  return page;
}

QImage OnSurface(const std::vector<Point>& trace) {
  QImage page = WhitePage();
  PainterSurface surface(page, SurfaceKind::kMainPicture);
  surface.Scale(0, 10, 10, 0);
  surface.Polyline(trace);
  surface.EndDoc();
  return page;
}

/// All points of the trace, drawn by the toolkit alone.
QImage ThePlainWay(const std::vector<Point>& trace) {
  QPolygonF line;
  for (const Point& point : trace) {
    line.append({kAcross(point.x), kDown(point.y)});
  }
  QImage page = WhitePage();
  QPainter painter(&page);
  painter.setPen(QPen(Qt::black, 1));
  painter.drawPolyline(line);
  return page;
}

bool IsDrawn(const QImage& image, int x, int y) {
  return image.valid(x, y) && image.pixel(x, y) != qRgb(255, 255, 255);
}

/// Pixels that are drawn in one of two pictures; `lonely` those of them that no pixel is near, up
/// to two away, which is drawn in both.
struct Difference {
  int pixels = 0;
  int lonely = 0;
  int drawn = 0;
};

Difference Compare(const QImage& a, const QImage& b) {
  const auto isNearCommon = [&](int x, int y) {
    for (int k = 0; k < 25; ++k) {
      const int nearX = x + k % 5 - 2;
      const int nearY = y + k / 5 - 2;
      if (IsDrawn(a, nearX, nearY) && IsDrawn(b, nearX, nearY)) {
        return true;
      }
    }
    return false;
  };
  Difference found;
  for (int y = 0; y < a.height(); ++y) {
    for (int x = 0; x < a.width(); ++x) {
      found.drawn += IsDrawn(a, x, y) ? 1 : 0;
      if (a.pixel(x, y) != b.pixel(x, y)) {
        ++found.pixels;
        found.lonely += isNearCommon(x, y) ? 0 : 1;
      }
    }
  }
  return found;
}

TEST(DenseTrace, LooksLikeAllItsPointsButForSingleDotsAtTheTips) {
  // The toolkit rounds the ends of lines that are shorter than a pixel one by one, so a tip may end
  // a pixel or two earlier or later; nothing else may differ.
  for (const auto value : {Noise, Burst, Chirp}) {
    const auto trace = TraceOf(65536, value);
    const Difference found = Compare(OnSurface(trace), ThePlainWay(trace));
    EXPECT_GT(found.drawn, 100000) << "is the trace dense at all";
    EXPECT_LE(found.pixels, found.drawn / 500);
    EXPECT_EQ(found.lonely, 0);
  }
}

TEST(DenseTrace, IsPaintedAsThePainterPaintsItsThinnedLine) {
  for (const auto value : {Noise, Burst, Chirp}) {
    const auto trace = TraceOf(65536, value);
    QImage page = WhitePage();
    {
      QPainter painter(&page);
      QPen pen(Qt::black, 1);
      pen.setCapStyle(Qt::SquareCap);
      painter.setPen(pen);
      painter.drawPolyline(ThinTrace(trace, kAcross, kDown, 1));
    }
    EXPECT_EQ(OnSurface(trace), page);
  }
}

TEST(ThinTrace, KeepsFirstLowestHighestAndLastOfAColumn) {
  const std::vector<Point> trace{{0.1, 5}, {0.2, 1}, {0.3, 4}, {0.4, 9}, {0.5, 3}, {1.5, 2}};
  const QPolygonF line = ThinTrace(trace, {1, 0}, {1, 0}, 1);
  EXPECT_EQ(line, QPolygonF({{0.1, 5}, {0.2, 1}, {0.4, 9}, {0.5, 3}, {1.5, 2}}));
}

TEST(ThinTrace, RunsWithCleanVectorRegistersWhateverWasPaintedBefore) {
  if (!HasUpperHalves()) {
    GTEST_SKIP() << "the processor has no upper halves";
  }
  const std::vector<Point> points = {{0, 0}, {1, 1}};
  FillUpperHalves();
  ThinTrace(points, {}, {}, 1);
  EXPECT_TRUE(AreUpperHalvesClean());
}

TEST(ThinTrace, KeepsTheOrderInWhichTheExtremesCame) {
  const std::vector<Point> trace{{0.1, 5}, {0.2, 9}, {0.3, 4}, {0.4, 1}, {0.5, 3}};
  EXPECT_EQ(ThinTrace(trace, {1, 0}, {1, 0}, 1),
            QPolygonF({{0.1, 5}, {0.2, 9}, {0.4, 1}, {0.5, 3}}));
}

TEST(ThinTrace, KeepsEveryPointThatHasAColumnOfItsOwn) {
  const auto trace = TraceOf(1200, Chirp);
  const QPolygonF line = ThinTrace(trace, kAcross, kDown, 1);
  ASSERT_EQ(line.size(), 1200);
  for (std::size_t i = 0; i < trace.size(); ++i) {
    EXPECT_EQ(line[static_cast<qsizetype>(i)], QPointF(kAcross(trace[i].x), kDown(trace[i].y)));
  }
}

TEST(ThinTrace, HasAtMostFourPointsInAColumnAndTheSameExtremes) {
  const auto trace = TraceOf(65536, Noise);
  const QPolygonF line = ThinTrace(trace, kAcross, kDown, 1);
  EXPECT_LE(line.size(), 4 * (kSize.width() + 1));
  std::vector<double> lowest(1201, 1e9);
  std::vector<double> thinned(1201, 1e9);
  for (const Point& point : trace) {
    double& low = lowest[static_cast<std::size_t>(kAcross(point.x))];
    low = std::min(low, kDown(point.y));
  }
  for (const QPointF point : line) {
    double& low = thinned[static_cast<std::size_t>(point.x())];
    low = std::min(low, point.y());
  }
  EXPECT_EQ(thinned, lowest);
}

TEST(ThinTrace, OfNothingIsNothingAndAPointStaysAPoint) {
  EXPECT_TRUE(ThinTrace({}, {1, 0}, {1, 0}, 1).isEmpty());
  const std::vector<Point> point{{3, 4}};
  EXPECT_EQ(ThinTrace(point, {1, 0}, {1, 0}, 1), QPolygonF({{3, 4}}));
}

TEST(TravelOf, AddsTheWaysAlongBothAxes) {
  EXPECT_EQ(TravelOf(QPolygonF({{0, 0}, {3, -4}, {3, 1}})), 12);
  EXPECT_EQ(TravelOf({}), 0);
}

}  // namespace
}  // namespace halvorne::testing
