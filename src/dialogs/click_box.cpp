#include "dialogs/click_box.h"

#include <QKeyEvent>
#include <QMouseEvent>

namespace halvorne {

ClickBox::ClickBox(const QString& accessibleName) {
  setReadOnly(true);
  setAccessibleName(accessibleName);
  setCursor(Qt::PointingHandCursor);
  setContextMenuPolicy(Qt::NoContextMenu);
}

void ClickBox::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Space && click_) {
    click_();
    return;
  }
  QLineEdit::keyPressEvent(event);
}

void ClickBox::mouseReleaseEvent(QMouseEvent* event) {
  QLineEdit::mouseReleaseEvent(event);
  deselect();  // a click into the box does not mark its text
  if (event->button() == Qt::LeftButton && rect().contains(event->pos()) && click_) {
    click_();
  }
}

}  // namespace halvorne
