#include <QAction>
#include <QDir>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QProcess>
#include <QScreen>
#include <QTabBar>
#include <QTest>
#include <QTreeView>
#include <fstream>

#include "engine/design_model.h"
#include "platform/qt/help_viewer.h"
#include "plot/plot_state.h"
#include "shell/dark_palette.h"
#include "shell/frm_startup.h"
#include "shell/layout_check.h"
#include "shell/window_test.h"

namespace halvorne::testing {
namespace {

/// A screen, its size in points.
struct Desktop {
  int width;
  int height;
  int ratio;  ///< device pixels per point

  std::string Name() const {
    return std::to_string(width) + "x" + std::to_string(height) + "_at_" + std::to_string(ratio);
  }
};

/// Set in the process that stands before the desktop named by it.
constexpr const char* kDesktopVariable = "HALVORNE_TEST_DESKTOP";

/// Every window of the program, taken on one desktop after the other.
class Screenshots : public WindowTest, public ::testing::WithParamInterface<Desktop> {
 protected:
  /// Takes a picture of a window and looks whether everything in it is whole and in its place.
  void Take(QWidget& window, const std::string& name) {
    QCoreApplication::sendPostedEvents();
    QApplication::processEvents();
    EXPECT_TRUE(SaveShot(window.grab(), name));
    for (const std::string& fault : LayoutFaults(window)) {
      ADD_FAILURE() << theme_ << " " << name << ": " << fault;
    }
  }

  bool SaveShot(const QPixmap& picture, const std::string& name) const {
    const QDir folder(QStringLiteral(HALVORNE_SOURCE_DIR "/build/screenshots"));
    constexpr int quick = 80;  // a light compression
    return folder.mkpath(QStringLiteral(".")) &&
           picture.save(folder.filePath(QString::fromStdString(GetParam().Name() + "_" + theme_ +
                                                               "_" + name + ".png")),
                        "PNG", quick);
  }

  /// Opens a dialog by `open`, takes it once per page button, and closes it.
  void TakeDialog(const std::string& form, const std::vector<std::string>& pages,
                  const std::function<void()>& open) {
    script.ExpectForm(form, [&](QWidget& window) {
      if (pages.empty()) {
        Take(window, form);
      }
      for (const std::string& page : pages) {
        auto* const button = window.findChild<QAbstractButton*>(QString::fromStdString(page));
        if (button->isEnabled()) {
          QTest::mouseClick(button, Qt::LeftButton, {}, QPoint(8, button->height() / 2));
          Take(window, form + "_" + button->text().toLower().toStdString());
        }
      }
      window.close();
    });
    open();
  }

  /// Opens a material browser through its dialog, takes it as it comes and at its smallest, and
  /// closes it.
  void TakeBrowser(const char* menu, const char* form, const char* button, const char* browser) {
    script.ExpectForm(form, [button](QWidget& window) {
      QTest::mouseClick(window.findChild<QAbstractButton*>("CmdView(1)"), Qt::LeftButton);
      QTest::mouseClick(window.findChild<QAbstractButton*>(button), Qt::LeftButton);
    });
    script.ExpectForm(browser, [this, browser](QWidget& window) {
      QTest::keyClick(window.focusWidget(), Qt::Key_Down);
      Take(window, browser);
      window.resize(window.minimumSize());
      Take(window, std::string(browser) + "_smallest");
      window.close();
    });
    if (std::string_view(browser) == "frmAcousticDB") {
      script.ExpectForm(form, [](QWidget& window) { window.close(); });
    }
    ClickMenu(menu);
  }

  void TakeDialogs() {
    TakeBrowser("mnuInputPiezo", "frmPiezoEntry", "cmdOpenPiezoDB", "frmPiezoDB");
    TakeBrowser("mnuInputFP", "frmFaceEntry", "cmdOpenAcousticDB", "frmAcousticDB");
    TakeDialog("frmSizeEntry", {}, [&] { ClickMenu("mnuInputSz"); });
    TakeDialog("frmElecTermEntry", {}, [&] { ClickMenu("mnuInputElTerm"); });
    TakeDialog("frmFreqEntry", {"optKHz", "optMHz"}, [&] { ClickMenu("mnuInputFreqPts"); });
    TakeDialog("frmTimeEntry", {}, [&] { ClickMenu("mnuInputTimePts"); });
    TakeLoads();
    TakeExcitations();
    TakeNetwork();
    TakeDialog("frmDisplayOpt", {"CmdView(0)", "CmdView(1)", "CmdView(2)"},
               [&] { ClickMenu("mnuOptionsItem(2)"); });
    TakeDialog("frmAbout", {}, [&] { ClickMenu("mnuHelpItem(3)"); });
    ClickMenu("mnuView2WayItem(0)");
    TakeDialog("frmPlotScaleEntry", {"CmdShow(0)", "CmdShow(1)"},
               [&] { ClickMenu("mnuOptionsItem(1)"); });
    ClickMenu("mnuView2WayItem(3)");
    TakeDialog("frmPlotScaleEntry", {"CmdShow(2)"}, [&] { ClickMenu("mnuOptionsItem(1)"); });
    TakeDialog("frmInputList", {"optDetails(1)", "optDetails(0)"},
               [&] { ClickMenu("mnuInputView"); });
    TakeDialog("frmHalvorneReport", {"optDetails(1)", "optDetails(0)"},
               [&] { ClickMenu("mnuFileItem(5)"); });
    script.ExpectForm("MsgBox", [&](QWidget& window) {
      Take(window, "MsgBox");
      window.close();
    });
    messages().Show({.title = "ERROR in MainCalc of CALCS", .text = "Error: 6. Overflow"});
  }

