#include "dialogs/number_stepper.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>

#include "dialogs/number_box.h"

namespace halvorne {

ArrowButton::ArrowButton(Qt::ArrowType arrow, const QString& accessibleName) {
  setArrowType(arrow);
  setAutoRepeat(true);
  setFocusPolicy(Qt::StrongFocus);
  setAccessibleName(accessibleName);
  setToolTip(accessibleName);
}

void ArrowButton::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Up || event->key() == Qt::Key_Down) {
    event->ignore();  // these are the stepper's
    return;
  }
  QToolButton::keyPressEvent(event);
}

NumberStepper::NumberStepper(QLineEdit* box, ArrowButton* up, ArrowButton* down)
    : up_(up), down_(down) {
  auto* const row = new QHBoxLayout(this);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(2);
  box->setReadOnly(true);
  box->setFocusPolicy(Qt::NoFocus);
  box->setFixedWidth(AsNumberBox(box, 4)->minimumWidth());
  row->addWidget(box);
  for (ArrowButton* button : {up, down}) {
    button->setFixedSize(box->sizeHint().height(), box->sizeHint().height());
    row->addWidget(button);
  }
  row->addStretch();
}

void NumberStepper::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Up) {
    up_->click();
  } else if (event->key() == Qt::Key_Down) {
    down_->click();
  } else {
    QWidget::keyPressEvent(event);
  }
}

QWidget* CaptionedStepper(const QString& caption, const char* labelName, QLineEdit* box,
                          ArrowButton* up, ArrowButton* down) {
  auto* const line = new QWidget;
  auto* const row = new QHBoxLayout(line);
  row->setContentsMargins(0, 0, 0, 0);
  auto* const label = new QLabel(caption);
  if (labelName != nullptr) {
    label->setObjectName(QString::fromLatin1(labelName));
  }
  row->addWidget(label);
  row->addWidget(new NumberStepper(box, up, down));
  row->addStretch();
  return line;
}

}  // namespace halvorne
