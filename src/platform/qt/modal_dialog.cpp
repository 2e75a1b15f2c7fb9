#include "platform/qt/modal_dialog.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>
#include <QShowEvent>

#include "platform/number_text.h"

namespace halvorne {

ModalDialog::ModalDialog(const char* name, const QString& title, QWidget* parent)
    : QDialog(parent) {
  setObjectName(QString::fromLatin1(name));
  setWindowTitle(title);
  setModal(true);
  setWindowFlag(Qt::WindowContextHelpButtonHint, false);
}

void ModalDialog::Centre() {
  adjustSize();
  const QRect area = screen()->geometry();
  move(area.x() + area.width() / 2 - width() / 2, area.y() + area.height() / 2 - height() / 2);
}

/// Lets the Tab key stop at the chosen option of each group, which the toolkit does by itself only
/// once an option had the focus. A group whose chosen option is disabled stays as it is: any of its
/// others may be reached.
void ModalDialog::StopAtChosenOptions() {
  for (const QRadioButton* chosen : findChildren<QRadioButton*>()) {
    if (chosen->isChecked() && chosen->isEnabled()) {
      for (QRadioButton* option : chosen->parentWidget()->findChildren<QRadioButton*>()) {
        option->setFocusPolicy(option == chosen ? Qt::StrongFocus : Qt::ClickFocus);
      }
    }
  }
}

void ModalDialog::OnPress(QAbstractButton* button, const Procedure& procedure) {
  connect(button, &QAbstractButton::clicked, this, [button, procedure] {
    button->setFocus(Qt::OtherFocusReason);
    procedure();
  });
}

ModalDialog::FocusProcedures& ModalDialog::WatchFocus(QWidget* control) {
  control->installEventFilter(this);
  return focus_[control];
}

bool ModalDialog::eventFilter(QObject* watched, QEvent* event) {
  const auto found = focus_.constFind(watched);
  if (found != focus_.constEnd()) {
    if (event->type() == QEvent::FocusIn && found->reached) {
      found->reached();
    } else if (event->type() == QEvent::FocusOut && found->left) {
      const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
      if (reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason) {
        found->left();
      }
    }
  }
  return QDialog::eventFilter(watched, event);
}

/// Return gives the default button the focus before it acts, so that the box in which it was typed
/// is left as by a click. Escape presses the cancel button.
void ModalDialog::keyPressEvent(QKeyEvent* event) {
  if (cancel_ != nullptr && event->matches(QKeySequence::Cancel)) {
    cancel_->click();
    return;
  }
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
    for (QPushButton* button : findChildren<QPushButton*>()) {
      if (button->isDefault() && button->isEnabled()) {
        button->setFocus();
      }
    }
  }
  QDialog::keyPressEvent(event);
}

void ModalDialog::showEvent(QShowEvent* event) {
  QDialog::showEvent(event);
  StopAtChosenOptions();
  Centre();  // once more with the final size: fonts and styles count only when it is shown
}

void FramePages::Add(QAbstractButton* button, QFrame* frame) {
  QSizePolicy policy = frame->sizePolicy();
  policy.setRetainSizeWhenHidden(true);
  frame->setSizePolicy(policy);
  button->setCheckable(true);
  group_.addButton(button);
  pages_.push_back({button, frame});
}

void FramePages::Show(int index) {
  for (Page& page : pages_) {
    page.frame->hide();
  }
  pages_.at(static_cast<std::size_t>(index)).frame->show();
  Button(index)->setChecked(true);
}

double BoxValue(const QLineEdit* box) {
  return SafeVal(FromQString(box->text()));
}

void SetBoxText(QLineEdit* box, const std::string& text) {
  box->setText(ToQString(text));
}

}  // namespace halvorne
