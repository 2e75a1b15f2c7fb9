#pragma once

#include <QImage>
#include <QPageLayout>
#include <vector>

#include "platform/qt/drawing_surface.h"

namespace halvorne {

/// Paper in pixels: a printer whose pages are images, white up to their margins.
class PageImages final : public DrawingSurface {
 public:
  /// Begins with one empty page. Raises 7 when there is no memory for it, as NewPage() does.
  PageImages(const QPageLayout& layout, int dotsPerInch);

  const std::vector<QImage>& Pages() const { return pages_; }
  void NewPage() override;

 protected:
  void Paint(const QRectF& touched, const std::function<void(QPainter&)>& draw) override;
  const QPaintDevice* Device() const override { return &pages_.back(); }

 private:
  void AddPage();

  QSize paper_;
  QPoint margins_;  ///< left and upper one
  int dotsPerInch_;
  std::vector<QImage> pages_;
};

}  // namespace halvorne
