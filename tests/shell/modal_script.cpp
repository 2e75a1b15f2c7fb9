#include "shell/modal_script.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCheckBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <algorithm>
#include <gtest/gtest.h>

namespace halvorne::testing {
namespace {

std::string Describe(const QWidget& window) {
  std::string words =
      window.objectName().toStdString() + " \"" + window.windowTitle().toStdString() + "\"";
  if (const auto* const box = qobject_cast<const QMessageBox*>(&window)) {
    words += ": " + box->text().toStdString();
  }
  return words;
}

/// Gets rid of a window, also of one that can't be closed without an answer.
void Dismiss(QWidget& window) {
  window.close();
  if (auto* const dialog = qobject_cast<QDialog*>(&window)) {
    dialog->done(QDialog::Rejected);
  }
}

void CheckAndPress(QMessageBox& box, const ExpectedBox& expected) {
  EXPECT_EQ(box.objectName().toStdString(), "MsgBox");
  EXPECT_EQ(box.windowTitle().toStdString(), expected.title);
  EXPECT_EQ(box.text().toStdString(), expected.text);
  EXPECT_EQ(box.icon(), expected.icon) << expected.text;
  EXPECT_EQ(box.standardButtons(), expected.buttons) << expected.text;
  EXPECT_EQ(box.standardButton(box.defaultButton()), expected.defaultButton) << expected.text;
  EXPECT_EQ(box.checkBox() != nullptr, expected.offersSilence) << expected.text;
  Press(box, expected.press);
}

}  // namespace

ExpectedBox FailureBox(const std::string& title, const std::string& text) {
  return {.title = title, .text = text};
}

ExpectedBox Question(const std::string& title, const std::string& text,
                     QMessageBox::StandardButton press) {
  return {.title = title,
          .text = text,
          .icon = QMessageBox::Question,
          .buttons = QMessageBox::Yes | QMessageBox::No,
          .defaultButton = QMessageBox::No,
          .press = press};
}

ExpectedBox FileBox(const std::string& title, int number, const std::string& description) {
  return {.title = title,
          .text = "The following error occured: \nError # " + std::to_string(number) + "\n" +
                  description,
          .icon = QMessageBox::Critical};
}

void EnterName(QFileDialog& dialog, const std::string& name) {
  auto* const box = dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
  box->setFocus();
  box->selectAll();
  box->setCompleter(nullptr);  // its list would open, or not, between the keys
  box->insert(QString::fromStdString(name));
  QTest::keyClick(box, Qt::Key_Return);
}

void Press(QMessageBox& box, QMessageBox::StandardButton button) {
  if (QAbstractButton* const found = box.button(button)) {
    QTest::mouseClick(found, Qt::LeftButton);
    return;
  }
  ADD_FAILURE() << Describe(box) << " lacks the button that was to be pressed";
  Dismiss(box);
}

ModalScript::ModalScript() {
  LookAgainSoon();
}

// A new timer each time: one that is running its slot does not fire while that waits for the next
// window.
void ModalScript::LookAgainSoon() {
  QTimer::singleShot(5, this, [this] { Look(); });
}

void ModalScript::Expect(const ExpectedBox& box) {
  steps_.push_back({"the box " + box.title + ": " + box.text, [box](QWidget& window) {
                      auto* const shown = qobject_cast<QMessageBox*>(&window);
                      if (shown == nullptr) {
                        ADD_FAILURE() << box.text << " expected, not " << Describe(window);
                        Dismiss(window);
                        return;
                      }
                      CheckAndPress(*shown, box);
                    }});
}

void ModalScript::ExpectFileDialog(const std::string& title,
                                   std::function<void(QFileDialog&)> act) {
  steps_.push_back({"the file dialog " + title, [title, act](QWidget& window) {
                      auto* const dialog = qobject_cast<QFileDialog*>(&window);
                      if (dialog == nullptr) {
                        ADD_FAILURE() << title << " expected, not " << Describe(window);
                        Dismiss(window);
                        return;
                      }
                      EXPECT_EQ(dialog->windowTitle().toStdString(), title);
                      act(*dialog);
                    }});
}

void ModalScript::ExpectFileDialog(const std::string& title, const std::string& name) {
  ExpectFileDialog(title, [name](QFileDialog& dialog) { EnterName(dialog, name); });
}

void ModalScript::ExpectCancelledFileDialog(const std::string& title) {
  ExpectFileDialog(title, [](QFileDialog& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
}

void ModalScript::ExpectWindow(const std::string& what, std::function<void(QWidget&)> act) {
  steps_.push_back({what, std::move(act)});
}

void ModalScript::ExpectForm(const std::string& name, std::function<void(QWidget&)> act) {
  ExpectWindow("the window " + name, [name, act](QWidget& window) {
    if (window.objectName().toStdString() != name) {
      ADD_FAILURE() << name << " expected, not " << Describe(window);
      Dismiss(window);
      return;
    }
    act(window);
  });
}

void ModalScript::Look() {
  LookAgainSoon();
  QWidget* const window = QApplication::activeModalWidget();
  if (window == nullptr || !window->isVisible() ||
      std::find(met_.begin(), met_.end(), window) != met_.end()) {
    return;
  }
  // Nobody types into a window before it is active: controls behave otherwise without the focus.
  if (!window->isActiveWindow()) {
    window->activateWindow();
    return;
  }
  met_.emplace_back(window);
  if (steps_.empty()) {
    ADD_FAILURE() << "nobody expected " << Describe(*window);
    Dismiss(*window);
    return;
  }
  const Step step = steps_.front();
  steps_.pop_front();
  step.act(*window);
}

}  // namespace halvorne::testing
