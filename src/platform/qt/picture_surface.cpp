#include "platform/qt/picture_surface.h"

#include <algorithm>
#include <cmath>

namespace halvorne {
namespace {

constexpr int kDotsPerMetre = 3780;  // 96 an inch, so that a point is a point on every screen

}  // namespace

void PictureSurface::SetSize(QSize size, double devicePixelRatio) {
  size_ = size.expandedTo({1, 1});
  const QSizeF pixels = QSizeF(size_) * devicePixelRatio;
  image_ = QImage(static_cast<int>(std::ceil(pixels.width())),
                  static_cast<int>(std::ceil(pixels.height())), QImage::Format_RGB32);
  image_.setDevicePixelRatio(devicePixelRatio);
  image_.setDotsPerMeterX(kDotsPerMetre);
  image_.setDotsPerMeterY(kDotsPerMetre);
  SetCanvas({.size = size_,
             .unitsPerPixel = 1,
             .devicePixels = devicePixelRatio,
             .columnsPerUnit = devicePixelRatio});
  Cls();
}

void PictureSurface::Cls() {
  overlay_.clear();
  DrawingSurface::Cls();
}

void PictureSurface::Paint(const QRectF& touched, const std::function<void(QPainter&)>& draw) {
  if (image_.isNull()) {
    return;
  }
  {
    QPainter painter(&image_);
    draw(painter);
  }
  TellChanged(touched);
}

void PictureSurface::TellChanged(const QRectF& where) const {
  if (listener_) {
    listener_(where.toAlignedRect() & QRect({0, 0}, size_));
  }
}

void PictureSurface::DrawLine(const PaintedLine& line) {
  if (DrawMode() != kXorPen) {
    DrawingSurface::DrawLine(line);
    return;
  }
  const auto same = std::find(overlay_.begin(), overlay_.end(), line);
  if (same != overlay_.end()) {
    overlay_.erase(same);
  } else {
    overlay_.push_back(line);
  }
  TellChanged(Touched(line));
}

void PictureSurface::PaintOn(QPainter& painter, const QRect& exposed) const {
  if (image_.isNull()) {
    return;
  }
  const double ratio = image_.devicePixelRatio();
  painter.drawImage(QRectF(exposed), image_,
                    QRectF(QPointF(exposed.topLeft()) * ratio, QSizeF(exposed.size()) * ratio));
  painter.save();
  painter.setClipRect(exposed, Qt::IntersectClip);
  for (const PaintedLine& line : overlay_) {
    PaintLine(painter, line);
  }
  painter.restore();
}

QImage PictureSurface::Seen() const {
  QImage seen = image_;
  QPainter painter(&seen);
  for (const PaintedLine& line : overlay_) {
    PaintLine(painter, line);
  }
  return seen;
}

}  // namespace halvorne
