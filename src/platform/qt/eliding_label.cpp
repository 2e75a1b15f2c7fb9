#include "platform/qt/eliding_label.h"

#include <QHelpEvent>
#include <QPainter>
#include <QStyle>
#include <QStyleOption>
#include <QToolTip>

namespace halvorne {
namespace {

constexpr qsizetype kMostCharacters = 500;
constexpr int kFewestCharacters = 10;

}  // namespace

ElidingLabel::ElidingLabel(Qt::TextElideMode mode, int characters)
    : mode_(mode), characters_(characters) {
  setTextFormat(Qt::PlainText);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

QString ElidingLabel::Readable() const {
  QString whole = text();
  if (whole.size() <= kMostCharacters) {
    return whole;
  }
  constexpr qsizetype half = kMostCharacters / 2;
  return mode_ == Qt::ElideMiddle ? whole.left(half) + QChar(0x2026) + whole.right(half)
                                  : whole.left(kMostCharacters) + QChar(0x2026);
}

QSize ElidingLabel::sizeHint() const {
  return {fontMetrics().averageCharWidth() * characters_, fontMetrics().height()};
}

QSize ElidingLabel::minimumSizeHint() const {
  return {fontMetrics().averageCharWidth() * kFewestCharacters, fontMetrics().height()};
}

bool ElidingLabel::event(QEvent* event) {
  if (event->type() == QEvent::ToolTip) {
    const bool cut = fontMetrics().horizontalAdvance(Readable()) > width();
    QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), cut ? Readable() : QString(),
                       this);
    return true;
  }
  return QLabel::event(event);
}

void ElidingLabel::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  QStyleOption option;
  option.initFrom(this);
  style()->drawItemText(&painter, contentsRect(), Qt::AlignLeft | Qt::AlignVCenter, option.palette,
                        isEnabled(), fontMetrics().elidedText(Readable(), mode_, width()),
                        foregroundRole());
}

}  // namespace halvorne
