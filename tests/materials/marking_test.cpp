// Which material OK would copy: what marks a row, and what must not change the mark.

#include <QApplication>
#include <QHeaderView>
#include <QTest>
#include <gmock/gmock.h>

#include "dialogs/entry_state.h"
#include "engine/design_model.h"
#include "materials/browser_test.h"

namespace halvorne::testing {
namespace {

using Marking = BrowserTest;
using ::testing::ElementsAre;

void ClickHeading(QTableView& grid, int column) {
  const QHeaderView& header = *grid.horizontalHeader();
  QTest::mouseClick(header.viewport(), Qt::LeftButton, Qt::NoModifier,
                    QPoint(header.sectionViewportPosition(column) + 20, header.height() / 2));
}

TEST_F(Marking, IsNoneAtOpeningAlthoughTheGridStandsOnTheFirstRow) {
  OpenPiezo();
  EXPECT_EQ(Marked(), "None");
  EXPECT_EQ(CurrentRow(), 0);
  EXPECT_THAT(Names(), ElementsAre("Alpha", "beta", "Gamma"));
}

TEST_F(Marking, FollowsTheMouseAlsoOnTheRowThatTheGridStandsOn) {
  OpenPiezo();
  ClickCell(0, 2);
  EXPECT_EQ(Marked(), "Alpha");
  ClickCell(2, 1);
  EXPECT_EQ(Marked(), "Gamma");
}

TEST_F(Marking, FollowsTheKeys) {
  OpenPiezo();
  Press(Qt::Key_Down);
  EXPECT_EQ(Marked(), "beta");
  Press(Qt::Key_End, Qt::ControlModifier);
  EXPECT_EQ(Marked(), "Gamma");
}

TEST_F(Marking, TakesTheFirstRowByAnyKeyThatStaysThere) {
  OpenPiezo();
  Press(Qt::Key_Right);
  EXPECT_EQ(Marked(), "Alpha");
  OpenAcoustic();
  Press(Qt::Key_Up);
  EXPECT_EQ(Marked(), "Glass");
}

TEST_F(Marking, TakesNoRowByTheTabKey) {
  OpenPiezo();
  Press(Qt::Key_Tab);
  EXPECT_EQ(Marked(), "None");
  EXPECT_EQ(Focus()->objectName().toStdString(), "cmdCopyPiezoMatl");
}

TEST_F(Marking, IsTheCurrentRowByTheCopyButtonBeforeAnyMove) {
  OpenPiezo();
  ClickButton("cmdCopyPiezoMatl");
  EXPECT_EQ(Marked(), "Alpha");
  OpenAcoustic();
  ClickButton("cmdCopyAcoustMatl");
  EXPECT_EQ(Marked(), "Glass");
}

TEST_F(Marking, ReturnMarksTheRowAndMovesToOK) {
  OpenPiezo();
  Press(Qt::Key_Return);
  EXPECT_EQ(Marked(), "Alpha");
  EXPECT_EQ(Focus()->objectName().toStdString(), "cmdPiezoDBOK");
  EXPECT_TRUE(browser->isVisible());
  ExpectTheWayBack();
  Press(Qt::Key_Return);
  EXPECT_FALSE(browser->isVisible());
  EXPECT_EQ(draft.TmpPZMatl(1).Name, "Alpha");
}

TEST_F(Marking, ReturnOnAButtonPressesThatButton) {
  OpenPiezo();
  Press(Qt::Key_Tab);
  ASSERT_EQ(Focus()->objectName().toStdString(), "cmdCopyPiezoMatl");
  Press(Qt::Key_Return);
  EXPECT_EQ(Marked(), "Alpha");
  ASSERT_TRUE(browser->isVisible()) << "OK was pressed in place of Copy";
  Press(Qt::Key_Tab);
  Press(Qt::Key_Tab);
  ASSERT_EQ(Focus()->objectName().toStdString(), "cmdPiezoDBCancel");
  Press(Qt::Key_Return);
  EXPECT_FALSE(browser->isVisible());
  EXPECT_EQ(draft.TmpPZMatl(1).Name, "Test ceramic");
}

TEST_F(Marking, AnotherTableIsNone) {
  OpenPiezo();
  ClickCell(1, 0);
  ChooseTable("Second");
  EXPECT_EQ(Marked(), "None");
  EXPECT_EQ(CurrentRow(), 0);
  ClickOK();
  EXPECT_EQ(draft.TmpPZMatl(1).Name, "Test ceramic");
  EXPECT_TRUE(entry.PZDBReturn);
}

TEST_F(Marking, SortingMovesTheRowAndNotTheMark) {
  OpenPiezo();
  ClickCell(0, 0);
  ClickHeading(*Grid(), 1);  // by velocity
  EXPECT_THAT(Names(), ElementsAre("Gamma", "Alpha", "beta"));
  ClickHeading(*Grid(), 1);
  EXPECT_THAT(Names(), ElementsAre("beta", "Alpha", "Gamma"));
  EXPECT_EQ(Marked(), "Alpha");
  ClickOK();
  EXPECT_EQ(draft.TmpPZMatl(1).Name, "Alpha");
  EXPECT_EQ(draft.TmpPZMatl(1).Velocity, 4000);
}

TEST_F(Marking, NamesAreSortedWhateverTheirCase) {
  OpenPiezo();
  ClickHeading(*Grid(), 0);
  ClickHeading(*Grid(), 0);
  EXPECT_THAT(Names(), ElementsAre("Gamma", "beta", "Alpha"));
  ClickHeading(*Grid(), 0);
  EXPECT_THAT(Names(), ElementsAre("Alpha", "beta", "Gamma")) << "the third click: as in the table";
}

TEST_F(Marking, NumbersAreSortedBeforeWordsInTheirColumn) {
  {
    OtherProgram other(PiezoFile());
    for (const char* change :
         {"'20 or so' WHERE \"Material\" = 'Alpha'", "100 WHERE \"Material\" = 'beta'",
          "30 WHERE \"Material\" = 'Gamma'"}) {
      other.Run(QStringLiteral("UPDATE \"First\" SET \"Density kg/m^3\" = ") +
                QString::fromLatin1(change));
    }
  }
  OpenPiezo();
  ClickHeading(*Grid(), 3);
  EXPECT_THAT(Names(), ElementsAre("Gamma", "beta", "Alpha"));
  ClickHeading(*Grid(), 3);
  EXPECT_THAT(Names(), ElementsAre("Alpha", "beta", "Gamma"));
}

TEST_F(Marking, SearchingHidesTheRowAndNotTheMark) {
  OpenPiezo();
  ClickCell(0, 0);
  SearchFor("BET");
  EXPECT_THAT(Names(), ElementsAre("beta"));
  EXPECT_EQ(Marked(), "Alpha");
  EXPECT_EQ(Find<QLabel>("lblCount")->text().toStdString(), "1 of 3 materials");
  ClickOK();
  EXPECT_EQ(draft.TmpPZMatl(1).Name, "Alpha");
}

TEST_F(Marking, AnEmptySearchShowsAll) {
  OpenPiezo();
  SearchFor("no such name");
  EXPECT_TRUE(Names().empty());
  SearchFor("");
  EXPECT_THAT(Names(), ElementsAre("Alpha", "beta", "Gamma"));
  EXPECT_EQ(Find<QLabel>("lblCount")->text().toStdString(), "3 materials");
  EXPECT_EQ(Marked(), "None");
}

TEST_F(Marking, GoesByKeysAloneFromTheSearchToOK) {
  OpenPiezo();
  SearchFor("gam");
  Press(Qt::Key_Return);
  Press(Qt::Key_Return);
  EXPECT_EQ(Marked(), "Gamma");
  ExpectTheWayBack();
  Press(Qt::Key_Return);
  EXPECT_FALSE(browser->isVisible());
  EXPECT_EQ(draft.TmpPZMatl(1).Name, "Gamma");
}

TEST_F(Marking, OfASearchedRowSurvivesSortingOfAllRows) {
  OpenAcoustic();
  SearchFor("sand");
  Press(Qt::Key_Down);
  Press(Qt::Key_Down);
  ASSERT_EQ(Marked(), "Sand");
  SearchFor("");
  ClickHeading(*Grid(), 3);
  EXPECT_THAT(Names(), ElementsAre("Foam", "Sand", "Glass"));
  ClickOK();
  EXPECT_EQ(draft.TmpAcMatl(1).Name, "Sand");
}

TEST_F(Marking, ARowCalledNoneCopiesNothing) {
  OpenPiezo();
  ChooseTable("Second");
  ClickCell(1, 0);
  EXPECT_EQ(Marked(), "None");
  ClickOK();
  EXPECT_EQ(draft.TmpPZMatl(1).Name, "Test ceramic");
  EXPECT_TRUE(entry.PZDBReturn);
}

TEST_F(Marking, OfADeletedRowStaysAndOKFailsOnIt) {
  OpenPiezo();
  ClickCell(1, 0);
  script.Expect(Question("Piezoelectric Material Database",
                         "Delete the material \"beta\" from the table \"First\"?",
                         QMessageBox::Yes));
  Press(Qt::Key_Delete);
  EXPECT_THAT(Names(), ElementsAre("Alpha", "Gamma"));
  EXPECT_EQ(Marked(), "beta");
  script.Expect(FailureBox("ERROR in cmdPiezoDBOK_Click of frmPiezoDB",
                           "Error: 5. The marked row is no longer in the table"));
  ClickButton("cmdPiezoDBOK");
  EXPECT_TRUE(browser->isVisible());
  EXPECT_EQ(draft.TmpPZMatl(1).Name, "Test ceramic");
}

TEST_F(Marking, IsNotTakenOverByARowThatGetsTheNumberOfADeletedOne) {
  OpenPiezo();
  ClickCell(2, 0);
  script.Expect(Question("Piezoelectric Material Database",
                         "Delete the material \"Gamma\" from the table \"First\"?",
                         QMessageBox::Yes));
  Press(Qt::Key_Delete);
  OtherProgram(PiezoFile()).Run(R"(INSERT INTO "First" ("Material") VALUES ('Successor'))");
  script.Expect(FailureBox("ERROR in cmdPiezoDBOK_Click of frmPiezoDB",
                           "Error: 5. The marked row is no longer in the table"));
  ClickButton("cmdPiezoDBOK");
}

TEST_F(Marking, TheLeftRowIsMarkedUnderItsNewNameByThePiezoelectricBrowserOnly) {
  OtherProgram lockPiezo(PiezoFile());
  OpenPiezo();
  TypeIntoCell(0, "Renamed");
  EXPECT_EQ(Marked(), "Alpha") << "the grid has not moved";
  lockPiezo.Run("BEGIN IMMEDIATE");
  script.Expect(
      FailureBox("ERROR in DBGrid1_RowColChange of frmPiezoDB", "Error: 5. database is locked"));
  ClickCell(1, 0);
  EXPECT_EQ(Marked(), "Renamed") << "Data1_WillMove marks the row that is being left";
  lockPiezo.Run("ROLLBACK");

  OtherProgram lockAcoustic(AcousticFile());
  OpenAcoustic();
  TypeIntoCell(0, "Renamed");
  lockAcoustic.Run("BEGIN IMMEDIATE");
  script.Expect(FailureBox("ERROR in AcDBGrid_RowColChange of frmAcousticDB",
                           "Error: 5. database is locked"));
  ClickCell(1, 0);
  EXPECT_EQ(Marked(), "Glass") << "this browser has no such handler";
  lockAcoustic.Run("ROLLBACK");
}

TEST_F(Marking, ALeftRowWithoutANameLeavesTheMark) {
  OtherProgram lock(PiezoFile());
  OpenPiezo();
  TypeIntoCell(0, "");
  EXPECT_EQ(Marked(), "Alpha") << "the grid has not moved";
  lock.Run("BEGIN IMMEDIATE");
  script.Expect(
      FailureBox("ERROR in DBGrid1_RowColChange of frmPiezoDB", "Error: 5. database is locked"));
  ClickCell(1, 0);
  EXPECT_EQ(Marked(), "Alpha");
  lock.Run("ROLLBACK");
}

TEST_F(Marking, OfANewRowIntoWhichNothingWasTypedGoesWithIt) {
  OpenPiezo();
  ClickCell(1, 0);
  Press(Qt::Key_Insert);
  EXPECT_EQ(Marked(), "") << "the grid has moved to the new row";
  Press(Qt::Key_Escape);
  ClickCell(0, 0);
  EXPECT_EQ(Marked(), "Alpha");
  EXPECT_THAT(Names(), ElementsAre("Alpha", "beta", "Gamma")) << "nothing was typed into it";
}

}  // namespace
}  // namespace halvorne::testing
