#pragma once

#include "platform/qt/drawing_surface.h"

namespace halvorne {

/// A surface over any paint device: an image, a vector file, a printer.
///
/// It fills the device's whole drawing area. An image has a device pixel ratio of 1 and, where it
/// is finer than 96 dots an inch, says so as its dots per metre. The device must outlive it; what
/// was drawn is complete after EndDoc() or when the surface goes. On a device that cannot be
/// opened, drawing raises 75; a page that cannot be begun or a document that cannot be ended is
/// 482.
class PainterSurface final : public DrawingSurface {
 public:
  PainterSurface(QPaintDevice& device, SurfaceKind kind);

  /// Opens the device, which drawing does by itself.
  void Begin();
  void NewPage() override;
  void EndDoc() override;

 protected:
  void Paint(const QRectF& touched, const std::function<void(QPainter&)>& draw) override;
  const QPaintDevice* Device() const override { return &device_; }

 private:
  QPaintDevice& device_;
  QPainter painter_;
};

}  // namespace halvorne
