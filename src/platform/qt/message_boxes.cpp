#include "platform/qt/message_boxes.h"

#include <QApplication>
#include <QCheckBox>
#include <QMainWindow>
#include <QMessageBox>
#include <array>

#include "platform/qt/text.h"

namespace halvorne {
namespace {

MessageBoxes* boxesInForce = nullptr;

QString LinesOf(const std::string& text) {
  return ToQString(text).replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
}

QMessageBox::Icon IconOf(MessageIcon icon) {
  switch (icon) {
    case MessageIcon::kQuestion:
      return QMessageBox::Question;
    case MessageIcon::kExclamation:
      return QMessageBox::Warning;
    case MessageIcon::kCritical:
      return QMessageBox::Critical;
    case MessageIcon::kNone:
      break;
  }
  return QMessageBox::NoIcon;
}

QMessageBox::StandardButtons ButtonsOf(MessageButtons buttons) {
  switch (buttons) {
    case MessageButtons::kOkCancel:
      return QMessageBox::Ok | QMessageBox::Cancel;
    case MessageButtons::kYesNo:
      return QMessageBox::Yes | QMessageBox::No;
    case MessageButtons::kOk:
      break;
  }
  return QMessageBox::Ok;
}

struct AnswerButton {
  MessageAnswer answer;
  QMessageBox::StandardButton button;
};
constexpr std::array<AnswerButton, 4> kAnswerButtons{{
    {MessageAnswer::kOk, QMessageBox::Ok},
    {MessageAnswer::kCancel, QMessageBox::Cancel},
    {MessageAnswer::kYes, QMessageBox::Yes},
    {MessageAnswer::kNo, QMessageBox::No},
}};

QMessageBox::StandardButton ButtonOf(MessageAnswer answer) {
  return kAnswerButtons.at(static_cast<std::size_t>(answer)).button;
}

/// The answer that a pressed button stands for; a box that was closed otherwise gives its default.
MessageAnswer AnswerOf(int button, const Message& message) {
  for (const AnswerButton& candidate : kAnswerButtons) {
    if (candidate.button == button) {
      return candidate.answer;
    }
  }
  return message.defaultAnswer;
}

/// The window that a box stands in front of: also while another program is active, so that the box
/// never gets lost behind it and goes with it.
QWidget* WindowBehind() {
  if (QWidget* const modal = QApplication::activeModalWidget()) {
    return modal;
  }
  if (QWidget* const active = QApplication::activeWindow()) {
    return active;
  }
  for (QWidget* const window : QApplication::topLevelWidgets()) {
    if (window->isVisible() && qobject_cast<QMainWindow*>(window) != nullptr) {
      return window;
    }
  }
  return nullptr;
}

void Fill(QMessageBox& box, const Message& message) {
  box.setObjectName(QStringLiteral("MsgBox"));
  box.setWindowTitle(ToQString(message.title));
  box.setTextFormat(Qt::PlainText);
  box.setText(LinesOf(message.text));
  box.setIcon(IconOf(message.icon));
  box.setStandardButtons(ButtonsOf(message.buttons));
  box.setDefaultButton(ButtonOf(message.defaultAnswer));
  if (message.buttons == MessageButtons::kYesNo) {
    box.setEscapeButton(QMessageBox::No);
  }
}

}  // namespace

int Command::depth = 0;

Command::~Command() {
  --depth;
  if (depth == 0 && boxesInForce != nullptr) {
    boxesInForce->shownInCommand_.clear();
  }
}

MessageBoxes::MessageBoxes() {
  boxesInForce = this;
}

MessageBoxes::~MessageBoxes() {
  boxesInForce = nullptr;
}

MessageAnswer MessageBoxes::Show(const Message& message) {
  const bool counted = Command::Running();
  const QString words = ToQString(message.title) + QChar(u'\n') + LinesOf(message.text);
  if (counted) {
    const auto before = shownInCommand_.find(words);
    if (before != shownInCommand_.end() && before->second.silenced) {
      return before->second.answer;
    }
  }
  QMessageBox box(WindowBehind());
  Fill(box, message);
  QCheckBox* silence = nullptr;
  if (counted && ++shownInCommand_[words].times > 1) {
    silence =
        new QCheckBox(QStringLiteral("Do not show this message again until the command ends"));
    box.setCheckBox(silence);
  }
  const MessageAnswer answer = AnswerOf(box.exec(), message);
  if (silence != nullptr) {
    shownInCommand_[words] = {.times = 2, .silenced = silence->isChecked(), .answer = answer};
  }
  return answer;
}

}  // namespace halvorne
