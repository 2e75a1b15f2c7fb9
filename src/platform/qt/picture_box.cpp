#include "platform/qt/picture_box.h"

#include <QPaintEvent>
#include <QPainter>

namespace halvorne {

PictureBox::PictureBox(QWidget* parent) : QWidget(parent) {
  setAttribute(Qt::WA_OpaquePaintEvent);
  setFocusPolicy(Qt::ClickFocus);
  picture_.SetChangeListener([this](const QRect& changed) { update(changed); });
}

void PictureBox::FitPicture() {
  picture_.SetSize(size(), devicePixelRatioF());
}

void PictureBox::paintEvent(QPaintEvent* event) {
  QPainter painter(this);
  if (picture_.Size() != size()) {
    painter.fillRect(event->rect(), Qt::white);
  }
  picture_.PaintOn(painter, event->rect());
}

}  // namespace halvorne
