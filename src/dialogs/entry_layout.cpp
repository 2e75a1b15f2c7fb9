#include "dialogs/entry_layout.h"

#include "dialogs/number_box.h"

namespace halvorne {
namespace {

constexpr int kDigits = 12;

QString Name(const QLabel* caption) {
  QString words = caption->text().trimmed();
  if (words.endsWith(u':')) {
    words.chop(1);
  }
  return words;
}

}  // namespace

void AddEntryRow(QGridLayout* grid, int row, QLabel* caption, QLineEdit* box, QLabel* unit) {
  AsNumberBox(box, kDigits);
  box->setAccessibleName(Name(caption));
  grid->addWidget(caption, row, 0);
  grid->addWidget(box, row, 1);
  if (unit != nullptr) {
    grid->addWidget(unit, row, 2);
  }
}

void KeepPlaceWhenHidden(QWidget* control) {
  QSizePolicy policy = control->sizePolicy();
  policy.setRetainSizeWhenHidden(true);
  control->setSizePolicy(policy);
}

QHBoxLayout* ClosingRow(QPushButton* ok, QPushButton* cancel) {
  auto* const row = new QHBoxLayout;
  row->addStretch();
  row->addWidget(ok);
  row->addWidget(cancel);
  ok->setDefault(true);
  cancel->setAutoDefault(true);  // Return presses it, but only while it has the focus
  return row;
}

}  // namespace halvorne
