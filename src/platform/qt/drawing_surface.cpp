#include "platform/qt/drawing_surface.h"

#include <QStringList>
#include <algorithm>
#include <cmath>

#include "platform/failure.h"
#include "platform/qt/pixel_pen.h"
#include "platform/qt/text.h"

namespace halvorne {
namespace {

constexpr double kTwipsPerPixel = 15;
/// A printed line of width 1, as a share of a pixel of 1/96 inch: half a point.
constexpr double kPrintedWidth = 2.0 / 3.0;
/// Way in pixels, as a multiple of the picture's width and height, up to which a smooth line costs
/// next to nothing. Longer traces are so dense that smoothing would not show.
constexpr double kSmoothTravel = 12;

QColor ToQColor(Colour colour) {
  return {colour.red, colour.green, colour.blue};
}

QStringList Lines(std::string_view text) {
  return ToQString(text).replace(QStringLiteral("\r\n"), QStringLiteral("\n")).split(u'\n');
}

QRectF Grown(const QRectF& rectangle, double margin) {
  return rectangle.normalized().adjusted(-margin, -margin, margin, margin);
}

}  // namespace

DrawingSurface::DrawingSurface(SurfaceKind kind)
    : kind_(kind),
      font_(kind == SurfaceKind::kMainPicture ? PictureFont() : PageFont()),
      metrics_(font_) {}

double DrawingSurface::HeightTwips() const {
  return canvas_.size.height() / canvas_.unitsPerPixel * kTwipsPerPixel;
}

void DrawingSurface::SetCanvas(const Canvas& canvas) {
  canvas_ = canvas;
  MakeMaps();
  MakeFont();
}

void DrawingSurface::MakeMaps() {
  mapX_.factor = Quotient(canvas_.size.width(), corner2_.x - corner1_.x);
  mapX_.offset = -corner1_.x * mapX_.factor;
  mapY_.factor = Quotient(canvas_.size.height(), corner2_.y - corner1_.y);
  mapY_.offset = -corner1_.y * mapY_.factor;
}

void DrawingSurface::MakeFont() {
  // A vector file is seen at any size, where letters have their true widths.
  font_.setHintingPreference(canvas_.vector ? QFont::PreferNoHinting : QFont::PreferDefaultHinting);
  metrics_ = Device() != nullptr ? QFontMetricsF(font_, Device()) : QFontMetricsF(font_);
}

void DrawingSurface::Scale(double x1, double y1, double x2, double y2) {
  corner1_ = {x1, y1};
  corner2_ = {x2, y2};
  MakeMaps();
}

void DrawingSurface::Cls() {
  const QRectF all({0, 0}, canvas_.size);
  Paint(all, [&](QPainter& painter) { painter.fillRect(all, Qt::white); });
  pen_ = {};
}

double DrawingSurface::PenWidth() const {
  const double fineness = kind_ == SurfaceKind::kPrinter ? kPrintedWidth : 1;
  const double width = drawWidth_ * fineness * canvas_.unitsPerPixel;
  return canvas_.pixelGrid ? std::max(1.0, std::round(width)) : width;
}

QPen DrawingSurface::MakePen(Colour colour) const {
  QPen pen(ToQColor(colour), PenWidth());
  if (drawStyle_ == kDots) {
    pen.setDashPattern({2, 2});
    pen.setCapStyle(Qt::FlatCap);
  } else {
    pen.setCapStyle(Qt::SquareCap);
  }
  pen.setJoinStyle(Qt::MiterJoin);
  return pen;
}

double DrawingSurface::OnGrid(double coordinate) const {
  if (!canvas_.pixelGrid) {
    return coordinate;
  }
  const bool odd = std::lround(PenWidth()) % 2 != 0;
  return odd ? std::floor(coordinate) + 0.5 : std::round(coordinate);
}

QPointF DrawingSurface::OnGrid(QPointF point) const {
  return {OnGrid(point.x()), OnGrid(point.y())};
}

void DrawingSurface::Line(double x1, double y1, double x2, double y2) {
  Line(x1, y1, x2, y2, foreColour_);
}

void DrawingSurface::Line(double x1, double y1, double x2, double y2, Colour colour) {
  QLineF line(Map(x1, y1), Map(x2, y2));
  if (x1 == x2 || y1 == y2) {
    line = {OnGrid(line.p1()), OnGrid(line.p2())};
  }
  DrawLine({line, MakePen(colour)});
  pen_ = {x2, y2};
}

QRectF DrawingSurface::Touched(const PaintedLine& line) {
  return Grown(QRectF(line.line.p1(), line.line.p2()), line.pen.widthF() + 1);
}

void DrawingSurface::PaintLine(QPainter& painter, const PaintedLine& line) {
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(line.pen);
  painter.drawLine(line.line);
}

void DrawingSurface::DrawLine(const PaintedLine& line) {
  Paint(Touched(line), [&](QPainter& painter) { PaintLine(painter, line); });
}

void DrawingSurface::Box(double x1, double y1, double x2, double y2) {
  const QRectF box(OnGrid(Map(x1, y1)), OnGrid(Map(x2, y2)));
  const QPen pen = MakePen(foreColour_);
  Paint(Grown(box, pen.widthF() + 1), [&](QPainter& painter) {
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(pen);
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(box.normalized());
  });
  pen_ = {x2, y2};
}

void DrawingSurface::FillBox(double x1, double y1, double x2, double y2, Colour colour) {
  // On a grid of pixels neighbours meet without a seam.
  const auto corner = [&](QPointF point) {
    return canvas_.pixelGrid ? QPointF(std::round(point.x()), std::round(point.y())) : point;
  };
  const QRectF box = QRectF(corner(Map(x1, y1)), corner(Map(x2, y2))).normalized();
  Paint(box, [&](QPainter& painter) { painter.fillRect(box, ToQColor(colour)); });
  pen_ = {x2, y2};
}

void DrawingSurface::Polyline(std::span<const Point> points) {
  if (points.size() < 2) {
    return;
  }
  pen_ = points.back();
  const QPolygonF line = ThinTrace(points, mapX_, mapY_, canvas_.columnsPerUnit);
  const double size = canvas_.size.width() + canvas_.size.height();
  const bool smooth = canvas_.vector || TravelOf(line) < kSmoothTravel * size;
  QPen pen = MakePen(foreColour_);
  pen.setJoinStyle(Qt::BevelJoin);  // round ones cost as much as the whole trace
  Paint(Grown(line.boundingRect(), pen.widthF() + 1), [&](QPainter& painter) {
    if (smooth) {
      painter.setRenderHint(QPainter::Antialiasing);
      painter.setPen(pen);
      painter.drawPolyline(line);
    } else {
      PaintDense(painter, line, pen);
    }
  });
}

void DrawingSurface::PaintDense(QPainter& painter, const QPolygonF& line, QPen pen) const {
  // A pen of one pixel, drawn as often as it takes to fill the width: the toolkit needs seconds to
  // outline thousands of steep lines with a wider one.
  const int width = std::max(1, static_cast<int>(std::lround(pen.widthF())));
  pen.setWidth(1);
  painter.setRenderHint(QPainter::Antialiasing, false);
  painter.setClipRect(QRectF({0, 0}, canvas_.size));  // else each segment is clipped on its own
  painter.setPen(pen);
  const bool onImage =
      painter.device()->devType() == QInternal::Image && pen.style() == Qt::SolidLine;
  for (int right = 0; right < width; ++right) {
    for (int down = 0; down < width; ++down) {
      const QPolygonF moved = line.translated(right, down);
      if (!onImage ||
          !PaintWithPixelPen(*static_cast<QImage*>(painter.device()), moved, pen.color().rgb())) {
        painter.drawPolyline(moved);
      }
    }
  }
}

void DrawingSurface::SetFontSize(double points) {
  if (points <= 0) {
    throw Failure(failure_number::kInvalidCall);
  }
  font_.setPointSizeF(points);
  MakeFont();
}

void DrawingSurface::SetFontUnderline(bool on) {
  font_.setUnderline(on);
}

double DrawingSurface::TextWidth(std::string_view text) const {
  double widest = 0;
  for (const QString& line : Lines(text)) {
    widest = std::max(widest, metrics_.horizontalAdvance(line));
  }
  return widest / mapX_.factor;
}

double DrawingSurface::TextHeight(std::string_view text) const {
  return metrics_.height() * static_cast<double>(Lines(text).size()) / mapY_.factor;
}

void DrawingSurface::Print(std::string_view text) {
  const QStringList lines = Lines(text);
  for (qsizetype i = 0; i < lines.size(); ++i) {
    if (i > 0) {
      PrintLineEnd();
    }
    PrintPart(lines[i]);
  }
}

void DrawingSurface::PrintPart(const QString& text) {
  QPointF topLeft = Map(pen_.x, pen_.y);
  if (canvas_.pixelGrid) {  // keeps the letters' edges crisp
    topLeft = topLeft.toPoint();
  }
  const double width = metrics_.horizontalAdvance(text);
  const QRectF extent(topLeft, QSizeF(width, metrics_.height()));
  Paint(Grown(extent, 2 * canvas_.unitsPerPixel), [&](QPainter& painter) {
    if (!fontTransparent_) {
      painter.fillRect(extent, Qt::white);
    }
    painter.setFont(font_);
    painter.setPen(ToQColor(foreColour_));
    painter.drawText(topLeft + QPointF(0, metrics_.ascent()), text);
  });
  pen_.x += width / mapX_.factor;
}

void DrawingSurface::PrintLineEnd() {
  pen_ = {0, pen_.y + metrics_.height() / mapY_.factor};
}

}  // namespace halvorne
