#include "platform/qt/pixel_pen.h"

#include <QPainter>
#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <random>

namespace halvorne::testing {
namespace {

constexpr QSize kSize(300, 200);
constexpr QRgb kInk = qRgb(0, 0, 255);

QImage Page(QImage::Format format = QImage::Format_RGB32) {
  QImage page(kSize, format);
  page.fill(Qt::white);
  return page;
}

/// What the toolkit makes of a line.
QImage ByThePainter(const QPolygonF& line) {
  QImage page = Page();
  QPainter painter(&page);
  QPen pen(QColor(kInk), 1);
  pen.setCapStyle(Qt::SquareCap);
  pen.setJoinStyle(Qt::BevelJoin);
  painter.setPen(pen);
  painter.drawPolyline(line);
  return page;
}

using Walk = QPointF (*)(QPointF, std::mt19937&);

double Between(double low, double high, std::mt19937& random) {
  return std::uniform_real_distribution(low, high)(random);
}
QPointF Anywhere(QPointF /*from*/, std::mt19937& random) {
  return {Between(0, kSize.width(), random), Between(0, kSize.height(), random)};
}
QPointF ColumnByColumn(QPointF from, std::mt19937& random) {
  return {from.x() + Between(0, 0.6, random), Between(0, kSize.height(), random)};
}
QPointF AFewPixelsAway(QPointF from, std::mt19937& random) {
  return {std::clamp(from.x() + Between(-2, 2, random), 0.0, 299.0),
          std::clamp(from.y() + Between(-2, 2, random), 0.0, 199.0)};
}
QPointF LessThanAPixelAway(QPointF from, std::mt19937& random) {
  return {from.x() + Between(0, 0.7, random),
          std::clamp(from.y() + Between(-0.5, 0.5, random), 0.0, 199.0)};
}
QPointF AlongARow(QPointF from, std::mt19937& random) {
  return {Between(0, kSize.width(), random),
          std::clamp(from.y() + Between(-0.3, 0.3, random), 0.0, 199.0)};
}
QPointF OnHalfPixels(QPointF /*from*/, std::mt19937& random) {
  return {std::floor(Between(0, 600, random)) / 2, std::floor(Between(0, 400, random)) / 2};
}

TEST(PixelPen, PaintsTheVeryPixelsOfThePainter) {
  std::mt19937 random(5);
  for (const Walk walk :
       {Anywhere, ColumnByColumn, AFewPixelsAway, LessThanAPixelAway, AlongARow, OnHalfPixels}) {
    for (int length = 2; length < 200; ++length) {
      QPolygonF line({{5, 100}});
      while (line.size() < length) {
        line.append(walk(line.last(), random));
      }
      QImage page = Page();
      ASSERT_TRUE(PaintWithPixelPen(page, line, kInk));
      ASSERT_EQ(page, ByThePainter(line)) << "of " << length << " points";
    }
  }
}

TEST(PixelPen, LeavesToThePainterWhatItDoesNotKnow) {
  const auto isLeft = [](QImage page, const QPolygonF& line, QRgb colour = kInk) {
    const QImage before = page.copy();
    return !PaintWithPixelPen(page, line, colour) && page == before;
  };
  const QPolygonF line(QList<QPointF>{{10, 10}, {20, 80}});
  ASSERT_FALSE(isLeft(Page(), line));
  EXPECT_TRUE(isLeft(Page(QImage::Format_RGB16), line)) << "two bytes for a pixel";
  EXPECT_TRUE(isLeft(Page(), line, qRgba(0, 0, 255, 128))) << "what is below shines through";
  EXPECT_TRUE(isLeft(Page(), {})) << "no line";
  EXPECT_TRUE(isLeft(Page(), QPolygonF({{10, 10}}))) << "a dot";
  EXPECT_TRUE(isLeft(Page(), line + QPolygonF({{10, 10}}))) << "closed";
  EXPECT_TRUE(isLeft(Page(), line + QPolygonF({{301, 10}}))) << "leaves the page";
  EXPECT_TRUE(isLeft(Page(), line + QPolygonF({{10, std::nan("")}}))) << "leads nowhere";
}

TEST(PixelPen, StaysOnThePageAtItsEdges) {
  const QPolygonF line({{0, 0}, {300, 0}, {300, 200}, {0, 200}, {0, 1}});
  QImage page = Page();
  ASSERT_TRUE(PaintWithPixelPen(page, line, kInk));
  EXPECT_EQ(page, ByThePainter(line));
}

}  // namespace
}  // namespace halvorne::testing
