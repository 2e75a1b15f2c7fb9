#include "dialogs/number_box.h"

#include <algorithm>

#include "platform/qt/modal_dialog.h"

namespace halvorne {

void CorrectToLowest(QLineEdit* box, const std::string& text) {
  SetBoxText(box, text);
  if (box->hasFocus()) {
    box->selectAll();
  }
}

void CorrectToHighest(QLineEdit* box, const std::string& text) {
  const int cursor = box->cursorPosition();
  SetBoxText(box, text);
  box->setCursorPosition(std::min(cursor, static_cast<int>(box->text().size())));
}

double CorrectedValue(QLineEdit* box, const BoxBounds& bounds) {
  if (BoxValue(box) < bounds.lowest) {
    CorrectToLowest(box, bounds.lowestText);
  }
  if (BoxValue(box) > bounds.highest) {
    CorrectToHighest(box, bounds.highestText);
  }
  return BoxValue(box);
}

void ShowText(QLineEdit* box, const std::string& text) {
  SetBoxText(box, text);
  box->setCursorPosition(0);
}

void StoreText(const QLineEdit* box, std::string& field) {
  if (box->text() != ToQString(field)) {
    field = FromQString(box->text());
  }
}

QLineEdit* AsNumberBox(QLineEdit* box, int digits) {
  constexpr int frame = 16;  // the box's border and the room beside its text, in pixels
  box->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  box->setMinimumWidth(box->fontMetrics().horizontalAdvance(u'0') * digits + frame);
  return box;
}

}  // namespace halvorne
