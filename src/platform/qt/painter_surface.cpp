#include "platform/qt/painter_surface.h"

#include <QPagedPaintDevice>

#include "platform/failure.h"

namespace halvorne {
namespace {

constexpr double kPixelsPerInch = 96;
/// Columns in a pixel of 1/96 inch that a dense trace keeps on devices without pixels.
constexpr double kVectorColumns = 4;

Canvas CanvasOf(const QPaintDevice& device) {
  Canvas canvas;
  canvas.size = QSizeF(device.width(), device.height());
  canvas.unitsPerPixel = device.logicalDpiY() / kPixelsPerInch;
  canvas.vector = device.devType() != QInternal::Image;
  if (canvas.vector) {
    // A file in units of screen pixels is mostly seen at that size; finer units need no grid.
    canvas.pixelGrid = canvas.unitsPerPixel == 1;
    canvas.columnsPerUnit = kVectorColumns / canvas.unitsPerPixel;
  }
  return canvas;
}

}  // namespace

PainterSurface::PainterSurface(QPaintDevice& device, SurfaceKind kind)
    : DrawingSurface(kind), device_(device) {
  SetCanvas(CanvasOf(device));
}

void PainterSurface::Begin() {
  if (!painter_.isActive() && !painter_.begin(&device_)) {
    throw Failure(failure_number::kPathFileAccess);
  }
}

void PainterSurface::Paint(const QRectF& /*touched*/, const std::function<void(QPainter&)>& draw) {
  Begin();
  draw(painter_);
}

void PainterSurface::NewPage() {
  Begin();
  if (auto* paged = dynamic_cast<QPagedPaintDevice*>(&device_);
      paged != nullptr && !paged->newPage()) {
    throw Failure(failure_number::kPrinter);
  }
  MoveTo(0, 0);
}

void PainterSurface::EndDoc() {
  if (painter_.isActive() && !painter_.end()) {
    throw Failure(failure_number::kPrinter);
  }
}

}  // namespace halvorne
