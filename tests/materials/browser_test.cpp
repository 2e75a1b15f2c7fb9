#include "materials/browser_test.h"

#include <QApplication>
#include <QTest>
#include <cstdlib>

#include "dialogs/entry_state.h"
#include "engine/design_model.h"
#include "materials/data_sources.h"
#include "platform/numbers.h"
#include "platform/paths.h"
#include "platform/qt/forms.h"
#include "support/fresh_program.h"

namespace halvorne::testing {
namespace {

namespace fs = std::filesystem;

constexpr const char* kPiezoTable =
    R"(CREATE TABLE "%1" ("Material" TEXT, "Longit vel m/sec" REAL, "Shear vel m/sec" REAL,
       "Density kg/m^3" REAL, "Clamped diel const" REAL, "Coupling coef kt" REAL,
       "Elec loss tan de" REAL, "Mech loss tan dm" REAL, "Vendor" TEXT, "Data source" TEXT))";
constexpr const char* kAcousticTable =
    R"(CREATE TABLE "%1" ("Material" TEXT, "Longit vel m/sec" REAL, "Shear vel m/sec" REAL,
       "Density kg/m^3" REAL, "Loss in dB/cm" REAL, "Loss freq MHz" REAL, "Loss exponent" REAL,
       "Vendor" TEXT, "Formula" TEXT, "Comments" TEXT, "Data source" TEXT))";

void MakePiezoStore(OtherProgram& store) {
  for (const char* table : {"MSysObjects", "First", "MSystery of mine", "Second"}) {
    store.Run(QString::fromLatin1(kPiezoTable).arg(table));
  }
  store.Run(R"(INSERT INTO "First" VALUES
      ('Alpha', 4000, 2000, 7500, 800, 0.5, 0.01, 0.00147, 'Maker A', 'Source A'),
      ('beta', 4100, 3500, 7600.5, 900, 0.48, 0.02, 1e-05, 'Maker B', 'Source B'),
      ('Gamma', 3900, 1900, 100000, 0.1, 0.45, 0, 0.03, 'Maker C', 'Source C'))");
  store.Run(R"(INSERT INTO "Second" VALUES
      ('Delta', 5000, 2500, 8000, 700, 0.6, 0.03, 0.001, 'Maker D', 'Source D'),
      ('None', 5100, 2600, 8100, 710, 0.61, 0.04, 0.002, 'Maker N', 'Source N'))");
}

void MakeAcousticStore(OtherProgram& store) {
  for (const char* table : {"Plates", "MSysObjects", "Liquids"}) {
    store.Run(QString::fromLatin1(kAcousticTable).arg(table));
  }
  store.Run(R"(INSERT INTO "Plates" VALUES
      ('Glass', 5600, 3400, 2500, 0.5, 5, 1.5, 'Maker G', 'SiO2', 'Float', 'Source G'),
      ('Sand', 2000, 1900, 1600, 2, 1, 2, 'Maker S', '', '', 'Source S'),
      ('Foam', 0.5, -3, 0, 30, 1, 1, NULL, NULL, NULL, NULL))");
  store.Run(R"(INSERT INTO "Liquids" VALUES
      ('Water', 1483, 0, 998, 0.0022, 1, 2, 'Generic', 'H2O', '20 C', 'Source W'))");
}

/// What the menu's commands leave to the dialogs: one layer "Test ceramic", two plates "Plate".
void FillDraft() {
  MakeSimpleDesign();
  draft.TmpPZMatl = design.PZMatl;
  draft.TmpPZThick = design.PZThick;
  draft.TmpPZPolarity = design.PZPolarity;
  draft.TmpNoPiezo = 1;
  draft.TmpNoPlates = 2;
  for (int plate = 1; plate <= 2; ++plate) {
    AcousticMaterial& material = draft.TmpAcMatl(plate);
    material.Name = "Plate";
    material.Velocity = 2500;
    material.ShearVelocity = 1200;
    material.Density = 1500;
    material.LossFreq = material.LossExp = 1;
  }
  entry.PlateSide = "Face";
  entry.CurPZLayer = entry.CurAcLayer = 1;
}

}  // namespace

OtherProgram::OtherProgram(const fs::path& file) {
  static int count = 0;
  name_ = QStringLiteral("other program %1").arg(++count);
  QSqlDatabase store = QSqlDatabase::addDatabase(kDatabaseDriver, name_);
  store.setDatabaseName(QString::fromStdString(file.string()));
  EXPECT_TRUE(store.open());
}

OtherProgram::~OtherProgram() {
  QSqlDatabase::database(name_, false).close();
  QSqlDatabase::removeDatabase(name_);
}

void OtherProgram::Run(const QString& statement) {
  QSqlQuery query(QSqlDatabase::database(name_, false));
  EXPECT_TRUE(query.exec(statement)) << query.lastError().text().toStdString();
}

