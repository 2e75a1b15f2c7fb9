#pragma once

#include <QAbstractButton>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QTest>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "support/fresh_program.h"

namespace halvorne::testing {

/// Works a dialog as a person would, finding its controls by objectName.
class DialogDriver {
 public:
  explicit DialogDriver(QDialog& dialog) : dialog_(dialog) {
    dialog_.show();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(&dialog_));
  }

  template <class Control>
  Control* Find(const char* name) const {
    auto* const control = dialog_.findChild<Control*>(QString::fromLatin1(name));
    EXPECT_NE(control, nullptr) << "no control is named " << name;
    return control;
  }

  /// Replaces a box's text letter by letter.
  void Type(const char* name, const char* text) const {
    auto* const box = Find<QLineEdit>(name);
    box->setFocus();
    box->selectAll();
    QTest::keyClick(box, Qt::Key_Delete);
    QTest::keyClicks(box, QString::fromLatin1(text));
  }

  /// Replaces a box's text, which must stay as it is typed, and moves on with the Tab key; returns
  /// what the box shows then.
  std::string TypeAndLeave(const char* name, const char* text) const {
    Type(name, text);
    EXPECT_EQ(Text(name), text) << "nobody's typing is disturbed";
    QTest::keyClick(Find<QLineEdit>(name), Qt::Key_Tab);
    return Text(name);
  }

  void Click(const char* name) const {
    auto* const button = Find<QAbstractButton>(name);
    QTest::mouseClick(button, Qt::LeftButton, Qt::NoModifier, QPoint(8, button->height() / 2));
  }

  void Press(Qt::Key key) const { QTest::keyClick(&dialog_, key); }

  std::string Text(const char* name) const { return Find<QLineEdit>(name)->text().toStdString(); }
  std::string Caption(const char* name) const { return Find<QLabel>(name)->text().toStdString(); }
  /// Names of the controls that the Tab key leads through, the one with the focus first.
  std::vector<std::string> TabOrder() const {
    std::vector<std::string> way;
    const QWidget* const first = dialog_.focusWidget();
    do {
      way.push_back(dialog_.focusWidget()->objectName().toStdString());
      QTest::keyClick(dialog_.focusWidget(), Qt::Key_Tab);
    } while (dialog_.focusWidget() != first && way.size() < 30);
    return way;
  }
  bool Enabled(const char* name) const { return Find<QWidget>(name)->isEnabled(); }
  bool Visible(const char* name) const { return Find<QWidget>(name)->isVisible(); }
  bool Chosen(const char* name) const { return Find<QAbstractButton>(name)->isChecked(); }
  bool IsOpen() const { return dialog_.isVisible(); }

 private:
  QDialog& dialog_;
};

}  // namespace halvorne::testing