  void TakeHelp() {
    ClickMenu("mnuHelpItem(0)");
    for (QWidget* window : QApplication::topLevelWidgets()) {
      if (window->objectName() == QStringLiteral("frmHelp")) {
        const auto* const contents = window->findChild<QTreeView*>();
        EXPECT_TRUE(QTest::qWaitFor([=] { return contents->model()->rowCount() > 0; }));
        Take(*window, "frmHelp");
      }
    }
    EndHelp();
  }

  /// The loads of both sides, real and from a file.
  void TakeLoads() {
    design.ZFrontComplex = false;
    design.ZBackComplex = true;
    design.ZBackFile = Folder().string() + "/Acoustic loads/Mounting line behind the backing.lac";
    design.ZBackComment = "A line of 12 mm behind the backing, which ends in air";
    TakeDialog("frmAcoustLoad", {}, [&] { ClickMenu("mnuInputLoad"); });
  }

  /// No excitation, both bursts, and a file.
  void TakeExcitations() {
    design.ExciteType = 0;
    TakeDialog("frmExcite", {"optXwfmSource(0)", "optXwfmSource(1)", "optSineSquare(1)"},
               [&] { ClickMenu("mnuOptionsItem(0)"); });
    design.ExciteType = 2;
    design.ExciteFileName = Folder().string() + "/EXCITE/Gaussian pulse 5 MHz.xct";
    design.ExciteComment = "Gaussian pulse at 5 MHz, sampled at 100 MHz";
    TakeDialog("frmExcite", {"optXwfmSource(2)"}, [&] { ClickMenu("mnuOptionsItem(0)"); });
  }

  /// The list of elements and each element's values.
  void TakeNetwork() {
    script.ExpectForm("frmElNetEntry", [&](QWidget& window) {
      auto* const list = window.findChild<QListWidget*>(QStringLiteral("lstElNet"));
      list->setCurrentRow(0);
      Take(window, "frmElNetEntry");
      std::vector<std::string> elements;
      for (int code = 0; code <= 17; ++code) {
        elements.push_back("optElSelect(" + std::to_string(code) + ")");
      }
      TakeDialog("frmEnterElement", elements, [&] {
        QTest::mouseClick(window.findChild<QAbstractButton*>(QStringLiteral("cmdInsert")),
                          Qt::LeftButton);
      });
      window.close();
    });
    ClickMenu("mnuInputElNet");
  }

  void TakeMenus() {
    for (const char* name : {"mnuFile", "mnuEdit", "mnuInput", "mnuViewTx", "mnuOptions"}) {
      auto* const menu = Find<QMenu>(name);
      menu->popup(main->mapToGlobal(QPoint(0, 30)));
      EXPECT_TRUE(SaveShot(menu->grab(), std::string(name)));
      menu->close();
    }
  }

  void TakeStartup() {
    frmStartup startup([] {});
    startup.show();
    Take(startup, "frmStartup");
  }

  void TakeMainWindow() {
    StartProgram();
    const QSize told(static_cast<int>(screen_.width() * 0.8),
                     static_cast<int>(screen_.height() * 0.8));
    EXPECT_EQ(main->size(), told.expandedTo(main->minimumSize())) << "not 80 percent of the screen";
    EXPECT_NEAR(main->x() + main->width() / 2.0, screen_.width() / 2.0, 1) << "not in the middle";
    EXPECT_NEAR(main->y() + main->height() / 2.0, screen_.height() / 2.0, 1) << "not in the middle";
    Take(*main, "frmHalvorneMain_empty");
    OpenSample("burst_3mhz_dispersive.dat");
    ClickMenu("mnuViewTxZ");
    Take(*main, "frmHalvorneMain_impedance");
    ClickMenu("mnuView2WayItem(2)");
    ChooseForm(6);
    Take(*main, "frmHalvorneMain_spectrum");
    Click("Cursor1");
    Take(*main, "frmHalvorneMain_cursor");
    ClickMenu("mnuView2WayItem(3)");
    ChooseForm(1);
    Take(*main, "frmHalvorneMain_excitation");
    TakeReadings();
    ClickMenu("mnuView2WayItem(0)");
    main->resize(main->minimumSize());
    Take(*main, "frmHalvorneMain_smallest");
    main->resize(screen_);
    Take(*main, "frmHalvorneMain_largest");
  }

