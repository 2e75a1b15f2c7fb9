#include "platform/qt/page_images.h"

#include <cmath>

#include "platform/failure.h"

namespace halvorne {
namespace {

constexpr double kPixelsPerInch = 96;
constexpr double kInchesPerMetre = 1 / 0.0254;

}  // namespace

PageImages::PageImages(const QPageLayout& layout, int dotsPerInch)
    : DrawingSurface(SurfaceKind::kPrinter),
      paper_(layout.fullRectPixels(dotsPerInch).size()),
      margins_(layout.paintRectPixels(dotsPerInch).topLeft()),
      dotsPerInch_(dotsPerInch) {
  AddPage();
  SetCanvas({.size = layout.paintRectPixels(dotsPerInch).size(),
             .unitsPerPixel = dotsPerInch / kPixelsPerInch});
}

void PageImages::AddPage() {
  QImage page(paper_, QImage::Format_RGB32);
  if (page.isNull()) {
    throw Failure(failure_number::kOutOfMemory);
  }
  const int dotsPerMetre = static_cast<int>(std::lround(dotsPerInch_ * kInchesPerMetre));
  page.setDotsPerMeterX(dotsPerMetre);
  page.setDotsPerMeterY(dotsPerMetre);
  page.fill(Qt::white);
  pages_.push_back(page);
}

void PageImages::NewPage() {
  AddPage();
  MoveTo(0, 0);
}

void PageImages::Paint(const QRectF& /*touched*/, const std::function<void(QPainter&)>& draw) {
  QPainter painter(&pages_.back());
  painter.translate(margins_);
  draw(painter);
}

}  // namespace halvorne
