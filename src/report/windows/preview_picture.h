#pragma once

#include <QAbstractScrollArea>
#include <QImage>
#include <functional>

#include "platform/qt/drawing_surface.h"

namespace halvorne {

/// The endless page of the preview in pixels. What stands below the picture's lower edge is kept.
class PreviewSurface final : public DrawingSurface {
 public:
  PreviewSurface() : DrawingSurface(SurfaceKind::kPreview) {}

  /// Empties it and gives it another size.
  /// @param picture           of the picture, in pixels of the window
  /// @param devicePixelRatio  pixels of the image in a pixel of the window
  /// @param pages             pages for which there is room
  void SetSize(QSize picture, double devicePixelRatio, int pages);

  /// Number of pages that what was printed takes.
  int Pages() const;
  /// A page's part of the image: the picture for the first, for each further one what follows.
  QRect PageOf(int page) const;
  const QImage& Image() const { return image_; }

  void Cls() override;

 protected:
  void Paint(const QRectF& touched, const std::function<void(QPainter&)>& draw) override;
  const QPaintDevice* Device() const override { return image_.isNull() ? nullptr : &image_; }

 private:
  QImage image_;
};

/// The preview's picture: one page of the report, enlarged at will.
class PreviewPicture final : public QAbstractScrollArea {
 public:
  explicit PreviewPicture(QWidget* parent);

  /// Called when another page, or another number of them, is on show.
  void SetPageListener(std::function<void()> listener) { listener_ = std::move(listener); }

  /// Prints the report anew, in the picture's size.
  void Draw();
  int Pages() const { return pages_; }
  int Page() const { return page_; }
  /// Shows a page, 1 to Pages().
  void ShowPage(int page);
  /// 1 to 3 times the size in which the whole page is seen.
  double Enlargement() const { return enlargement_; }
  /// @param fixed  the point of the picture that stays where it is
  void Enlarge(double factor, QPoint fixed);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  /// Turns pages, scrolls an enlarged one before, and enlarges with the control key.
  void wheelEvent(QWheelEvent* event) override;

 private:
  QSize PageSize() const;
  void SetBars();

  PreviewSurface surface_;
  std::function<void()> listener_;
  int pages_ = 1;
  int page_ = 1;
  double enlargement_ = 1;
};

}  // namespace halvorne
