// Cells and rows changed in place: what is written, when, and what happens when it cannot be.

#include <QApplication>
#include <QClipboard>
#include <QTest>
#include <gmock/gmock.h>

#include "engine/design_model.h"
#include "materials/browser_test.h"

namespace halvorne::testing {
namespace {

using ::testing::ElementsAre;

constexpr const char* kPiezoDatabase = "Piezoelectric Material Database";

class Editing : public BrowserTest {
 protected:
  Editing() : other(PiezoFile()) {}

  QVariant Stored(const char* column, const char* name) {
    return other.Value(QStringLiteral("SELECT \"%1\" FROM \"First\" WHERE \"Material\" = '%2'")
                           .arg(QLatin1String(column), QLatin1String(name)));
  }
  int StoredRows() { return other.Value("SELECT COUNT(*) FROM \"First\"").toInt(); }

  OtherProgram other;
};

TEST_F(Editing, IsWrittenWhenItsRowIsLeftAndNotAtReturn) {
  OpenPiezo();
  TypeIntoCell(1, "4321");
  EXPECT_EQ(Cell(0, 1), "4321");
  EXPECT_EQ(Stored("Longit vel m/sec", "Alpha"), 4000) << "the row is not left yet";
  Press(Qt::Key_Right);
  EXPECT_EQ(Stored("Longit vel m/sec", "Alpha"), 4000) << "another cell is the same row";
  Press(Qt::Key_Down);
  EXPECT_EQ(Stored("Longit vel m/sec", "Alpha"), 4321);
  EXPECT_EQ(Cell(0, 1), "4321");
  EXPECT_EQ(Marked(), "beta");
}

TEST_F(Editing, IsWrittenByAnotherTable) {
  OpenPiezo();
  TypeIntoCell(3, "7000");
  ChooseTable("Second");
  EXPECT_EQ(Stored("Density kg/m^3", "Alpha"), 7000);
}

TEST_F(Editing, IsWrittenByOKAndCopied) {
  OpenPiezo();
  TypeIntoCell(3, "7000");
  ClickOK();
  EXPECT_EQ(Stored("Density kg/m^3", "Alpha"), 7000);
  EXPECT_EQ(draft.TmpPZMatl(1).Density, 7000);
}

TEST_F(Editing, IsWrittenByCancelWhichUndoesNothing) {
  OpenPiezo();
  TypeIntoCell(3, "7000");
  ClickButton("cmdPiezoDBCancel");
  EXPECT_FALSE(browser->isVisible());
  EXPECT_EQ(Stored("Density kg/m^3", "Alpha"), 7000);
  EXPECT_EQ(draft.TmpPZMatl(1).Name, "Test ceramic");
}

TEST_F(Editing, IsWrittenByTheCloseBoxFromAnOpenEditor) {
  OpenPiezo();
  TypeIntoCell(3, "7000", false);
  browser->close();
  EXPECT_FALSE(browser->isVisible());
  EXPECT_EQ(Stored("Density kg/m^3", "Alpha"), 7000);
}

TEST_F(Editing, EscapeTakesBackTheCellAndThenCloses) {
  OpenPiezo();
  TypeIntoCell(1, "4321");
  TypeIntoCell(3, "1", false);
  Press(Qt::Key_Escape);
  EXPECT_TRUE(browser->isVisible());
  EXPECT_EQ(Cell(0, 3), "7500");
  EXPECT_EQ(Cell(0, 1), "4321") << "the other cell of the row stays as typed";
  Press(Qt::Key_Escape);
  EXPECT_FALSE(browser->isVisible());
  EXPECT_EQ(Stored("Longit vel m/sec", "Alpha"), 4321);
}

TEST_F(Editing, OpeningAndClosingAnEditorChangesNoBit) {
  other.Run("UPDATE \"First\" SET \"Coupling coef kt\" = 0.1 + 0.2 WHERE \"Material\" = 'Alpha'");
  OpenPiezo();
  EXPECT_EQ(Cell(0, 5), "0.30000000000000004");
  EXPECT_EQ(Cell(0, 7), "0.00147");
  for (const int column : {5, 7}) {
    while (Grid()->currentIndex().column() != column) {
      Press(Qt::Key_Right);
    }
    Press(Qt::Key_F2);
    Press(Qt::Key_Return);
    QApplication::processEvents();
  }
  Press(Qt::Key_Down);
  EXPECT_EQ(Stored("Coupling coef kt", "Alpha").toDouble(), 0.1 + 0.2);
  EXPECT_EQ(Stored("Mech loss tan dm", "Alpha").toDouble(), 0.00147);
}

TEST_F(Editing, NumbersShowTheirDigitsWithoutGroupsAtTheRight) {
  OpenPiezo();
  EXPECT_EQ(Cell(1, 3), "7600.5");
  EXPECT_EQ(Cell(2, 3), "100000");
  EXPECT_EQ(Cell(1, 7), "1e-05");
  EXPECT_EQ(Cell(2, 6), "0");
  const auto alignment = [this](int column) {
    return Grid()->model()->index(0, column).data(Qt::TextAlignmentRole).value<Qt::Alignment>();
  };
  EXPECT_TRUE(alignment(3) & Qt::AlignRight);
  EXPECT_TRUE(alignment(0) & Qt::AlignLeft);
}

TEST_F(Editing, ANumberColumnTakesNoWordsAtTheKeystroke) {
  OpenPiezo();
  TypeIntoCell(1, "4x2,1e3 nan1e999");
  EXPECT_EQ(Cell(0, 1), "421000") << "421e3 and nothing that is no number or beyond all numbers";
  TypeIntoCell(1, "-.5E-3");
  EXPECT_EQ(Cell(0, 1), "-0.0005");
  Press(Qt::Key_Down);
  EXPECT_EQ(Stored("Longit vel m/sec", "Alpha").toDouble(), -0.0005);
}

TEST_F(Editing, AHalfNumberIsToldAndNotTaken) {
  OpenPiezo();
  TypeIntoCell(1, "12e", false);
  Press(Qt::Key_Return);
  QApplication::processEvents();
  EXPECT_NE(Focus(), Grid()) << "Return leaves the editor on a number only";
  script.Expect(
      FailureBox("ERROR in DBGrid1_BeforeColUpdate of frmPiezoDB", "Error: 13. Type mismatch"));
  ClickCell(0, 3);
  EXPECT_EQ(Cell(0, 1), "4000");
  TypeIntoCell(1, "12e", false);
  script.Expect(
      FailureBox("ERROR in DBGrid1_BeforeColUpdate of frmPiezoDB", "Error: 13. Type mismatch"));
  ClickButton("cmdPiezoDBOK");
  EXPECT_TRUE(browser->isVisible()) << "not with another number than the one typed";
}

TEST_F(Editing, AnEmptyNumberIsNoValueAndFailsOnCopying) {
  OpenPiezo();
  TypeIntoCell(4, "");
  script.Expect(
      FailureBox("ERROR in cmdPiezoDBOK_Click of frmPiezoDB", "Error: 13. Type mismatch"));
  ClickButton("cmdPiezoDBOK");
  EXPECT_TRUE(browser->isVisible());
  EXPECT_TRUE(Stored("Clamped diel const", "Alpha").isNull());
}

TEST_F(Editing, TheModelItselfKeepsWordsAndInfinitiesOutOfNumbers) {
  OpenPiezo();
  const QModelIndex cell = Data()->index(0, 1);
  EXPECT_FALSE(Data()->setData(cell, QStringLiteral("fast")));
  EXPECT_FALSE(Data()->setData(cell, std::numeric_limits<double>::infinity()));
  EXPECT_FALSE(Data()->setData(cell, std::nan("")));
  EXPECT_TRUE(Data()->setData(cell, QStringLiteral("4100.5")));
  EXPECT_EQ(Data()->data(cell, Qt::EditRole).userType(), QMetaType::Double);
}

TEST_F(Editing, OfOneOfTwoLikeRowsChangesThatOne) {
  other.Run("INSERT INTO \"First\" SELECT * FROM \"First\" WHERE \"Material\" = 'Alpha'");
  OpenPiezo();
  TypeIntoCell(1, "4321");
  Press(Qt::Key_Down);
  EXPECT_EQ(other.Value("SELECT COUNT(*) FROM \"First\" WHERE \"Longit vel m/sec\" = 4000"), 1);
  ClickCell(3, 0);
  script.Expect(Question(kPiezoDatabase, "Delete the material \"Alpha\" from the table \"First\"?",
                         QMessageBox::Yes));
  Press(Qt::Key_Delete);
  EXPECT_THAT(Names(), ElementsAre("Alpha", "beta", "Gamma"));
  EXPECT_EQ(Stored("Longit vel m/sec", "Alpha"), 4321) << "the other one is gone";
}

TEST_F(Editing, AFailedWriteIsToldAndKeepsWhatWasTyped) {
  OpenPiezo();
  TypeIntoCell(1, "4321");
  other.Run("BEGIN IMMEDIATE");
  script.Expect(
      FailureBox("ERROR in DBGrid1_RowColChange of frmPiezoDB", "Error: 5. database is locked"));
  Press(Qt::Key_Down);
  QApplication::processEvents();
  EXPECT_EQ(CurrentRow(), 0) << "the grid stays on the row";
  EXPECT_EQ(Cell(0, 1), "4321");
  script.Expect(
      FailureBox("ERROR in PiezoTable_Click of frmPiezoDB", "Error: 5. database is locked"));
  ChooseTable("Second");
  EXPECT_EQ(Tables()->currentText().toStdString(), "First");
  EXPECT_EQ(Cell(0, 1), "4321");
  script.Expect(
      FailureBox("ERROR in cmdPiezoDBOK_Click of frmPiezoDB", "Error: 5. database is locked"));
  ClickButton("cmdPiezoDBOK");
  EXPECT_TRUE(browser->isVisible());
  other.Run("ROLLBACK");
  Grid()->setFocus();
  Press(Qt::Key_Down);
  EXPECT_EQ(Stored("Longit vel m/sec", "Alpha"), 4321);
  EXPECT_EQ(Marked(), "beta");
}

TEST_F(Editing, CancelAsksBeforeItGivesUpARowThatCannotBeWritten) {
  OpenPiezo();
  TypeIntoCell(1, "4321");
  other.Run("BEGIN IMMEDIATE");
  const ExpectedBox locked =
      FailureBox("ERROR in cmdPiezoDBCancel_Click of frmPiezoDB", "Error: 5. database is locked");
  const std::string words = "The row of \"Alpha\" is not written.\n\nClose without its changes?";
  script.Expect(locked);
  script.Expect(Question(kPiezoDatabase, words, QMessageBox::No));
  ClickButton("cmdPiezoDBCancel");
  EXPECT_TRUE(browser->isVisible());
  EXPECT_EQ(Cell(0, 1), "4321");
  script.Expect(locked);
  script.Expect(Question(kPiezoDatabase, words, QMessageBox::Yes));
  browser->close();
  EXPECT_FALSE(browser->isVisible());
  other.Run("ROLLBACK");
  EXPECT_EQ(Stored("Longit vel m/sec", "Alpha"), 4000);
}

TEST_F(Editing, CtrlZTakesBackTheRow) {
  OpenPiezo();
  TypeIntoCell(1, "4321");
  TypeIntoCell(0, "Renamed");
  Press(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(Cell(0, 0), "Alpha");
  EXPECT_EQ(Cell(0, 1), "4000");
  Press(Qt::Key_Down);
  EXPECT_EQ(Stored("Longit vel m/sec", "Alpha"), 4000);
}

TEST_F(Editing, ACellThatAnotherProgramChangedWins) {
  OpenPiezo();
  TypeIntoCell(1, "4321");
  TypeIntoCell(3, "7001");
  other.Run(
      "UPDATE \"First\" SET \"Longit vel m/sec\" = 4999, \"Vendor\" = 'New' "
      "WHERE \"Material\" = 'Alpha'");
  script.Expect(FailureBox("ERROR in DBGrid1_RowColChange of frmPiezoDB",
                           "Error: 5. Another program has changed this row; what it wrote stays "
                           "in: Longit vel m/sec"));
  Press(Qt::Key_Down);
  EXPECT_EQ(Stored("Longit vel m/sec", "Alpha"), 4999);
  EXPECT_EQ(Stored("Density kg/m^3", "Alpha"), 7001) << "nobody else changed this cell";
  EXPECT_EQ(Cell(0, 1), "4999");
  EXPECT_EQ(Cell(0, 3), "7001");
  EXPECT_EQ(Cell(0, 8), "New");
  EXPECT_EQ(CurrentRow(), 1);
}

TEST_F(Editing, ARowThatAnotherProgramDeletedDoesNotComeBack) {
  OpenPiezo();
  TypeIntoCell(1, "4321");
  other.Run("DELETE FROM \"First\" WHERE \"Material\" = 'Alpha'");
  script.Expect(FailureBox("ERROR in DBGrid1_RowColChange of frmPiezoDB",
                           "Error: 5. Another program has deleted this row; it stays deleted"));
  Press(Qt::Key_Down);
  QApplication::processEvents();
  EXPECT_THAT(Names(), ElementsAre("beta", "Gamma"));
  EXPECT_EQ(StoredRows(), 2);
  EXPECT_EQ(Marked(), "beta");
  ClickOK();
  EXPECT_EQ(draft.TmpPZMatl(1).Name, "beta");
}

TEST_F(Editing, ARowIsAddedAtTheEnd) {
  OpenPiezo();
  Press(Qt::Key_Insert);
  EXPECT_EQ(CurrentRow(), 3);
  auto* const editor = Focus();
  QTest::keyClicks(editor, "Epsilon");
  QTest::keyClick(editor, Qt::Key_Tab);
  QTest::keyClicks(Focus(), "4500");
  Press(Qt::Key_Return);
  QApplication::processEvents();
  EXPECT_EQ(StoredRows(), 3);
  Press(Qt::Key_Up);
  EXPECT_EQ(StoredRows(), 4);
  EXPECT_EQ(Stored("Longit vel m/sec", "Epsilon"), 4500);
  EXPECT_TRUE(Stored("Density kg/m^3", "Epsilon").isNull());
  EXPECT_THAT(Names(), ElementsAre("Alpha", "beta", "Gamma", "Epsilon"));
  // It is a row like the others now.
  Press(Qt::Key_Down);
  EXPECT_EQ(Marked(), "Epsilon");
  TypeIntoCell(3, "7700");
  Press(Qt::Key_Up);
  EXPECT_EQ(Stored("Density kg/m^3", "Epsilon"), 7700);
}

TEST_F(Editing, ARowIsAddedBelowSortedAndSearchedRows) {
  OpenPiezo();
  Grid()->sortByColumn(0, Qt::DescendingOrder);
  SearchFor("a");
  Grid()->setFocus();
  Press(Qt::Key_Insert);
  QTest::keyClicks(Focus(), "Zeta");
  Press(Qt::Key_Return);
  QApplication::processEvents();
  EXPECT_EQ(Names().back(), "Zeta");
  Press(Qt::Key_Up);
  EXPECT_EQ(StoredRows(), 4);
  SearchFor("");
  EXPECT_THAT(Names(), ElementsAre("Zeta", "Gamma", "beta", "Alpha"));
}

TEST_F(Editing, ANewRowIntoWhichNothingWasTypedIsDropped) {
  OpenPiezo();
  Press(Qt::Key_Insert);
  Press(Qt::Key_Escape);
  script.Expect(FailureBox("ERROR in cmdPiezoDBOK_Click of frmPiezoDB",
                           "Error: 5. The marked row is no longer in the table"));
  ClickButton("cmdPiezoDBOK");
  EXPECT_THAT(Names(), ElementsAre("Alpha", "beta", "Gamma"));
  EXPECT_EQ(StoredRows(), 3);
}

TEST_F(Editing, DeletingAsksAndNoKeepsTheRow) {
  OpenPiezo();
  ClickCell(1, 4);
  script.Expect(Question(kPiezoDatabase, "Delete the material \"beta\" from the table \"First\"?",
                         QMessageBox::No));
  Press(Qt::Key_Delete);
  EXPECT_EQ(StoredRows(), 3);
  script.Expect(Question(kPiezoDatabase, "Delete the material \"beta\" from the table \"First\"?",
                         QMessageBox::Yes));
  Press(Qt::Key_Delete);
  EXPECT_EQ(StoredRows(), 2);
  EXPECT_THAT(Names(), ElementsAre("Alpha", "Gamma"));
  EXPECT_EQ(CurrentRow(), 1);
  EXPECT_EQ(Find<QLabel>("lblCount")->text().toStdString(), "2 materials");
}

TEST_F(Editing, ARowThatAnotherProgramChangedIsNotDeleted) {
  OpenPiezo();
  ClickCell(0, 0);
  other.Run("UPDATE \"First\" SET \"Vendor\" = 'New' WHERE \"Material\" = 'Alpha'");
  script.Expect(Question(kPiezoDatabase, "Delete the material \"Alpha\" from the table \"First\"?",
                         QMessageBox::Yes));
  script.Expect(FailureBox("ERROR in DBGrid1_AfterDelete of frmPiezoDB",
                           "Error: 5. Another program has changed this row; it is not deleted"));
  Press(Qt::Key_Delete);
  EXPECT_EQ(StoredRows(), 3);
  EXPECT_EQ(Cell(0, 8), "New");
}

TEST_F(Editing, ARowThatWasTypedIntoIsDeletedWithWhatWasTyped) {
  OpenPiezo();
  TypeIntoCell(1, "4321");
  script.Expect(Question(kPiezoDatabase, "Delete the material \"Alpha\" from the table \"First\"?",
                         QMessageBox::Yes));
  Press(Qt::Key_Delete);
  EXPECT_EQ(StoredRows(), 2);
  EXPECT_THAT(Names(), ElementsAre("beta", "Gamma"));
  EXPECT_EQ(Cell(0, 1), "4100");
}

TEST_F(Editing, ADeleteThatFailsKeepsWhatWasTyped) {
  OpenPiezo();
  TypeIntoCell(1, "4321");
  const ExpectedBox question = Question(
      kPiezoDatabase, "Delete the material \"Alpha\" from the table \"First\"?", QMessageBox::Yes);
  other.Run("BEGIN IMMEDIATE");
  script.Expect(question);
  script.Expect(
      FailureBox("ERROR in DBGrid1_AfterDelete of frmPiezoDB", "Error: 5. database is locked"));
  Press(Qt::Key_Delete);
  other.Run("ROLLBACK");
  EXPECT_EQ(Cell(0, 1), "4321");
  other.Run("UPDATE \"First\" SET \"Vendor\" = 'New' WHERE \"Material\" = 'Alpha'");
  script.Expect(question);
  script.Expect(FailureBox("ERROR in DBGrid1_AfterDelete of frmPiezoDB",
                           "Error: 5. Another program has changed this row; it is not deleted"));
  Press(Qt::Key_Delete);
  EXPECT_EQ(Cell(0, 1), "4321");
  Press(Qt::Key_Down);
  EXPECT_EQ(Stored("Longit vel m/sec", "Alpha"), 4321);
  EXPECT_EQ(Cell(0, 8), "New");
}

TEST_F(Editing, AColumnThatAnotherProgramDroppedIsTold) {
  OpenPiezo();
  TypeIntoCell(3, "7001");
  other.Run("ALTER TABLE \"First\" DROP COLUMN \"Density kg/m^3\"");
  const char* const gone = "Error: 1. no such column: First.Density kg/m^3";
  script.Expect(FailureBox("ERROR in DBGrid1_RowColChange of frmPiezoDB", gone));
  Press(Qt::Key_Down);
  QApplication::processEvents();
  EXPECT_EQ(CurrentRow(), 0);
  EXPECT_EQ(Cell(0, 3), "7001") << "what was typed stays";
  script.Expect(Question(kPiezoDatabase, "Delete the material \"Alpha\" from the table \"First\"?",
                         QMessageBox::Yes));
  script.Expect(FailureBox("ERROR in DBGrid1_AfterDelete of frmPiezoDB", gone));
  Press(Qt::Key_Delete);
  EXPECT_EQ(StoredRows(), 3);
  Press(Qt::Key_Z, Qt::ControlModifier);
}

TEST_F(Editing, RowsAreCopiedAsASpreadsheetTakesThem) {
  other.Run("UPDATE \"First\" SET \"Vendor\" = 'A \"large\" maker' WHERE \"Material\" = 'Alpha'");
  OpenPiezo();
  ClickCell(0, 0);
  Press(Qt::Key_Down, Qt::ShiftModifier);
  Press(Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(
      QApplication::clipboard()->text().remove('\r').toStdString(),
      "Alpha\t4000\t2000\t7500\t800\t0.5\t0.01\t0.00147\t\"A \"\"large\"\" maker\"\tSource A\n"
      "beta\t4100\t3500\t7600.5\t900\t0.48\t0.02\t1e-05\tMaker B\tSource B\n");
}

TEST_F(Editing, RowsOfASpreadsheetAreAddedAllOrNone) {
  OpenPiezo();
  QApplication::clipboard()->setText(
      "Material\tLongit vel m/sec\nEta\t4100\t\t7000\r\nTheta\t4200\n\n");
  Press(Qt::Key_V, Qt::ControlModifier);
  EXPECT_THAT(Names(), ElementsAre("Alpha", "beta", "Gamma", "Eta", "Theta"));
  EXPECT_EQ(Marked(), "Eta");
  EXPECT_EQ(Stored("Density kg/m^3", "Eta"), 7000);
  EXPECT_TRUE(Stored("Shear vel m/sec", "Eta").isNull());
  EXPECT_EQ(Stored("Longit vel m/sec", "Theta"), 4200);

  QApplication::clipboard()->setText("Iota\t4300\nKappa\tfast\n");
  script.Expect(FailureBox("ERROR in DBGrid1_Paste of frmPiezoDB", "Error: 13. Type mismatch"));
  Press(Qt::Key_V, Qt::ControlModifier);
  QApplication::clipboard()->setText("Iota\t1\t2\t3\t4\t5\t6\t7\tV\tS\ttoo much\n");
  script.Expect(FailureBox("ERROR in DBGrid1_Paste of frmPiezoDB",
                           "Error: 5. A row has 11 cells, the table 10 columns"));
  Press(Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(StoredRows(), 5);
}

TEST_F(Editing, ASingleTextIsPastedIntoItsCell) {
  OpenPiezo();
  Press(Qt::Key_Right);
  QApplication::clipboard()->setText("4444\n");
  Press(Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(Cell(0, 1), "4444");
  Press(Qt::Key_Down);
  EXPECT_EQ(Stored("Longit vel m/sec", "Alpha"), 4444);
}

TEST_F(Editing, TwoProgramsWorkOnOneStore) {
  OpenPiezo();
  other.Run("UPDATE \"First\" SET \"Density kg/m^3\" = 1 WHERE \"Material\" = 'beta'");
  TypeIntoCell(1, "4321");
  Press(Qt::Key_Down);
  other.Run("INSERT INTO \"First\" (\"Material\") VALUES ('Foreign')");
  EXPECT_EQ(StoredRows(), 4) << "the open window holds no lock";
  EXPECT_EQ(Stored("Longit vel m/sec", "Alpha"), 4321);
  ChooseTable("Second");
  ChooseTable("First");
  EXPECT_THAT(Names(), ElementsAre("Alpha", "beta", "Gamma", "Foreign"));
  EXPECT_EQ(Cell(1, 3), "1");
}

TEST_F(Editing, ATableOfManyRowsIsReadToItsEndAndNotLocked) {
  other.Run(
      "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 1000) "
      "INSERT INTO \"First\" (\"Material\") SELECT 'Row ' || i FROM n");
  OpenPiezo();
  EXPECT_EQ(Names().size(), 1003U);
  other.Run("BEGIN EXCLUSIVE");
  other.Run("COMMIT");
}

}  // namespace
}  // namespace halvorne::testing
