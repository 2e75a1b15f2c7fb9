// Stores that are missing, damaged, locked or of another shape: the box that is told and a window
// that can still be used.

#include <QApplication>
#include <QTest>
#include <fstream>
#include <gmock/gmock.h>
#include <sys/fsuid.h>
#include <unistd.h>

#include "engine/design_model.h"
#include "materials/browser_test.h"

namespace halvorne::testing {
namespace {

namespace fs = std::filesystem;
using BadStores = BrowserTest;
using ::testing::ElementsAre;

ExpectedBox LoadBox(const std::string& window, const std::string& text) {
  return FailureBox("ERROR in Form_Load of " + window, text);
}

TEST_F(BadStores, AMissingFileIsToldOnceAndNotMade) {
  fs::remove(PiezoFile());
  fs::remove(AcousticFile());
  script.Expect(LoadBox("frmPiezoDB", "Error: 53. File not found"));
  OpenPiezo();
  EXPECT_EQ(Tables()->count(), 0);
  EXPECT_TRUE(Names().empty());
  script.Expect(FailureBox("ERROR in cmdCopyPiezoMatl_Click of frmPiezoDB",
                           "Error: 5. Invalid procedure call or argument"));
  ClickButton("cmdCopyPiezoMatl");
  Grid()->setFocus();
  for (const Qt::Key key : {Qt::Key_Insert, Qt::Key_Delete, Qt::Key_Down, Qt::Key_F2}) {
    Press(key);
  }
  SearchFor("x");
  ClickOK();
  EXPECT_FALSE(browser->isVisible());

  script.Expect(LoadBox("frmAcousticDB", "Error: 53. File not found"));
  OpenAcoustic();
  EXPECT_EQ(Tables()->count(), 0);
  ExpectTheWayBack();
  ClickButton("cmdAcousticDBCancel");
  EXPECT_FALSE(browser->isVisible());
  EXPECT_FALSE(fs::exists(PiezoFile()));
  EXPECT_FALSE(fs::exists(AcousticFile()));
}

TEST_F(BadStores, AFileThatIsNoDatabaseIsTold) {
  std::ofstream(PiezoFile()) << std::string(5000, 'x');
  script.Expect(LoadBox("frmPiezoDB", "Error: 26. file is not a database"));
  OpenPiezo();
  EXPECT_EQ(Tables()->count(), 0);
}

TEST_F(BadStores, AnEmptyFileHasNoTables) {
  std::ofstream(PiezoFile()) << "";
  script.Expect(LoadBox("frmPiezoDB", "Error: 5. Invalid procedure call or argument"));
  OpenPiezo();
  EXPECT_EQ(Tables()->count(), 0);
}

TEST_F(BadStores, AStoreWithTablesOfTheSystemOnlyHasNone) {
  {
    OtherProgram other(AcousticFile());
    other.Run("DROP TABLE \"Plates\"");
    other.Run("DROP TABLE \"Liquids\"");
    other.Run("CREATE TABLE counted (n INTEGER PRIMARY KEY AUTOINCREMENT)");
    other.Run("DROP TABLE counted");
  }
  script.Expect(LoadBox("frmAcousticDB", "Error: 5. Invalid procedure call or argument"));
  OpenAcoustic();
  EXPECT_EQ(Tables()->count(), 0);
}

TEST_F(BadStores, TablesOfTheSystemAreHiddenAndTheOthersInTheirOrder) {
  {
    OtherProgram other(PiezoFile());
    other.Run(
        "CREATE TABLE counted (n INTEGER PRIMARY KEY AUTOINCREMENT)");  // makes sqlite_sequence
    other.Run("INSERT INTO counted VALUES (1)");
    other.Run("DROP TABLE counted");
  }
  OpenPiezo();
  ASSERT_EQ(Tables()->count(), 2);
  EXPECT_EQ(Tables()->itemText(0).toStdString(), "First");
  EXPECT_EQ(Tables()->itemText(1).toStdString(), "Second");
}

TEST_F(BadStores, AMissingColumnIsToldAndLeavesAnEmptyGrid) {
  OtherProgram(PiezoFile()).Run("ALTER TABLE \"First\" DROP COLUMN \"Density kg/m^3\"");
  script.Expect(FailureBox("ERROR in PiezoTable_Click of frmPiezoDB",
                           "Error: 5. The table First has no column Density kg/m^3"));
  OpenPiezo();
  EXPECT_TRUE(Names().empty());
  ChooseTable("Second");
  EXPECT_THAT(Names(), ElementsAre("Delta", "None"));
  script.Expect(FailureBox("ERROR in PiezoTable_Click of frmPiezoDB",
                           "Error: 5. The table First has no column Density kg/m^3"));
  ChooseTable("First");
  EXPECT_TRUE(Names().empty()) << "nothing of the table before stays on show";
}

TEST_F(BadStores, ARenamedColumnIsAMissingOne) {
  OtherProgram(AcousticFile())
      .Run("ALTER TABLE \"Plates\" RENAME COLUMN \"Material\" TO \"material\"");
  script.Expect(FailureBox("ERROR in AcousticTable_Click of frmAcousticDB",
                           "Error: 5. The table Plates has no column Material"));
  OpenAcoustic();
  EXPECT_TRUE(Names().empty());
}

TEST_F(BadStores, ColumnsInAnotherOrderAreFoundByTheirNames) {
  {
    OtherProgram other(PiezoFile());
    other.Run(R"(CREATE TABLE "A ""turned.around"" table & <b>more</b>" ("rowid" TEXT,
        "Data source" TEXT, "Vendor" TEXT, "Mech loss tan dm" REAL, "Elec loss tan de" REAL,
        "Coupling coef kt" REAL, "Clamped diel const" REAL, "Density kg/m^3" REAL,
        "Shear vel m/sec" REAL, "Longit vel m/sec" REAL, "Material" TEXT, "More" TEXT))");
    other.Run(R"(INSERT INTO "A ""turned.around"" table & <b>more</b>" VALUES
        ('r', 'S', 'V', 0.7, 0.6, 0.5, 4, 3, 2, 1, 'Turned', 'm'))");
  }
  OpenPiezo();
  ChooseTable("A \"turned.around\" table & <b>more</b>");
  ASSERT_THAT(Names(), ElementsAre("Turned"));
  ClickCell(0, 0);
  TypeIntoCell(1, "11");
  ClickOK();
  const PiezoMaterial& copy = draft.TmpPZMatl(1);
  EXPECT_EQ(copy.Name, "Turned");
  EXPECT_EQ(copy.Velocity, 11);
  EXPECT_EQ(copy.ShearVelocity, 2);
  EXPECT_EQ(copy.Density, 3);
  EXPECT_EQ(copy.Ks, 4);
  EXPECT_EQ(copy.Kt, 0.5);
  EXPECT_EQ(copy.TanDe, 0.6);
  EXPECT_EQ(copy.TanDm, 0.7);
  EXPECT_EQ(copy.Vendor, "V");
  EXPECT_EQ(copy.DataSource, "S");
  EXPECT_EQ(OtherProgram(PiezoFile())
                .Value(R"(SELECT "Longit vel m/sec" || "rowid" || "More"
                          FROM "A ""turned.around"" table & <b>more</b>")")
                .toString()
                .toStdString(),
            "11.0rm");
}

TEST_F(BadStores, NamesArePlainText) {
  OtherProgram(PiezoFile())
      .Run("UPDATE \"First\" SET \"Material\" = '<b>A & B</b>' WHERE \"Material\" = 'Alpha'");
  OpenPiezo();
  ClickCell(0, 0);
  EXPECT_EQ(Marked(), "<b>A & B</b>");
  EXPECT_EQ(Cell(0, 0), "<b>A & B</b>");
  ClickOK();
  EXPECT_EQ(draft.TmpPZMatl(1).Name, "<b>A & B</b>");
}

TEST_F(BadStores, WordsInANumberColumnAreATypeMismatchOnOK) {
  OtherProgram(PiezoFile())
      .Run("UPDATE \"First\" SET \"Density kg/m^3\" = 'heavy' WHERE \"Material\" = 'Alpha'");
  OpenPiezo();
  EXPECT_EQ(Cell(0, 3), "heavy");
  ClickCell(0, 0);
  script.Expect(
      FailureBox("ERROR in cmdPiezoDBOK_Click of frmPiezoDB", "Error: 13. Type mismatch"));
  ClickButton("cmdPiezoDBOK");
  EXPECT_TRUE(browser->isVisible());
}

TEST_F(BadStores, AnInfinityIsAnOverflowOnOK) {
  OtherProgram(PiezoFile())
      .Run("UPDATE \"First\" SET \"Density kg/m^3\" = 9e999 WHERE \"Material\" = 'Alpha'");
  OpenPiezo();
  ClickCell(0, 0);
  script.Expect(FailureBox("ERROR in cmdPiezoDBOK_Click of frmPiezoDB", "Error: 6. Overflow"));
  ClickButton("cmdPiezoDBOK");
}

TEST_F(BadStores, ALossBeyond32BitsIsAnOverflowOnOK) {
  OtherProgram(AcousticFile())
      .Run("UPDATE \"Plates\" SET \"Loss in dB/cm\" = 1e39 WHERE \"Material\" = 'Glass'");
  OpenAcoustic();
  ClickCell(0, 0);
  script.Expect(
      FailureBox("ERROR in cmdAcousticDBOK_Click of frmAcousticDB", "Error: 6. Overflow"));
  ClickButton("cmdAcousticDBOK");
  EXPECT_TRUE(browser->isVisible());
}

TEST_F(BadStores, AnEmptyLossIsATypeMismatchOnOKWithThePlatePartlyWritten) {
  for (const char* nothing : {"NULL", "''"}) {
    OtherProgram(AcousticFile())
        .Run(QStringLiteral("UPDATE \"Plates\" SET \"Loss freq MHz\" = %1 "
                            "WHERE \"Material\" = 'Glass'")
                 .arg(QLatin1String(nothing)));
    draft.TmpAcMatl(1) = {};
    OpenAcoustic();
    ClickCell(0, 0);
    script.Expect(
        FailureBox("ERROR in cmdAcousticDBOK_Click of frmAcousticDB", "Error: 13. Type mismatch"));
    ClickButton("cmdAcousticDBOK");
    EXPECT_TRUE(browser->isVisible());
    EXPECT_EQ(draft.TmpAcMatl(1).Loss, 0.5F);
    EXPECT_EQ(draft.TmpAcMatl(1).LossExp, 0.0F);
  }
}

TEST_F(BadStores, AStoreThatAnotherProgramKeepsForItselfIsTold) {
  OtherProgram other(PiezoFile());
  other.Run("BEGIN EXCLUSIVE");
  script.Expect(LoadBox("frmPiezoDB", "Error: 5. database is locked"));
  OpenPiezo();
  EXPECT_EQ(Tables()->count(), 0);
  other.Run("ROLLBACK");
}

TEST_F(BadStores, ATableThatIsGoneMeanwhileIsTold) {
  OpenPiezo();
  OtherProgram(PiezoFile()).Run("DROP TABLE \"Second\"");
  script.Expect(
      FailureBox("ERROR in PiezoTable_Click of frmPiezoDB", "Error: 5. There is no table Second"));
  ChooseTable("Second");
  EXPECT_TRUE(Names().empty());
  ChooseTable("First");
  EXPECT_THAT(Names(), ElementsAre("Alpha", "beta", "Gamma"));
}

/// Touches files as somebody who may read them only, also where the tests run as root.
class Reader {
 public:
  explicit Reader(const fs::path& file) : file_(file) {
    fs::permissions(file.parent_path(), fs::perms(0555));
    fs::permissions(file, fs::perms(0444));
    fs::permissions(file.parent_path().parent_path(), fs::perms(0755));
    setfsuid(nobody);
  }
  ~Reader() {
    setfsuid(geteuid());
    fs::permissions(file_, fs::perms(0644));
    fs::permissions(file_.parent_path(), fs::perms(0755));
  }
  Reader(const Reader&) = delete;
  Reader& operator=(const Reader&) = delete;

 private:
  static constexpr uid_t nobody = 65534;
  fs::path file_;
};

TEST_F(BadStores, AStoreThatMayOnlyBeReadIsShownAndAnEditIsTold) {
  const Reader reader(PiezoFile());
  OpenPiezo();
  EXPECT_THAT(Names(), ElementsAre("Alpha", "beta", "Gamma"));
  TypeIntoCell(1, "4321");
  script.Expect(FailureBox("ERROR in DBGrid1_RowColChange of frmPiezoDB",
                           "Error: 8. attempt to write a readonly database"));
  Press(Qt::Key_Down);
  QApplication::processEvents();
  EXPECT_EQ(CurrentRow(), 0);
  EXPECT_EQ(Cell(0, 1), "4321");
  Press(Qt::Key_Z, Qt::ControlModifier);
  ClickOK();
  EXPECT_EQ(draft.TmpPZMatl(1).Velocity, 4000);
}

}  // namespace
}  // namespace halvorne::testing
