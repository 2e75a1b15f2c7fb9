#include "shell/graph_menu.h"

#include <QAction>
#include <QContextMenuEvent>
#include <QTest>

#include "plot/plot_state.h"
#include "shell/window_test.h"

// The graph's menu itself; what its entries do is tested with each of them.

namespace halvorne::testing {
namespace {

class GraphMenuTest : public WindowTest {
 protected:
  GraphMenu& Menu() { return *Find<GraphMenu>("mnuGraph"); }
  QWidget* Graph() { return Find<QWidget>("Picture1"); }

  /// What a desktop sends for the right button, and for the Menu key where it looks after that key.
  static void AskForMenu(QWidget* widget, QContextMenuEvent::Reason reason) {
    const QPoint place = widget->rect().center();
    QContextMenuEvent event(reason, place, widget->mapToGlobal(place));
    QApplication::sendEvent(widget, &event);
  }

  /// Whether the menu is open; it is closed by Escape.
  bool OpenedAndClosed() {
    const bool open = QTest::qWaitFor([this] { return Menu().isVisible(); }, 500);
    if (open) {
      QTest::keyClick(&Menu(), Qt::Key_Escape);
      EXPECT_FALSE(Menu().isVisible());
    }
    return open;
  }

  /// Adds an entry that counts how often it was chosen.
  QAction* AddProbe(GraphGroup group, const char* name, const QString& caption,
                    const char* shortcut = "") {
    return Menu().Add({.group = group,
                       .name = name,
                       .caption = caption,
                       .procedure = [this] { ++chosen; },
                       .shortcut = shortcut});
  }

