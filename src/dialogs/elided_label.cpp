#include "dialogs/elided_label.h"

#include <QStyle>
#include <QStylePainter>

namespace halvorne {

ElidedLabel::ElidedLabel() {
  setTextFormat(Qt::PlainText);
  setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  setMinimumWidth(fontMetrics().averageCharWidth() * 26);
}

void ElidedLabel::ShowWords(const QString& words) {
  setText(words);
  setToolTip(words.toHtmlEscaped());
}

void ElidedLabel::paintEvent(QPaintEvent* /*event*/) {
  QStylePainter painter(this);
  const QString shown = fontMetrics().elidedText(text(), Qt::ElideRight, contentsRect().width());
  painter.drawItemText(contentsRect(), static_cast<int>(alignment()), palette(), isEnabled(), shown,
                       foregroundRole());
}

}  // namespace halvorne
