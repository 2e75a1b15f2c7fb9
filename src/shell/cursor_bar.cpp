#include "shell/cursor_bar.h"

#include <QKeyEvent>

namespace halvorne {

bool CursorBar::Press(int key) {
  switch (key) {
    case Qt::Key_Left:
    case Qt::Key_Up:
      triggerAction(SliderSingleStepSub);
      return true;
    case Qt::Key_Right:
    case Qt::Key_Down:
      triggerAction(SliderSingleStepAdd);
      return true;
    case Qt::Key_PageUp:
      triggerAction(SliderPageStepSub);
      return true;
    case Qt::Key_PageDown:
      triggerAction(SliderPageStepAdd);
      return true;
    case Qt::Key_Home:
      triggerAction(SliderToMinimum);
      return true;
    case Qt::Key_End:
      triggerAction(SliderToMaximum);
      return true;
    default:
      return false;
  }
}

void CursorBar::keyPressEvent(QKeyEvent* event) {
  event->setAccepted(Press(event->key()));
}

}  // namespace halvorne