  int chosen = 0;
};

TEST_F(GraphMenuTest, OpensByTheRightButtonWhereItWasPressed) {
  StartWithDesign();
  AddProbe(GraphGroup::kHold, "mnuProbe", "&Probe");
  AskForMenu(Graph(), QContextMenuEvent::Mouse);
  EXPECT_EQ(Menu().pos(), Graph()->mapToGlobal(Graph()->rect().center()));
  EXPECT_TRUE(OpenedAndClosed());
}

TEST_F(GraphMenuTest, OpensByTheMenuKeyAndByShiftF10) {
  StartWithDesign();
  AddProbe(GraphGroup::kHold, "mnuProbe", "&Probe");
  for (const char* control : {"Picture1", "PlotType", "FindMax"}) {
    Find<QWidget>(control)->setFocus();
    QTest::keyClick(Find<QWidget>(control), Qt::Key_Menu);
    EXPECT_TRUE(OpenedAndClosed()) << control;
    QTest::keyClick(Find<QWidget>(control), Qt::Key_F10, Qt::ShiftModifier);
    EXPECT_TRUE(OpenedAndClosed()) << control;
  }
  for (const char* control : {"Picture1", "FindMax"}) {
    AskForMenu(Find<QWidget>(control), QContextMenuEvent::Keyboard);
    EXPECT_TRUE(OpenedAndClosed()) << control;
  }
}

TEST_F(GraphMenuTest, OpensByKeysWhileTheCursorsBarHasTheFocus) {
  StartWithDesign();
  AddProbe(GraphGroup::kHold, "mnuProbe", "&Probe");
  Click("Cursor1");
  auto* const bar = Find<QWidget>("HScroll1");
  ASSERT_TRUE(bar->hasFocus());
  AskForMenu(bar, QContextMenuEvent::Keyboard);
  EXPECT_TRUE(OpenedAndClosed());
  QTest::keyClick(bar, Qt::Key_F10, Qt::ShiftModifier);
  EXPECT_TRUE(OpenedAndClosed());
}

TEST_F(GraphMenuTest, LeavesTheTitleBoxItsOwnMenu) {
  StartWithDesign();
  AddProbe(GraphGroup::kHold, "mnuProbe", "&Probe");
  auto* const box = Find<QWidget>("txtEdit");
  box->setFocus();
  QTest::keyClick(box, Qt::Key_F10, Qt::ShiftModifier);
  EXPECT_FALSE(Menu().isVisible());
}

TEST_F(GraphMenuTest, KeepsItsGroupsInOrderWhateverIsAddedFirst) {
  StartWithDesign();
  const auto before = Menu().actions().size();
  QAction* const scales = AddProbe(GraphGroup::kScales, "mnuScales", "Scales");
  QAction* const tune = AddProbe(GraphGroup::kTune, "mnuTune", "Tune");
  QAction* const hold = AddProbe(GraphGroup::kHold, "mnuHold", "Hold");
  QAction* const again = AddProbe(GraphGroup::kHold, "mnuAgain", "Again");
  const auto place = [this](QAction* action) { return Menu().actions().indexOf(action); };
  EXPECT_LT(place(hold), place(again));
  EXPECT_LT(place(again), place(tune));
  EXPECT_LT(place(tune), place(scales));
  int lines = 0;
  for (auto i = place(again); i < place(tune); ++i) {
    lines += Menu().actions()[i]->isSeparator() ? 1 : 0;
  }
  EXPECT_EQ(lines, 1);
  Menu().Remove(hold);
  EXPECT_EQ(place(hold), -1);
  EXPECT_EQ(Menu().actions().size(), before + 3);
}

TEST_F(GraphMenuTest, ChoosesByLetterAndByClick) {
  StartWithDesign();
  QAction* const probe = AddProbe(GraphGroup::kScales, "mnuProbe", "&7 Probe");
  QTest::keyClick(Graph(), Qt::Key_Menu);
  QTest::keyClick(&Menu(), Qt::Key_7);
  EXPECT_EQ(chosen, 1);
  QTest::keyClick(Graph(), Qt::Key_Menu);
  QTest::mouseClick(&Menu(), Qt::LeftButton, {}, Menu().actionGeometry(probe).center());
  EXPECT_EQ(chosen, 2);
  EXPECT_FALSE(Menu().isVisible());
}

TEST_F(GraphMenuTest, IsGreyAndItsKeysAreDeadWithoutADesign) {
  const std::string design = MakeDesignFile();
  StartProgram();
  QAction* const probe = AddProbe(GraphGroup::kScales, "mnuProbe", "&7 Probe", "Ctrl+7");
  QTest::keyClick(main.get(), Qt::Key_Menu);
  EXPECT_FALSE(probe->isEnabled());
  QTest::keyClick(&Menu(), Qt::Key_Escape);
  QTest::keyClick(main.get(), Qt::Key_7, Qt::ControlModifier);
  EXPECT_EQ(chosen, 0);
  OpenFile(design);
  QTest::keyClick(main.get(), Qt::Key_7, Qt::ControlModifier);
  EXPECT_EQ(chosen, 1);
}

TEST_F(GraphMenuTest, SetsTheMarksWhenItOpens) {
  StartWithDesign();
  bool on = true;
  QAction* const check = Menu().Add({.group = GraphGroup::kReadOff,
                                     .name = "mnuCheck",
                                     .caption = "&7 Check",
                                     .procedure = [&on] { on = !on; },
                                     .checked = [&on] { return on; }});
  QTest::keyClick(Graph(), Qt::Key_Menu);
  EXPECT_TRUE(check->isChecked());
  QTest::keyClick(&Menu(), Qt::Key_7);
  EXPECT_FALSE(on);
  QTest::keyClick(Graph(), Qt::Key_Menu);
  EXPECT_FALSE(check->isChecked());
  QTest::keyClick(&Menu(), Qt::Key_Escape);
}

TEST_F(GraphMenuTest, TakesATitleThatIsBeingTyped) {
  StartWithDesign();
  auto* const box = Find<QLineEdit>("txtEdit");
  box->setFocus();
  box->selectAll();
  QTest::keyClicks(box, "Another probe");
  std::string title;
  Menu().Add({.group = GraphGroup::kScales,
              .name = "mnuTitle",
              .caption = "&8 Title",
              .procedure = [&title] { title = design.DesignTitle; },
              .shortcut = "Ctrl+8"});
  QTest::keyClick(box, Qt::Key_8, Qt::ControlModifier);
  EXPECT_EQ(title, "Another probe");
}

}  // namespace
}  // namespace halvorne::testing
