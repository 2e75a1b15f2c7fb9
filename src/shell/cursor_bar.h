#pragma once

#include <QScrollBar>

namespace halvorne {

/// HScroll1: the scroll bar that moves the cursor.
///
/// Left, up and page up go to lower points, right, down and page down to higher ones, whatever the
/// toolkit's own scroll bars take them for.
class CursorBar final : public QScrollBar {
 public:
  explicit CursorBar(QWidget* parent) : QScrollBar(Qt::Horizontal, parent) {}

  /// Does what a key does to the bar; false for keys that do nothing to it.
  bool Press(int key);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
};

}  // namespace halvorne