QVariant OtherProgram::Value(const QString& statement) {
  QSqlQuery query(QSqlDatabase::database(name_, false));
  EXPECT_TRUE(query.exec(statement)) << query.lastError().text().toStdString();
  return query.next() ? query.value(0) : QVariant();
}

void MakeStores(const fs::path& folder) {
  fs::create_directories(folder / "Database");
  OtherProgram piezo(folder / "Database" / "pzmatls.mdb");
  MakePiezoStore(piezo);
  OtherProgram acoustic(folder / "Database" / "Acoustic.mdb");
  MakeAcousticStore(acoustic);
}

BrowserTest::BrowserTest() {
  ResetProgram();
  Reset(entry);
  FillDraft();
  MakeStores(Folder());
  SetProgramFolder(Folder());
  SetMessages(&boxes_);
  SetMainWindow(&window_);
}

BrowserTest::~BrowserTest() {
  EXPECT_TRUE(script.Finished()) << "a window that was expected did not come";
  browser.reset();
  UnloadForm("frmFaceEntry");
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  SetMainWindow(nullptr);
  SetMessages(nullptr);
  for (const QString& name : QSqlDatabase::connectionNames()) {
    QSqlDatabase::removeDatabase(name);
  }
}

void BrowserTest::Show(std::unique_ptr<QDialog> window) {
  browser = std::move(window);
  script.ExpectForm(browser->objectName().toStdString(), [](QWidget&) {});
  browser->show();
  browser->activateWindow();
  EXPECT_TRUE(QTest::qWaitFor([this] { return script.Finished(); }));
}

void BrowserTest::OpenPiezo() {
  Show(std::make_unique<frmPiezoDB>());
}

void BrowserTest::OpenAcoustic() {
  Show(std::make_unique<frmAcousticDB>());
}

QWidget* BrowserTest::Focus() const {
  // A desktop gives the focus back when a box in front of the window closes.
  browser->activateWindow();
  EXPECT_TRUE(QTest::qWaitForWindowActive(browser.get()));
  return browser->focusWidget() != nullptr ? browser->focusWidget() : browser.get();
}

std::string BrowserTest::Cell(int row, int column) const {
  return Grid()->model()->index(row, column).data().toString().toStdString();
}

std::vector<std::string> BrowserTest::Names() const {
  std::vector<std::string> names;
  for (int row = 0; row < Grid()->model()->rowCount(); ++row) {
    names.push_back(Cell(row, 0));
  }
  return names;
}

void BrowserTest::ClickCell(int row, int column) {
  const QRect place = Grid()->visualRect(Grid()->model()->index(row, column));
  QTest::mouseClick(Grid()->viewport(), Qt::LeftButton, Qt::NoModifier, place.center());
}

void BrowserTest::Press(Qt::Key key, Qt::KeyboardModifiers modifiers) {
  QTest::keyClick(Focus(), key, modifiers);
}

void BrowserTest::ClickButton(const char* name) {
  QTest::mouseClick(Find<QPushButton>(name), Qt::LeftButton);
}

void BrowserTest::ExpectTheWayBack() {
  const bool piezo = browser->objectName() == QStringLiteral("frmPiezoDB");
  script.ExpectForm(piezo ? "frmPiezoEntry" : "frmFaceEntry",
                    [](QWidget& dialog) { dialog.close(); });
}

void BrowserTest::ClickOK() {
  ExpectTheWayBack();
  ClickButton(browser->objectName() == QStringLiteral("frmPiezoDB") ? "cmdPiezoDBOK"
                                                                    : "cmdAcousticDBOK");
}

void BrowserTest::TypeIntoCell(int column, const char* text, bool finish) {
  Grid()->setFocus();
  while (Grid()->currentIndex().column() != column) {
    Press(Grid()->currentIndex().column() < column ? Qt::Key_Right : Qt::Key_Left);
  }
  Press(Qt::Key_F2);
  auto* const editor = qobject_cast<QLineEdit*>(Focus());
  ASSERT_NE(editor, nullptr) << "the cell is not being edited";
  editor->selectAll();
  QTest::keyClick(editor, Qt::Key_Delete);
  QTest::keyClicks(editor, QString::fromUtf8(text));
  if (finish) {
    QTest::keyClick(editor, Qt::Key_Return);
    QApplication::processEvents();
  }
}

void BrowserTest::ChooseTable(const char* name) {
  Tables()->setFocus();
  const int wanted = Tables()->findText(QString::fromUtf8(name));
  ASSERT_GE(wanted, 0) << name;
  const int moves = wanted - Tables()->currentIndex();
  for (int move = 0; move < std::abs(moves); ++move) {
    QTest::keyClick(Tables(), moves > 0 ? Qt::Key_Down : Qt::Key_Up);
  }
}

void BrowserTest::SearchFor(const char* text) {
  auto* const box = Find<QLineEdit>("txtSearch");
  box->setFocus();
  box->selectAll();
  QTest::keyClick(box, Qt::Key_Delete);
  QTest::keyClicks(box, QString::fromUtf8(text));
}

}  // namespace halvorne::testing
