#pragma once

#include <QAction>
#include <QTest>
#include <string>

#include "shell/graph_menu.h"
#include "shell/window_test.h"

namespace halvorne::testing {

/// Windows of which the graph's menu is worked with.
class GraphMenuInput : public WindowTest {
 protected:
  GraphMenu& Menu() { return *Find<GraphMenu>("mnuGraph"); }

  /// Opens the menu by its key.
  void OpenMenu() {
    QTest::keyClick(Find<QWidget>("Picture1"), Qt::Key_Menu);
    ASSERT_TRUE(Menu().isVisible());
  }
  void CloseMenu() { QTest::keyClick(&Menu(), Qt::Key_Escape); }

  /// Opens the menu and clicks an entry, as one does who sees it: it must be there and not grey.
  void ChooseFromGraphMenu(const std::string& name) {
    OpenMenu();
    QAction* const entry = Action(name);
    ASSERT_TRUE(entry->isVisible() && entry->isEnabled()) << name;
    QTest::mouseClick(&Menu(), Qt::LeftButton, {}, Menu().actionGeometry(entry).center());
  }
};

}  // namespace halvorne::testing
