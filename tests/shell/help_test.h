#pragma once

#include <QAbstractItemView>
#include <QTest>
#include <QTextBrowser>
#include <functional>
#include <string>

#include "shell/window_test.h"

namespace halvorne::testing {

/// The program with its help window beside it.
class HelpTest : public WindowTest {
 protected:
  /// The open help window; raises when there is none.
  static QWidget& Help() {
    for (QWidget* window : QApplication::topLevelWidgets()) {
      if (window->objectName() == QStringLiteral("frmHelp") && window->isVisible()) {
        return *window;
      }
    }
    throw std::runtime_error("the help is not open");
  }

  template <class Control>
  static Control* InHelp(const char* name) {
    auto* const control = Help().findChild<Control*>(QLatin1String(name));
    if (control == nullptr) {
      throw std::runtime_error(std::string("the help has no control ") + name);
    }
    return control;
  }

  static QTextBrowser* Text() { return InHelp<QTextBrowser>("txtHelp"); }
  /// File name of the page on show, with the place on it.
  static std::string Page() {
    const QUrl page = Text()->source();
    const QString place = page.hasFragment() ? u'#' + page.fragment() : QString();
    return (page.fileName() + place).toStdString();
  }

  /// Gives it the focus, as a desktop does with the window that was opened last.
  static void Activate() {
    Help().activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&Help()));
  }

  /// Goes to a page as a link does.
  static void GoTo(const char* page) {
    Text()->setSource(Text()->source().resolved(QUrl(QLatin1String(page))));
  }

  /// Waits until it holds: contents, index and search are gathered beside the window.
  static bool Wait(const std::function<bool()>& holds) {
    constexpr int patience = 30'000;  // ms
    return QTest::qWaitFor(holds, patience);
  }
};

}  // namespace halvorne::testing
