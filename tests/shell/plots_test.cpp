#include <QAction>
#include <QApplication>
#include <QTest>
#include <QWindow>
#include <gmock/gmock.h>
#include <set>

#include "engine/design_model.h"
#include "platform/qt/picture_box.h"
#include "plot/catalogue.h"
#include "plot/graph.h"
#include "plot/plot_state.h"
#include "shell/menu_table.h"
#include "shell/text_extents.h"
#include "shell/window_test.h"

namespace halvorne::testing {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class Plots : public WindowTest {
 protected:
  /// Shows each plot by its menu command and each of its forms by the list, and compares.
  void WalkThroughAll() {
    const QSize smallestGraph = SmallestGraph();
    for (const MenuRow& row : MenuTable()) {
      if (row.plot == 0 || !Action(row.name)->isEnabled()) {
        continue;
      }
      ClickMenu(row.name);
      ASSERT_EQ(view.CurrentPlot, row.plot) << row.name;
      const int forms = Find<QComboBox>("PlotType")->count();
      EXPECT_GT(forms, 0) << row.plot;
      for (int form = 0; form < forms; ++form) {
        ChooseForm(form);
        SCOPED_TRACE(std::string(row.name) + ", form " + std::to_string(form));
        ASSERT_EQ(Find<QComboBox>("PlotType")->currentIndex(), form);
        ComparePlot(row.plot);
        LookAtTexts(smallestGraph);
      }
    }
  }

  void ComparePlot(int number) {
    EXPECT_EQ(Screen(), CorePicture()) << "the window does not show what the core draws";
    const std::vector<std::string> texts = CoreTexts();
    const std::string_view title = FindPlot(number)->title;
    EXPECT_TRUE(plot.PlotTitle.starts_with(title)) << plot.PlotTitle;
    EXPECT_THAT(texts, Contains(plot.PlotTitle));
    EXPECT_THAT(texts, Contains(IsTimePlot(number) ? "Time in " + view.TimeUnit
                                                   : "Frequency in " + design.FreqUnit));
    EXPECT_THAT(texts, Contains(scale.LeftLabel));
    EXPECT_THAT(texts, Contains(scale.LeftMaxText));
    EXPECT_THAT(texts, Contains(scale.LeftMinText));
    CompareMeasurements();
  }

  /// Axis texts, captions and title of the smallest graph are whole and apart.
  void LookAtTexts(QSize smallestGraph) {
    TextExtents smallest(smallestGraph);
    PlotGraphOn(smallest);
    for (const std::string& fault : smallest.Faults()) {
      ADD_FAILURE() << fault;
    }
  }

  /// Size of the graph in the smallest window there can be.
  QSize SmallestGraph() {
    const QSize before = main->size();
    main->resize(1, 1);
    const QSize graph = Find<QWidget>("Picture1")->size();
    main->resize(before);
    return graph;
  }