  /// Everything that can be laid over a graph.
  void TakeReadings() {
    for (const char* entry : {"mnuGraphGrid", "mnuGraphBand"}) {
      Action(entry)->trigger();
    }
    const struct {
      const char* menu;
      int form;
    } plots[] = {{"mnuViewTxZ", 0},
                 {"mnuView2WayItem(0)", 1},
                 {"mnuView2WayItem(2)", 8},
                 {"mnuView2WayItem(3)", 3}};
    for (const auto& [menu, form] : plots) {
      ClickMenu(menu);
      ChooseForm(form);
      Action("mnuGraphMark")->trigger();
      QTest::keyClick(Find<QWidget>("HScroll1"), Qt::Key_PageUp);
      const std::string name =
          "frmHalvorneMain_read_" + std::to_string(view.CurrentPlot) + "_" + std::to_string(form);
      Take(*main, name);
      const QSize size = main->size();
      main->resize(main->minimumSize());
      Click("Cursor1");
      Take(*main, name + "_smallest");
      main->resize(size);
      Click("Cursor1");
      Action("mnuGraphMark")->trigger();
      Click("Cursor1");
    }
    ClickMenu("mnuView2WayItem(0)");
    Action("mnuGraphZoom")->trigger();
    Take(*main, "frmHalvorneMain_zoom");
    QTest::keyClick(Find<QWidget>("Picture1"), Qt::Key_Escape);
    TakeDialog("frmGoTo", {}, [&] { Action("mnuGraphGoTo")->trigger(); });
    for (const char* entry : {"mnuGraphGrid", "mnuGraphBand"}) {
      Action(entry)->trigger();
    }
  }

  void OpenSample(const std::string& name) {
    std::filesystem::copy(std::filesystem::path(HALVORNE_SOURCE_DIR) / "share" / "DATA" / name,
                          Data(name));
    OpenFile(Data(name).string());
    std::filesystem::remove(Data(name));
  }

  void TakeAll() {
    screen_ = QGuiApplication::primaryScreen()->geometry().size();
    EXPECT_EQ(screen_, QSize(GetParam().width, GetParam().height));
    EXPECT_EQ(qApp->devicePixelRatio(), GetParam().ratio);
    const QPalette light = QApplication::palette();
    for (const bool dark : {false, true}) {
      theme_ = dark ? "dark" : "light";
      QApplication::setPalette(dark ? DarkPalette() : light);
      TakeStartup();
      TakeMainWindow();
      TakeMenus();
      TakeDialogs();
      TakeHelp();
      main.reset();
    }
  }

 private:
  std::string theme_;
  QSize screen_;
};

TEST_P(Screenshots, ShowEveryWindowWholeAndInOrder) {
  if (qEnvironmentVariableIsSet(kDesktopVariable)) {
    TakeAll();
    return;
  }
  // The size of the screen and its resolution are given to the toolkit at its start.
  const Desktop& desktop = GetParam();
  const std::string screens = (Folder() / "screens.json").string();
  std::ofstream(screens) << R"({"screens":[{"name":"screen","x":0,"y":0,"width":)"
                         << desktop.width * desktop.ratio << R"(,"height":)"
                         << desktop.height * desktop.ratio << R"(,"logicalDpi":96,"dpr":1}]})";
  QProcessEnvironment surroundings = QProcessEnvironment::systemEnvironment();
  surroundings.insert(kDesktopVariable, QString::fromStdString(desktop.Name()));
  surroundings.insert("QT_QPA_PLATFORM", "offscreen:configfile=" + QString::fromStdString(screens));
  surroundings.insert("QT_SCALE_FACTOR", QString::number(desktop.ratio));
  QProcess process;
  process.setProcessEnvironment(surroundings);
  process.setProcessChannelMode(QProcess::MergedChannels);
  const ::testing::TestInfo& self = *::testing::UnitTest::GetInstance()->current_test_info();
  process.start(QCoreApplication::applicationFilePath(),
                {QStringLiteral("--gtest_filter=%1.%2").arg(self.test_suite_name(), self.name())});
  constexpr int patience = 100'000;  // ms
  ASSERT_TRUE(process.waitForFinished(patience));
  EXPECT_EQ(process.exitCode(), 0) << process.readAll().toStdString();
}

INSTANTIATE_TEST_SUITE_P(On, Screenshots,
                         ::testing::Values(Desktop{1366, 768, 1}, Desktop{1366, 768, 2},
                                           Desktop{1920, 1080, 1}, Desktop{1920, 1080, 2}),
                         [](const auto& desktop) { return desktop.param.Name(); });

}  // namespace
}  // namespace halvorne::testing
