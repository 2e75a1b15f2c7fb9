#include <QElapsedTimer>
#include <QScreen>
#include <QSqlDatabase>
#include <QTest>
#include <fstream>

#include "materials/data_sources.h"
#include "materials/material_store.h"
#include "persistence/setup_state.h"
#include "plot/plot_state.h"
#include "shell/form_metrics.h"
#include "shell/frm_startup.h"
#include "shell/window_test.h"
#include "support/fresh_program.h"

namespace halvorne::testing {
namespace {

class Start : public WindowTest {};

const ExpectedBox kMissingHelp{
    .title = "   Missing File!",
    .text =
        "Microsoft does not include Winhlp32.exe in its windows distribution for Windows 7 or "
        "Vista.\n\nYou need to download and install this file for the help system to operate.",
    .icon = QMessageBox::Warning};
const ExpectedBox kMissingDatabase{
    .title = "Halvorne", .text = "Database file doesn't exist!", .icon = QMessageBox::Critical};

TEST_F(Start, ShowsNoDesignAndAnswersToFileAndHelpOnly) {
  StartProgram();
  EXPECT_EQ(main->windowTitle().toStdString(), "Halvorne: Untitled");
  for (const char* menu : {"mnuEdit", "mnuInput", "mnuView", "mnuOptions"}) {
    EXPECT_FALSE(Enabled(menu)) << menu;
  }
  EXPECT_TRUE(Enabled("mnuFile"));
  EXPECT_TRUE(Enabled("mnuHelp"));
  for (const int index : {2, 3, 5, 6}) {
    EXPECT_FALSE(Action("mnuFileItem(" + std::to_string(index) + ")")->isEnabled()) << index;
  }
  for (const char* always : {"mnuFileItem(0)", "mnuFileItem(1)", "mnuFileItem(8)"}) {
    EXPECT_TRUE(Action(always)->isEnabled()) << always;
  }
  EXPECT_TRUE(Enabled("cmdFileNew"));
  EXPECT_TRUE(Enabled("cmdFileOpen"));
  for (const char* control :
       {"cmdFileSave", "cmdViewInputs", "cmdCopyToClipboard", "cmdCopyDataToClipboard",
        "cmdPrintPreview", "cmdPrintReport", "txtEdit", "LblPlotType", "PlotType", "Cursor1",
        "FindMax", "FindMin", "HScroll1", "fraCFBW", "FlexgrdCFBW", "fraPulseWidth", "fraAtten"}) {
    EXPECT_FALSE(Enabled(control)) << control;
  }
  EXPECT_EQ(Find<QComboBox>("PlotType")->count(), 0);
  EXPECT_FALSE(Action("mnuFileArray(0)")->isVisible());
}

TEST_F(Start, WritesTheGridsFixedRows) {
  StartProgram();
  EXPECT_EQ(Cell("FlexgrdCFBW", 0, 0), "Level");
  EXPECT_EQ(Cell("FlexgrdCFBW", 0, 1), "Center");
  EXPECT_EQ(Cell("FlexgrdCFBW", 1, 1), "Freq");
  EXPECT_EQ(Cell("FlexgrdCFBW", 1, 3), "Width");
  EXPECT_EQ(Cell("FlexgrdPulseWidth", 0, 1), "Width");
  for (int column = 0; column < 4; ++column) {
    EXPECT_EQ(Find<QTableWidget>("FlexgrdCFBW")->columnWidth(column), 39);
  }
  EXPECT_EQ(Find<QTableWidget>("FlexgrdPulseWidth")->columnWidth(1), 39);
}

TEST_F(Start, TakesFourFifthsOfTheScreenInItsMiddle) {
  StartProgram();
  const QSize screen = main->screen()->geometry().size();
  const QSize told(static_cast<int>(screen.width() * 0.8), static_cast<int>(screen.height() * 0.8));
  EXPECT_EQ(main->size(), told.expandedTo(main->minimumSize())) << "its contents come first";
  EXPECT_NEAR(main->geometry().center().x(), screen.width() / 2.0, 4);
  EXPECT_NEAR(main->geometry().center().y(), screen.height() / 2.0, 4);
}

TEST_F(Start, ReadsTheSetupFileAndCountsTheFirstFormAsAChange) {
  StartProgram();
  EXPECT_EQ(view.CurrentPlot, 11);
  EXPECT_EQ(setup.LastPlotListIndex, -1);
}

TEST_F(Start, TellsOnceThatTheHelpIsMissingAndGoesOn) {
  std::filesystem::remove(Folder() / "HALVORNE.HLP");
  script.Expect(kMissingHelp);
  StartProgram();
  EXPECT_TRUE(main->isVisible());
}

TEST_F(Start, PointerIsBusyUntilTheWindowStands) {
  std::filesystem::remove(Folder() / "HALVORNE.HLP");
  script.ExpectForm("MsgBox", [](QWidget& box) {
    for (const QWidget* window : QApplication::topLevelWidgets()) {
      if (window->objectName() == QStringLiteral("frmHalvorneMain")) {
        EXPECT_EQ(window->cursor().shape(), Qt::WaitCursor);
      }
    }
    box.close();
  });
  StartProgram();
  EXPECT_EQ(main->cursor().shape(), Qt::ArrowCursor);
}

TEST_F(Start, CountsADamagedHelpFileAsMissing) {
  std::filesystem::resize_file(Folder() / "HALVORNE.HLP", 100);
  script.Expect(kMissingHelp);
  StartProgram();
}

TEST_F(Start, TellsOfEachMissingDatabaseAndGoesOn) {
  std::filesystem::remove_all(Folder() / "Database");
  script.Expect(kMissingDatabase);
  script.Expect(kMissingDatabase);
  StartProgram();
  EXPECT_TRUE(dataSources.Files.empty());
}

TEST_F(Start, TellsOfAMissingSetupFileAndCarriesOutTheStepsBehindIt) {
  std::filesystem::remove(Folder() / "HALVORNESETUP");
  script.Expect(FailureBox("ERROR in ReadHalvorneSetup of FILES", "Error: 53. File not found"));
  StartProgram();
  EXPECT_EQ(main->windowTitle().toStdString(), "Halvorne: Untitled");
  EXPECT_EQ(Find<QTableWidget>("FlexgrdCFBW")->columnWidth(0), 39);
}

TEST_F(Start, AfterAMissingOrShortSetupFileShowsTheFirstPlotOfADesign) {
  const std::string path = MakeDesignFile();
  for (const bool missing : {true, false}) {
    SCOPED_TRACE(missing ? "missing" : "short");
    std::filesystem::remove(Folder() / "HALVORNESETUP");
    if (!missing) {
      std::ofstream(Folder() / "HALVORNESETUP") << "24\r\n0,1,0,1,1,0,0\r\n";
    }
    script.Expect(
        FailureBox("ERROR in ReadHalvorneSetup of FILES",
                   missing ? "Error: 53. File not found" : "Error: 62. Input past end of file"));
    StartProgram();
    OpenFile(path);
    EXPECT_EQ(view.CurrentPlot, 11);
    EXPECT_EQ(plot.PlotTitle, "Electrical Input Impedance");
    EXPECT_EQ(Find<QComboBox>("PlotType")->currentText(), "Z, Theta");
    EXPECT_EQ(Screen(), CorePicture());
    EXPECT_GT(scale.LeftMax, scale.LeftMin);
    main.reset();
    ResetProgram();
  }
}

TEST_F(Start, NamesTheSources) {
  StartProgram();
  for (const MaterialStore& store : {kAcousticStore, kPiezoStore}) {
    ASSERT_TRUE(dataSources.Files.contains(store.connection)) << store.connection;
    QSqlDatabase source = StoreConnection(store);
    EXPECT_EQ(source.databaseName().toStdString(), dataSources.Files.at(store.connection));
    OpenStore(source);
    EXPECT_FALSE(source.tables().isEmpty()) << "the store can't be read";
  }
}

TEST_F(Start, OfTheStartWindowLastsASecondAndIsUnloadedByTheMainWindow) {
  bool stood = false;
  frmStartup startup([&] { StartProgram(); });
  QTimer::singleShot(200, &startup, [&] {
    stood = startup.isVisible();
    EXPECT_EQ(startup.cursor().shape(), Qt::WaitCursor);
  });
  QElapsedTimer clock;
  clock.start();
  startup.Form_Load();
  EXPECT_TRUE(stood);
  EXPECT_GE(clock.elapsed(), 990);
  EXPECT_TRUE(main->isVisible());
  EXPECT_FALSE(startup.isVisible());
}

TEST(Pause, EndsWhenItsTimeHasPassed) {
  EXPECT_FALSE(PauseIsOver(100.0F, 1.0F, 100.99F));
  EXPECT_TRUE(PauseIsOver(100.0F, 1.0F, 101.0F));
}

TEST(Pause, ThatBeginsInTheDaysLastSecondOutlastsMidnight) {
  EXPECT_FALSE(PauseIsOver(86399.5F, 1.0F, 0.5F));
  EXPECT_FALSE(PauseIsOver(86399.5F, 1.0F, 86399.0F));
}

TEST(Screen, GivesTheCorrectionOfItsBand) {
  struct Band {
    int first, last;
    double twips;
  };
  for (const Band& band : {Band{0, 540, 234}, Band{541, 684, 140}, Band{685, 896, 0},
                           Band{897, 897, 0}, Band{898, 4000, -200}}) {
    EXPECT_EQ(CorrectionFor(band.first).twips, band.twips) << band.first;
    EXPECT_EQ(CorrectionFor(band.last).twips, band.twips) << band.last;
    EXPECT_EQ(CorrectionFor(band.last).tinyFont, band.last == 540) << band.last;
  }
}

TEST_F(Start, PlacesTheControlsByTheWindowsSize) {
  StartProgram();
  const auto* const picture = Find<QWidget>("Picture1");
  const double correction = CorrectionFor(main->screen()->geometry().height()).twips;
  for (const QSize size : {QSize(760, 640), QSize(700, 600)}) {
    main->resize(size);
    EXPECT_NEAR(picture->height() * 15, main->height() * 15 - 3263.039 + correction, 8);
    EXPECT_EQ(picture->width() * 15, main->width() * 15 - 3153 + 3);
    const int bottom = picture->y() + picture->height();
    for (const char* name : {"HScroll1", "Cursor1", "FindMax", "FindMin"}) {
      EXPECT_NEAR((Find<QWidget>(name)->y() - bottom) * 15, 98, 15) << name;
    }
    EXPECT_NEAR((Find<QWidget>("txtEdit")->y() - Find<QWidget>("Cursor1")->y()) * 15, 448.222, 15);
    EXPECT_EQ(Find<QWidget>("txtEdit")->width(), picture->width());
  }
}

TEST_F(Start, NeverLetsTheWindowBecomeSmallerThanHalfTheScreenOrItsContents) {
  StartProgram();
  main->resize(10, 10);
  const QSize half = main->screen()->geometry().size() / 2;
  EXPECT_GE(main->width(), half.width());
  EXPECT_GE(main->height(), half.height());
  const auto* const ground = main->centralWidget();
  for (const char* name : {"Picture1", "HScroll1", "Cursor1", "FindMax", "FindMin", "txtEdit",
                           "PlotType", "fraCFBW", "fraPulseWidth", "fraAtten", "cmdPrintReport"}) {
    const auto* const control = Find<QWidget>(name);
    const QRect place(control->mapTo(ground, QPoint()), control->size());
    EXPECT_TRUE(ground->rect().contains(place)) << name << " is cut off";
    EXPECT_FALSE(place.isEmpty()) << name;
  }
}

}  // namespace
}  // namespace halvorne::testing
