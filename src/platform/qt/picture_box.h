#pragma once

#include <QWidget>

#include "platform/qt/picture_surface.h"

namespace halvorne {

/// A picture in a window: shows a retained picture and repaints from it.
class PictureBox final : public QWidget {
 public:
  explicit PictureBox(QWidget* parent);

  PictureSurface& Picture() { return picture_; }
  const PictureSurface& Picture() const { return picture_; }
  /// Gives the picture, emptied, the size and resolution of the box.
  void FitPicture();

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  PictureSurface picture_{SurfaceKind::kMainPicture};
};

}  // namespace halvorne
