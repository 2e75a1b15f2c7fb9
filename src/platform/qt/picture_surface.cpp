#include "platform/qt/picture_surface.h"

#include <algorithm>
#include <cmath>

namespace halvorne {
namespace {

constexpr double kDotsPerMetre = 96 / 0.0254;

}  // namespace

void PictureSurface::SetSize(QSize size, double devicePixelRatio) {
  size_ = size.expandedTo({1, 1});
  ratio_ = devicePixelRatio;
  const QSizeF pixels = QSizeF(size_) * ratio_;
  image_ = QImage(static_cast<int>(std::ceil(pixels.width())),
                  static_cast<int>(std::ceil(pixels.height())), QImage::Format_RGB32);
  // The resolution makes a point a point whatever the pixel ratio, and letters are as sharp as can
  // be; an image with a pixel ratio would be painted through a transformation, which is slow.
  image_.setDotsPerMeterX(static_cast<int>(std::lround(kDotsPerMetre * ratio_)));
  image_.setDotsPerMeterY(static_cast<int>(std::lround(kDotsPerMetre * ratio_)));
  SetCanvas({.size = pixels, .unitsPerPixel = ratio_});
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
    const QRectF inWindow(where.topLeft() / ratio_, where.size() / ratio_);
    listener_(inWindow.toAlignedRect() & QRect({0, 0}, size_));
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
  painter.drawImage(QRectF(exposed), image_,
                    QRectF(QPointF(exposed.topLeft()) * ratio_, QSizeF(exposed.size()) * ratio_));
  painter.save();
  painter.setClipRect(exposed, Qt::IntersectClip);
  painter.scale(1 / ratio_, 1 / ratio_);
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