  void CompareMeasurements() {
    EXPECT_EQ(Enabled("fraCFBW"), measured.CFBWValid);
    EXPECT_EQ(Enabled("FlexgrdCFBW"), measured.CFBWValid);
    EXPECT_EQ(Enabled("fraPulseWidth"), measured.PulseWidthValid);
    EXPECT_EQ(Find<QWidget>("lblPkAmpl")->isVisible(), measured.PulseWidthValid);
    for (std::size_t row = 2; row < 6; ++row) {
      for (std::size_t column = 0; column < 4; ++column) {
        EXPECT_EQ(Cell("FlexgrdCFBW", static_cast<int>(row), static_cast<int>(column)),
                  measured.CFBWValid ? measured.CFBWText[row][column] : "");
      }
    }
    for (std::size_t row = 1; row < 5; ++row) {
      for (std::size_t column = 0; column < 2; ++column) {
        EXPECT_EQ(Cell("FlexgrdPulseWidth", static_cast<int>(row), static_cast<int>(column)),
                  measured.PulseWidthValid ? measured.PulseWidthText[row][column] : "");
      }
    }
  }
};

TEST_F(Plots, AllStandBehindTheirCommandsInAllForms) {
  StartWithDesign();
  WalkThroughAll();
}

TEST_F(Plots, OfEverySampleDesignStandBehindTheirCommands) {
  StartProgram();
  int opened = 0;
  for (const auto& entry : std::filesystem::directory_iterator(
           std::filesystem::path(HALVORNE_SOURCE_DIR) / "share" / "DATA")) {
    if (entry.path().extension() != ".dat") {
      continue;
    }
    SCOPED_TRACE(entry.path().filename());
    std::filesystem::copy(entry.path(), Data(entry.path().filename()));
    OpenFile(Data(entry.path().filename()).string());
    ASSERT_TRUE(plot.DesignOpen);
    EXPECT_EQ(main->windowTitle().toStdString(),
              "Halvorne: " + Data(entry.path().filename()).string());
    WalkThroughAll();
    ++opened;
  }
  EXPECT_GE(opened, 6) << "the sample designs are missing";
}

TEST_F(Plots, KeepTheirWhitePageOnADarkDesktop) {
  const QPalette before = QApplication::palette();
  QApplication::setPalette(QPalette(QColor(0x2a, 0x2c, 0x30)));
  StartWithDesign();
  const QImage dark = Screen();
  EXPECT_EQ(dark.pixelColor(2, 2), QColor(Qt::white));
  EXPECT_EQ(dark, CorePicture());
  EXPECT_LT(Find<QWidget>("txtEdit")->palette().color(QPalette::Base).lightness(), 128)
      << "the rest of the window follows the desktop";
  QApplication::setPalette(before);
}

TEST_F(Plots, AreEachTheirOwn) {
  StartWithDesign();
  std::vector<int> shown;
  for (const MenuRow& row : MenuTable()) {
    if (row.plot != 0) {
      shown.push_back(row.plot);
    }
  }
  std::vector<int> catalogue;
  for (const CataloguePlot& row : Catalogue()) {
    catalogue.push_back(row.number);
  }
  EXPECT_EQ(shown, catalogue);
}

TEST_F(Plots, FormIsWrittenToTheSetupFileAtOnce) {
  StartWithDesign();
  ClickMenu("mnuViewTxTFPress");
  const std::string before = ReadFile(Folder() / "HALVORNESETUP");
  ChooseForm(Find<QComboBox>("PlotType")->currentIndex() == 0 ? 1 : 0);
  EXPECT_NE(ReadFile(Folder() / "HALVORNESETUP"), before);
}

TEST_F(Plots, DialogsWriteTheSetupFileOnOk) {
  StartWithDesign();
  const auto lastLines = [&] {
    const std::string file = ReadFile(Folder() / "HALVORNESETUP");
    return file.substr(file.find("\r\n1,") + 2);
  };
  ClickMenu("mnuViewTxWfm");
  script.ExpectForm("frmPlotScaleEntry", [](QWidget& dialog) {
    const auto type = [&](const char* name, const char* text) {
      auto* const box = dialog.findChild<QLineEdit*>(QLatin1String(name));
      box->selectAll();
      QTest::keyClicks(box, QLatin1String(text));
    };
    type("txtAmplWindow", "70");
    QTest::mouseClick(dialog.findChild<QWidget*>(QStringLiteral("CmdShow(2)")), Qt::LeftButton);
    type("txtTWindow", "25");
    QTest::keyClick(&dialog, Qt::Key_Return);
  });
  ClickMenu("mnuOptionsItem(1)");
  EXPECT_TRUE(lastLines().ends_with("\r\n25\r\n70\r\n")) << lastLines();
  script.ExpectForm("frmDisplayOpt", [](QWidget& dialog) {
    QTest::keyClick(dialog.findChild<QWidget*>(QStringLiteral("optPhase(0)")), Qt::Key_Down);
    QTest::keyClick(&dialog, Qt::Key_Return);
  });
  ClickMenu("mnuOptionsItem(2)");
  EXPECT_NE(lastLines().find("\r\n1,1,1\r\n"), std::string::npos) << lastLines();
}

TEST_F(Plots, SettingsOutliveTheSession) {
  StartWithDesign();
  ClickMenu("mnuView2WayItem(0)");
  ChooseForm(0);
  const std::string path = design.DataFileName;
  main.reset();
  StartProgram();
  OpenFile(path);
  EXPECT_EQ(view.CurrentPlot, 31);
  EXPECT_EQ(Find<QComboBox>("PlotType")->currentIndex(), 0);
}

TEST_F(Plots, FallBackToThePiezoelectricLayerWithoutPlates) {
  StartWithDesign();
  ClickMenu("mnuViewDispFP");
  EXPECT_EQ(view.CurrentPlot, 51);
  design.NoFace = 0;
  main->EnableItems(true);
  EXPECT_EQ(view.CurrentPlot, 52);
  EXPECT_FALSE(Action("mnuViewDispFP")->isEnabled());
}

TEST_F(Plots, FolderThatCannotBeWrittenIsToldAtEachChange) {
  StartWithDesign();
  std::filesystem::remove(Folder() / "HALVORNESETUP");
  std::filesystem::create_directory(Folder() / "HALVORNESETUP");
  script.Expect(
      FailureBox("ERROR in writeHalvorneSetup of FILES", "Error: 75. Path/File access error"));
  ChooseForm(Find<QComboBox>("PlotType")->currentIndex() + 1);
  EXPECT_EQ(Screen(), CorePicture()) << "the plot must be drawn all the same";
}

TEST_F(Plots, AreDrawnAnewWhenTheWindowChangesItsSize) {
  StartWithDesign();
  const QImage before = Screen();
  main->resize(main->width() + 60, main->height() + 10);
  EXPECT_NE(Screen().size(), before.size());
  EXPECT_EQ(Screen(), CorePicture());
}

TEST_F(Plots, AreDrawnInTheLastSizeOnlyOfASwarmFromTheMouse) {
  StartWithDesign();
  auto* const box = static_cast<PictureBox*>(Find<QWidget>("Picture1"));
  std::set<int> widths;  // in which something was drawn
  box->Picture().SetChangeListener([&](const QRect& changed) {
    widths.insert(box->Picture().Size().width());
    box->update(changed);
  });
  const QSize before = main->size();
  const int width = box->width();
  for (int step = 1; step <= 20; ++step) {
    main->windowHandle()->resize(before + QSize(3 * step, step));
  }
  EXPECT_THAT(widths, IsEmpty()) << "the mouse need not wait";
  EXPECT_TRUE(QTest::qWaitFor([&] { return !widths.empty(); }));
  EXPECT_EQ(main->size(), before + QSize(60, 20));
  EXPECT_THAT(widths, ElementsAre(width + 60));
  EXPECT_EQ(Screen(), CorePicture());
  box->Picture().SetChangeListener([box](const QRect& changed) { box->update(changed); });
}

TEST_F(Plots, GiveWayToEmptyAxesWithoutADesign) {
  StartWithDesign();
  const QImage drawn = Screen();
  ClickMenu("mnuFileItem(0)");
  const QImage empty = Screen();
  EXPECT_NE(empty, drawn);
  main->resize(main->width() + 60, main->height());
  main->resize(main->width() - 60, main->height());
  EXPECT_EQ(Screen(), empty);
}

}  // namespace
}  // namespace halvorne::testing
