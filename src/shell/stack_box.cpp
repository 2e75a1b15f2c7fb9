#include "shell/stack_box.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QToolTip>
#include <algorithm>
#include <utility>

#include "platform/failure.h"
#include "platform/qt/message_boxes.h"
#include "platform/qt/text.h"
#include "plot/plot_state.h"
#include "report/stack_drawing.h"

namespace halvorne {

StackBox::StackBox(QWidget* parent, std::function<void(const StackPart&)> open)
    : QWidget(parent), open_(std::move(open)) {
  setAttribute(Qt::WA_OpaquePaintEvent);
  setFocusPolicy(Qt::StrongFocus);
  setAccessibleName(QStringLiteral("Stack of the design"));
}

void StackBox::Follow() try {
  if (!isVisible()) {
    return;
  }
  Stack present = plot.DesignOpen ? StackOfDesign() : Stack();
  if (present != stack_) {
    stack_ = std::move(present);
    selected_ = std::clamp(selected_, 0, std::max(0, static_cast<int>(stack_.parts.size()) - 1));
    drawn_ = false;
    Tell();
    update();
  }
} catch (...) {
  ReportFailure("picStack_Follow", "frmHalvorneMain");
}

void StackBox::Draw() {
  if (stack_.parts.empty()) {
    layout_ = {};
    picture_.Cls();
  } else {
    layout_ = DrawStack(picture_, stack_, width(), height(), hasFocus() ? selected_ : -1);
  }
  drawn_ = true;
}

void StackBox::paintEvent(QPaintEvent* event) try {
  if (picture_.Size() != size()) {
    picture_.SetSize(size(), devicePixelRatioF());
    drawn_ = false;
  }
  if (!drawn_) {
    Draw();
  }
  QPainter painter(this);
  picture_.PaintOn(painter, event->rect());
} catch (...) {
  ReportFailure("picStack_Paint", "frmHalvorneMain");
}

void StackBox::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  Follow();
}

void StackBox::Tell() {
  QString words;
  if (hasFocus() && !stack_.parts.empty()) {
    words = ToQString(stack_.parts[static_cast<std::size_t>(selected_)].words);
  } else {
    for (const StackPart& part : stack_.parts) {
      words += ToQString(part.words).section(u'\n', 0, 0) + QStringLiteral(". ");
    }
  }
  setAccessibleDescription(words.replace(u'\n', QStringLiteral(", ")).trimmed());
}

void StackBox::Select(int part) {
  selected_ = std::clamp(part, 0, std::max(0, static_cast<int>(stack_.parts.size()) - 1));
  drawn_ = false;
  Tell();
  update();
}

void StackBox::Open(int part) {
  if (part >= 0 && part < static_cast<int>(stack_.parts.size())) {
    const Command command;
    open_(StackPart(stack_.parts[static_cast<std::size_t>(part)]));
  }
}

int StackBox::PartAt(QPoint place) const {
  return StackPartAt(layout_, place.x(), place.y());
}

bool StackBox::event(QEvent* event) {
  if (event->type() == QEvent::ToolTip) {
    const auto* const asked = static_cast<QHelpEvent*>(event);
    const int part = PartAt(asked->pos());
    if (part >= 0 && part < static_cast<int>(stack_.parts.size())) {
      const auto i = static_cast<std::size_t>(part);
      const Area& area = layout_.parts[i];
      // Told as plain text, whatever the name of a material looks like.
      const QString words = ToQString(stack_.parts[i].words).toHtmlEscaped();
      QToolTip::showText(
          asked->globalPos(), QStringLiteral("<p style='white-space:pre'>%1</p>").arg(words), this,
          QRectF(area.left, area.top, area.right - area.left, area.bottom - area.top).toRect());
    } else {
      QToolTip::hideText();
    }
    return true;
  }
  return QWidget::event(event);
}

void StackBox::keyPressEvent(QKeyEvent* event) {
  // Up leads to the front, as the picture has it.
  switch (event->key()) {
    case Qt::Key_Up:
    case Qt::Key_Right:
      return Select(selected_ + 1);
    case Qt::Key_Down:
    case Qt::Key_Left:
      return Select(selected_ - 1);
    case Qt::Key_Home:
      return Select(0);
    case Qt::Key_End:
      return Select(static_cast<int>(stack_.parts.size()) - 1);
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
      return Open(selected_);
    default:
      QWidget::keyPressEvent(event);
  }
}

void StackBox::mousePressEvent(QMouseEvent* event) {
  if (const int part = PartAt(event->pos()); part >= 0) {
    Select(part);
  }
}

void StackBox::mouseDoubleClickEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) {
    Open(PartAt(event->pos()));
  }
}

void StackBox::focusInEvent(QFocusEvent* event) {
  QWidget::focusInEvent(event);
  Select(selected_);
}

void StackBox::focusOutEvent(QFocusEvent* event) {
  QWidget::focusOutEvent(event);
  Select(selected_);
}

}  // namespace halvorne
