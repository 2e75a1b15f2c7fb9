#include <QClipboard>
#include <QPlainTextEdit>
#include <QTemporaryDir>
#include <filesystem>

#include "dialogs/dialog_driver.h"
#include "engine/design_model.h"
#include "persistence/setup_state.h"
#include "platform/paths.h"
#include "platform/qt/text.h"
#include "report/text_exports.h"
#include "report/windows/frm_input_list.h"
#include "report_windows/report_design.h"

namespace halvorne::testing {
namespace {

class InputList : public ReportDesign {
 protected:
  static QString Expected(std::int16_t details) {
    std::string text;
    ParasToClipboard(text, details);
    return ToQString(text).replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
  }
  static QString Shown(const DialogDriver& driver) {
    return driver.Find<QPlainTextEdit>("txtInputList")->toPlainText();
  }
};

TEST_F(InputList, ShowsTheInputsInTheDetailThatIsKept) {
  for (const std::int16_t details : std::initializer_list<std::int16_t>{1, 2}) {
    setup.ReportDetails = details;
    frmInputList dialog;
    const DialogDriver driver(dialog);
    EXPECT_EQ(dialog.windowTitle().toStdString(), "Halvorne Input Parameters");
    EXPECT_EQ(driver.Chosen("optDetails(0)"), details == 1);
    EXPECT_EQ(Shown(driver), Expected(details));
  }
  EXPECT_NE(Expected(1), Expected(2));
}

TEST_F(InputList, ADetailCountsAtOnceAndIsKept) {
  const QTemporaryDir folder;
  SetProgramFolder(folder.path().toStdString());
  window.SetKeepsSession(true);
  frmInputList dialog;
  const DialogDriver driver(dialog);
  const std::filesystem::path file = folder.path().toStdString() + "/HALVORNESETUP";
  std::filesystem::remove(file);
  driver.Click("optDetails(1)");
  EXPECT_EQ(setup.ReportDetails, 2);
  EXPECT_EQ(Shown(driver), Expected(2));
  EXPECT_TRUE(std::filesystem::exists(file));
  driver.Click("optDetails(0)");
  EXPECT_EQ(setup.ReportDetails, 1);
  EXPECT_EQ(Shown(driver), Expected(1));
  window.SetKeepsSession(false);
}

TEST_F(InputList, TheTextFollowsTheWindowsSize) {
  frmInputList dialog;
  const DialogDriver driver(dialog);
  const auto* const text = driver.Find<QPlainTextEdit>("txtInputList");
  for (const QSize size : {dialog.size(), QSize(700, 500), QSize(450, 350)}) {
    dialog.resize(size);
    QApplication::processEvents();
    EXPECT_EQ(text->height(), size.height() - 86) << "1290 twips";
    EXPECT_EQ(text->width(), size.width() - 23) << "345 twips";
    for (const char* name : {"fraDetails", "cmdInputListOK"}) {
      const auto* const control = driver.Find<QWidget>(name);
      EXPECT_TRUE(dialog.rect().contains(control->geometry())) << name;
      EXPECT_FALSE(text->geometry().intersects(control->geometry())) << name;
    }
  }
}

TEST_F(InputList, IsReadAndCopiedButNotWritten) {
  frmInputList dialog;
  const DialogDriver driver(dialog);
  auto* const text = driver.Find<QPlainTextEdit>("txtInputList");
  EXPECT_TRUE(text->hasFocus());
  const QString before = text->toPlainText();
  QTest::keyClicks(text, QStringLiteral("x"));
  QTest::keyClick(text, Qt::Key_Delete);
  EXPECT_EQ(text->toPlainText(), before);
  QTest::keyClick(text, Qt::Key_A, Qt::ControlModifier);
  QTest::keyClick(text, Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(QGuiApplication::clipboard()->text(), before);
  EXPECT_TRUE(before.contains(u'\t'));
}

TEST_F(InputList, ColumnsOfBothTablesStandInLine) {
  design.NoFace = 1;
  design.FaceMatl(1).Name = "Epoxy";
  design.FaceMatl(1).Velocity = 2500;
  frmInputList dialog;
  const DialogDriver driver(dialog);
  auto* const text = driver.Find<QPlainTextEdit>("txtInputList");
  const auto leftOf = [&](const QString& words) {
    const qsizetype at = text->toPlainText().indexOf(words);
    EXPECT_GE(at, 0) << words.toStdString();
    QTextCursor cursor(text->document());
    cursor.setPosition(static_cast<int>(at));
    return text->cursorRect(cursor).left();
  };
  const int column = leftOf(QStringLiteral("VALUE"));
  EXPECT_EQ(leftOf(QStringLiteral("0.40000")), column);
  EXPECT_EQ(leftOf(QStringLiteral("Epoxy")), column);
  EXPECT_EQ(leftOf(QStringLiteral("MATL")), column);
  EXPECT_EQ(leftOf(QStringLiteral("UNITS")), leftOf(QStringLiteral("mm\n")));
}

TEST_F(InputList, ClosesByItsButtonAndByKeys) {
  for (const int way : {0, 1, 2}) {
    frmInputList dialog;
    const DialogDriver driver(dialog);
    if (way == 0) {
      driver.Click("cmdInputListOK");
    } else {
      driver.Press(way == 1 ? Qt::Key_Return : Qt::Key_Escape);
    }
    EXPECT_FALSE(driver.IsOpen()) << way;
  }
}

TEST_F(InputList, ADetailThatIsNoneIsTold) {
  setup.ReportDetails = 7;
  frmInputList dialog;
  EXPECT_EQ(shownMessages.Lines(),
            std::vector<std::string>{
                "ERROR in Form_Load of frmInputList|Error: 9. Subscript out of range"});
}

}  // namespace
}  // namespace halvorne::testing
