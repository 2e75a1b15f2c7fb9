#pragma once

#include <QWidget>
#include <functional>

#include "platform/qt/picture_surface.h"
#include "report/stack.h"
#include "report/stack_layout.h"

namespace halvorne {

/// The picture of the stack, picStack: layers, loads and network of the open design.
///
/// It paints when it is seen and the design has another stack than the one it shows; nothing else
/// costs time. Hovering tells a part's words. A double click opens a part; with the keyboard the
/// arrow keys, Home and End choose one and Return opens it.
class StackBox final : public QWidget {
 public:
  /// @param open  opens the part that was chosen; reports its own failures
  StackBox(QWidget* parent, std::function<void(const StackPart&)> open);

  /// Looks whether the design has changed. To be called when it may have.
  void Follow();
  /// Where the parts stand in the picture as it was painted last, and what they are.
  const StackLayout& Layout() const { return layout_; }
  const Stack& Shown() const { return stack_; }

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  void Draw();
  void Select(int part);
  void Open(int part);
  void Tell();
  int PartAt(QPoint place) const;

  std::function<void(const StackPart&)> open_;
  PictureSurface picture_{SurfaceKind::kMainPicture};
  Stack stack_;
  StackLayout layout_;
  int selected_ = 0;
  bool drawn_ = false;
};

}  // namespace halvorne
