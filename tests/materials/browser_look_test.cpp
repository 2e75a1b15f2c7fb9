// Names, captions, measures and keyboard of the two browsers.

#include <QGroupBox>
#include <QTest>
#include <gmock/gmock.h>

#include "materials/browser_test.h"
#include "shell/accessible_names.h"
#include "shell/layout_check.h"

namespace halvorne::testing {
namespace {

using ::testing::ElementsAre;

/// What the two browsers call differently.
struct Browser {
  const char* window;
  const char* title;
  const char* grid;
  const char* data;
  const char* tables;
  const char* label;
  const char* copy;
  const char* ok;
  const char* cancel;
  int higher;  ///< than its grid, pixels
  int wider;
  std::vector<std::string> columns;
  const char* connection;
};

void PrintTo(const Browser& browser, std::ostream* out) {
  *out << browser.window;
}

class BrowserLook : public BrowserTest, public ::testing::WithParamInterface<Browser> {
 protected:
  void Open() { GetParam().window[3] == 'P' ? OpenPiezo() : OpenAcoustic(); }
};

TEST_P(BrowserLook, ItsControlsCarryTheirNamesAndCaptions) {
  Open();
  const Browser& names = GetParam();
  EXPECT_EQ(browser->objectName().toStdString(), names.window);
  EXPECT_EQ(browser->windowTitle().toStdString(), names.title);
  EXPECT_TRUE(browser->isModal());
  EXPECT_EQ(Find<QTableView>(names.grid), Grid());
  EXPECT_EQ(Find<QSqlTableModel>(names.data), Data());
  EXPECT_EQ(Find<QComboBox>(names.tables), Tables());
  EXPECT_EQ(Find<QLabel>(names.label)->text().toStdString(), "Database Table:");
  EXPECT_EQ(Find<QGroupBox>("Frame1")->title().toStdString(), "Copy record to Halvorne");
  EXPECT_EQ(Find<QLabel>("Label1")->text().toStdString(), "Material:");
  EXPECT_EQ(Find<QPushButton>(names.copy)->text().toStdString(), "Copy");
  EXPECT_EQ(Find<QPushButton>(names.ok)->text().toStdString(), "OK");
  EXPECT_EQ(Find<QPushButton>(names.cancel)->text().toStdString(), "Cancel");
  EXPECT_TRUE(Find<QLineEdit>("txtCopyMaterial")->isReadOnly());
  EXPECT_EQ(Data()->database().connectionName().toStdString(), names.connection);
}

TEST_P(BrowserLook, TheHeadingsAreTheNamesOfTheColumns) {
  Open();
  std::vector<std::string> headings;
  for (int column = 0; column < Grid()->model()->columnCount(); ++column) {
    headings.push_back(
        Grid()->model()->headerData(column, Qt::Horizontal).toString().toStdString());
  }
  EXPECT_EQ(headings, GetParam().columns);
}

TEST_P(BrowserLook, TheGridTakesTheWindowLessItsMargins) {
  Open();
  for (const QSize size : {QSize(1000, 700), QSize(801, 555)}) {
    browser->resize(size);
    EXPECT_EQ(Grid()->width(), browser->width() - GetParam().wider);
    EXPECT_EQ(Grid()->height(), browser->height() - GetParam().higher);
  }
}

TEST_P(BrowserLook, IsWholeInEverySizeAndInTheMiddleOfTheScreen) {
  Open();
  const QSize screen = browser->screen()->geometry().size();
  EXPECT_NEAR(browser->x() + browser->width() / 2.0, screen.width() / 2.0, 1);
  EXPECT_NEAR(browser->y() + browser->height() / 2.0, screen.height() / 2.0, 1);
  for (const QSize size : {browser->size(), browser->minimumSize(), QSize(1600, 1000)}) {
    browser->resize(size);
    QTest::qWait(0);
    EXPECT_THAT(LayoutFaults(*browser), ElementsAre()) << size.width() << " x " << size.height();
  }
}

TEST_P(BrowserLook, TheTabKeyLeadsThroughAllControls) {
  Open();
  std::vector<std::string> way;
  for (int i = 0; i < 6; ++i) {
    way.push_back(Focus()->objectName().toStdString());
    QTest::keyClick(Focus(), Qt::Key_Tab);
  }
  const Browser& names = GetParam();
  EXPECT_THAT(
      way, ElementsAre(names.grid, names.copy, names.ok, names.cancel, names.tables, "txtSearch"));
}

TEST_P(BrowserLook, EveryControlHasANameForPeopleWhoCannotSeeTheScreen) {
  Open();
  EXPECT_THAT(NamingFaults(*browser), ElementsAre());
}

TEST_P(BrowserLook, ClosingLeavesTheStoreFree) {
  Open();
  if (browser->objectName() == QStringLiteral("frmAcousticDB")) {
    ExpectTheWayBack();
  }
  QTest::keyClick(browser.get(), Qt::Key_Escape);
  EXPECT_FALSE(browser->isVisible());
  EXPECT_FALSE(QSqlDatabase::database(GetParam().connection, false).isOpen());
}

INSTANTIATE_TEST_SUITE_P(
    Of, BrowserLook,
    ::testing::Values(Browser{"frmPiezoDB",
                              "Piezoelectric Material Database",
                              "DBGrid1",
                              "Data1",
                              "PiezoTable",
                              "lblPZDataTable",
                              "cmdCopyPiezoMatl",
                              "cmdPiezoDBOK",
                              "cmdPiezoDBCancel",
                              184,
                              27,
                              {"Material", "Longit vel m/sec", "Shear vel m/sec", "Density kg/m^3",
                               "Clamped diel const", "Coupling coef kt", "Elec loss tan de",
                               "Mech loss tan dm", "Vendor", "Data source"},
                              "pzmatls"},
                      Browser{"frmAcousticDB",
                              "Acoustic Materials Database",
                              "AcDBGrid",
                              "AcousticData1",
                              "AcousticTable",
                              "lblAcousticDataTable",
                              "cmdCopyAcoustMatl",
                              "cmdAcousticDBOK",
                              "cmdAcousticDBCancel",
                              208,
                              28,
                              {"Material", "Longit vel m/sec", "Shear vel m/sec", "Density kg/m^3",
                               "Loss in dB/cm", "Loss freq MHz", "Loss exponent", "Vendor",
                               "Formula", "Comments", "Data source"},
                              "acoustic"}),
    [](const auto& browser) { return browser.param.window; });

}  // namespace
}  // namespace halvorne::testing
