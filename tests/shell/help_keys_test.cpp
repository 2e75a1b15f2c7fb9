#include <QMenu>
#include <QWindow>

#include "shell/help_test.h"

namespace halvorne::testing {
namespace {

/// F1, wherever the user is.
class HelpKeys : public HelpTest {
 protected:
  static void PressF1(QWidget& window) {
    QWidget* const focus = window.focusWidget() != nullptr ? window.focusWidget() : &window;
    QTest::keyClick(focus, Qt::Key_F1);
  }
};

TEST_F(HelpKeys, OpenTheTopicOfTheMainWindow) {
  StartProgram();
  PressF1(*main);
  EXPECT_EQ(Page(), "window.html");
}

TEST_F(HelpKeys, OpenTheTopicOfTheHelpInTheHelp) {
  StartProgram();
  PressF1(*main);
  PressF1(Help());
  EXPECT_EQ(Page(), "help.html");
}

TEST_F(HelpKeys, OpenTheTopicOfTheCommandUnderTheBarOfAMenu) {
  StartProgram();
  auto* const menu = Find<QMenu>("mnuHelp");
  QTest::keyClick(main.get(), Qt::Key_H, Qt::AltModifier);
  ASSERT_EQ(QApplication::activePopupWidget(), menu);
  QTest::keyClick(menu, Qt::Key_Down);
  ASSERT_EQ(menu->activeAction()->objectName(), QStringLiteral("mnuHelpItem(1)"));
  QTest::keyClick(menu, Qt::Key_F1);
  EXPECT_EQ(QApplication::activePopupWidget(), nullptr) << "the menu is closed";
  EXPECT_EQ(Page(), "help.html#mnuHelpItem(1)");
}

TEST_F(HelpKeys, OpenTheTopicOfTheWindowOfAnOpenList) {
  StartWithDesign();
  auto* const list = Find<QComboBox>("PlotType");
  list->showPopup();
  QTest::keyClick(list->view(), Qt::Key_F1);
  EXPECT_EQ(Page(), "window.html");
}

TEST_F(HelpKeys, OpenAHelpThatAnswersWhileADialogIsOpen) {
  StartWithDesign();
  script.ExpectForm("frmSizeEntry", [](QWidget& dialog) {
    PressF1(dialog);
    ASSERT_TRUE(QTest::qWaitForWindowActive(&Help())) << "the dialog blocks it";
    EXPECT_EQ(QApplication::activeModalWidget(), &dialog);
    GoTo("start.html");
    QTest::mouseClick(InHelp<QAbstractButton>("cmdHelpBack"), Qt::LeftButton);
    EXPECT_NE(Page(), "start.html");
    dialog.close();
  });
  ClickMenu("mnuInputSz");
  EXPECT_TRUE(Help().isVisible()) << "it does not go with the dialog";
  EXPECT_EQ(Help().windowHandle()->transientParent(), nullptr);
}

TEST_F(HelpKeys, StayAnsweredWhenADialogOpensBesideTheHelp) {
  StartWithDesign();
  ClickMenu("mnuHelpItem(0)");
  BecomeActive();
  script.ExpectForm("frmElecTermEntry", [](QWidget& dialog) {
    QCoreApplication::processEvents();
    QTest::mouseClick(InHelp<QAbstractButton>("cmdHelpHome"), Qt::LeftButton);
    EXPECT_EQ(Page(), "contents.html");
    EXPECT_EQ(Help().windowHandle()->transientParent(), dialog.windowHandle());
    dialog.close();
  });
  ClickMenu("mnuInputElTerm");
  ClickMenu("mnuHelpItem(1)");
  Activate();
  EXPECT_TRUE(InHelp<QLineEdit>("txtHelpKey")->hasFocus());
}

TEST_F(HelpKeys, AreNotTakenWithAnotherKeyHeld) {
  StartProgram();
  QTest::keyClick(main.get(), Qt::Key_F1, Qt::ShiftModifier);
  EXPECT_THROW(Help(), std::runtime_error);
}

}  // namespace
}  // namespace halvorne::testing
