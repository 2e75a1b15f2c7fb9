#pragma once

#include <QImage>
#include <QRect>
#include <functional>
#include <vector>

#include "platform/qt/drawing_surface.h"

namespace halvorne {

/// The picture of a window: keeps what was drawn in an image of the screen's own resolution, from
/// which the window repaints itself.
///
/// Its page is white whatever the desktop's colours. Lines drawn with the exclusive-or pen lie on
/// top of the image and the same line drawn again takes the first away, so that moving the cursor
/// redraws nothing else.
class PictureSurface final : public DrawingSurface {
 public:
  explicit PictureSurface(SurfaceKind kind) : DrawingSurface(kind) {}

  /// Empties the picture and gives it another size.
  /// @param size              in pixels of the window
  /// @param devicePixelRatio  device pixels in a pixel of the window
  void SetSize(QSize size, double devicePixelRatio);
  QSize Size() const { return size_; }

  /// Called with the rectangle, in pixels of the window, in which the picture has changed.
  void SetChangeListener(std::function<void(const QRect&)> listener) {
    listener_ = std::move(listener);
  }

  /// Paints the picture's part within `exposed` where a window shows it.
  void PaintOn(QPainter& painter, const QRect& exposed) const;
  /// The whole picture as it is seen, for the clipboard.
  QImage Seen() const;

  void Cls() override;

 protected:
  void Paint(const QRectF& touched, const std::function<void(QPainter&)>& draw) override;
  const QPaintDevice* Device() const override { return image_.isNull() ? nullptr : &image_; }
  void DrawLine(const PaintedLine& line) override;

 private:
  void TellChanged(const QRectF& where) const;

  QSize size_;
  double ratio_ = 1;
  QImage image_;  ///< in device pixels
  std::vector<PaintedLine> overlay_;
  std::function<void(const QRect&)> listener_;
};

}  // namespace halvorne
