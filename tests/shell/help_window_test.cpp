#include <QDir>
#include <QHelpContentWidget>
#include <QListWidget>
#include <QTabWidget>
#include <QTextBlock>

#include "platform/qt/help_viewer.h"
#include "shell/help_test.h"

namespace halvorne::testing {
namespace {

class HelpWindowShown : public HelpTest {
 protected:
  /// Opens it through the menu and waits until its list of contents stands.
  void Open() {
    StartProgram();
    ClickMenu("mnuHelpItem(0)");
    Activate();
    EXPECT_TRUE(Wait([] { return Contents()->model()->rowCount() > 3; }));
  }

  static QTreeView* Contents() { return InHelp<QTreeView>("lstHelpContents"); }
  static std::string Row(int row) {
    return Contents()->model()->index(row, 0).data().toString().toStdString();
  }
  static QListWidget* Found() { return InHelp<QListWidget>("lstHelpFound"); }

  /// Looks for words as a person does, and waits for the answer.
  void SearchFor(const char* words) {
    ClickMenu("mnuHelpItem(1)");
    Activate();
    auto* const key = InHelp<QLineEdit>("txtHelpKey");
    EXPECT_TRUE(key->hasFocus());
    key->clear();
    EXPECT_EQ(Found()->count(), 0);
    QTest::keyClicks(key, QLatin1String(words));
  }
};

TEST_F(HelpWindowShown, ListsItsContentsAndShowsThePageOfAnEntry) {
  Open();
  EXPECT_EQ(Help().windowTitle(), QStringLiteral("Halvorne Help"));
  EXPECT_EQ(Page(), "contents.html");
  EXPECT_EQ(Row(0), "First steps");
  EXPECT_EQ(Row(2), "The main window");
  EXPECT_TRUE(Contents()->isExpanded(Contents()->model()->index(2, 0))) << "chapters stand open";

  const QRect first = Contents()->visualRect(Contents()->model()->index(0, 0));
  QTest::mouseClick(Contents()->viewport(), Qt::LeftButton, {}, first.center());
  EXPECT_EQ(Page(), "start.html");
  QTest::keyClick(Contents(), Qt::Key_Down);
  EXPECT_EQ(Page(), "tutorial.html");
  QTest::keyClick(Contents(), Qt::Key_Down);
  EXPECT_EQ(Contents()->currentIndex().data().toString().toStdString(), "The main window");
  EXPECT_EQ(Page(), "window.html");
  EXPECT_TRUE(Text()->toPlainText().contains(QStringLiteral("The main window")));
}

TEST_F(HelpWindowShown, GoesBackAndForward) {
  Open();
  auto* const back = InHelp<QAbstractButton>("cmdHelpBack");
  auto* const forward = InHelp<QAbstractButton>("cmdHelpForward");
  EXPECT_FALSE(forward->isEnabled());
  GoTo("start.html");
  GoTo("plots.html");
  QTest::mouseClick(back, Qt::LeftButton);
  EXPECT_EQ(Page(), "start.html");
  EXPECT_EQ(Contents()->currentIndex().data().toString(), QStringLiteral("First steps"))
      << "the list of contents follows";
  QTest::mouseClick(forward, Qt::LeftButton);
  EXPECT_EQ(Page(), "plots.html");
  QTest::keyClick(&Help(), Qt::Key_Left, Qt::AltModifier);
  EXPECT_EQ(Page(), "start.html");
  QTest::keyClick(&Help(), Qt::Key_Right, Qt::AltModifier);
  EXPECT_EQ(Page(), "plots.html");
  QTest::keyClick(&Help(), Qt::Key_Home, Qt::AltModifier);
  EXPECT_EQ(Page(), "contents.html");
}

TEST_F(HelpWindowShown, FollowsTheLinksOfAPage) {
  Open();
  Text()->setFocus();
  QTest::keyClick(Text(), Qt::Key_Tab);
  QTest::keyClick(Text(), Qt::Key_Return);
  EXPECT_EQ(Page(), "start.html") << "the first link of the contents";
}

/// Colour of the first link of the page on show.
QColor LinkColour(const QTextBrowser& text) {
  for (QTextBlock block = text.document()->begin(); block.isValid(); block = block.next()) {
    for (auto piece = block.begin(); !piece.atEnd(); ++piece) {
      if (piece.fragment().charFormat().isAnchor()) {
        return piece.fragment().charFormat().foreground().color();
      }
    }
  }
  return {};
}

TEST_F(HelpWindowShown, IsReadableOnLightAndDarkGround) {
  Open();
  QPalette palette = Text()->palette();
  const QColor light = palette.color(QPalette::Link);
  EXPECT_EQ(LinkColour(*Text()), light) << "the style sheet is not in force";
  palette.setColor(QPalette::Base, QColor(0x1e, 0x1f, 0x22));
  palette.setColor(QPalette::Text, Qt::white);
  Text()->setPalette(palette);
  EXPECT_GT(qGray(LinkColour(*Text()).rgb()), 140);
  EXPECT_EQ(Page(), "contents.html") << "the page stays";
}

TEST_F(HelpWindowShown, SearchesTheWholeTextOfItsPages) {
  Open();
  SearchFor("dotted vertical");
  ASSERT_TRUE(Wait([] { return Found()->count() > 0; }));
  EXPECT_EQ(Found()->item(0)->text(), QStringLiteral("Cursor and measurements"));
  EXPECT_EQ(Page(), "cursor.html");
  EXPECT_FALSE(Text()->extraSelections().isEmpty()) << "the words are marked";
}

TEST_F(HelpWindowShown, FindsWordsByTheirBeginInAnyCase) {
  Open();
  SearchFor("DOTTED VERTIC");
  ASSERT_TRUE(Wait([] { return Found()->count() > 0; }));
  EXPECT_EQ(Page(), "cursor.html");
}

TEST_F(HelpWindowShown, TakesSignsOfASearchAsPlainText) {
  Open();
  SearchFor("\"outermost* AND (");
  QTest::qWait(300);
  SearchFor("outermost\" )");
  QTest::qWait(300);
  SearchFor("outermost");
  EXPECT_TRUE(Wait([] { return Found()->count() > 0; })) << "it still answers";
}

TEST_F(HelpWindowShown, FindsNothingForWordsThatNoPageHolds) {
  Open();
  SearchFor("outermost");
  ASSERT_TRUE(Wait([] { return Found()->count() > 0; }));
  QTest::keyClicks(InHelp<QLineEdit>("txtHelpKey"), QStringLiteral(" xylophone"));
  EXPECT_TRUE(Wait([] { return Found()->count() == 0; }));
}

TEST_F(HelpWindowShown, FindsAWordOfTheIndex) {
  Open();
  InHelp<QTabWidget>("tabHelp")->setCurrentIndex(1);
  auto* const words = InHelp<QAbstractItemView>("lstHelpIndex");
  ASSERT_TRUE(Wait([=] { return words->model()->rowCount() > 10; }));
  auto* const key = InHelp<QLineEdit>("txtHelpIndex");
  QTest::keyClicks(key, QStringLiteral("using the h"));
  EXPECT_EQ(words->currentIndex().data().toString(), QStringLiteral("Using the help"));
  QTest::keyClick(key, Qt::Key_Return);
  EXPECT_EQ(Page(), "help.html");
}

TEST_F(HelpWindowShown, ClosesWithEscapeAndOpensAgain) {
  Open();
  QTest::keyClick(&Help(), Qt::Key_Escape);
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_THROW(Help(), std::runtime_error);
  ClickMenu("mnuHelpItem(0)");
  EXPECT_EQ(Page(), "contents.html");
}

TEST_F(HelpWindowShown, IsOneWindowHoweverOftenItIsAskedFor) {
  Open();
  QWidget* const first = &Help();
  ClickMenu("mnuHelpItem(1)");
  EXPECT_EQ(&Help(), first);
}

TEST_F(HelpWindowShown, SaysWhatIsWrongWhenItsFileIsDamaged) {
  std::filesystem::resize_file(Folder() / "HALVORNE.HLP", 5000);
  script.ExpectForm("MsgBox", [](QWidget& box) { box.close(); });
  StartProgram();
  QTest::keyClick(main.get(), Qt::Key_F1);
  EXPECT_TRUE(Text()->toPlainText().contains(QStringLiteral("missing or damaged")));
}

TEST_F(HelpWindowShown, EndsWithTheProgramInTheMomentInWhichItIsClosed) {
  Open();
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (window->objectName() == QStringLiteral("frmHelp")) {
      window->close();
    }
  }
  EndHelp();
  ClickMenu("mnuHelpItem(0)");
  EXPECT_TRUE(Text()->isVisible()) << "it opens again";
}

TEST_F(HelpWindowShown, LeavesNothingOnTheDisk) {
  const QDir temporary(QDir::tempPath());
  const QStringList before = temporary.entryList(QDir::Dirs);
  Open();
  SearchFor("bandwidth");
  ASSERT_TRUE(Wait([] { return Found()->count() > 0; }));
  EXPECT_NE(temporary.entryList(QDir::Dirs), before);
  const std::string pages = ReadFile(Folder() / "HALVORNE.HLP");
  EndHelp();
  EXPECT_EQ(ReadFile(Folder() / "HALVORNE.HLP"), pages) << "the help file is only read";
  int others = 0;
  for (const auto& entry : std::filesystem::directory_iterator(Folder())) {
    others += entry.path().filename().string().find("elp") != std::string::npos ? 1 : 0;
  }
  EXPECT_EQ(others, 0) << "nothing stands beside it";
}

}  // namespace
}  // namespace halvorne::testing
