#pragma once

#include <QImage>
#include <QRectF>
#include <string>
#include <vector>

#include "platform/qt/drawing_surface.h"

namespace halvorne::testing {

/// A main picture that writes down where each text stands, in pixels, and paints nothing.
class TextExtents final : public DrawingSurface {
 public:
  struct Text {
    std::string words;
    QRectF place;
  };

  explicit TextExtents(QSize size);

  void Scale(double x1, double y1, double x2, double y2) override;
  void Print(std::string_view text) override;

  /// Texts that leave the picture or lie over one another. Blanks are no text.
  std::vector<std::string> Faults() const;

 protected:
  void Paint(const QRectF& /*touched*/, const std::function<void(QPainter&)>& /*draw*/) override {}
  const QPaintDevice* Device() const override { return &device_; }

 private:
  QImage device_{1, 1, QImage::Format_RGB32};
  QSizeF size_;
  Point corner1_, corner2_;
  std::vector<Text> texts_;
};

}  // namespace halvorne::testing
