#include "shell/window_test.h"

#include <QAction>
#include <QApplication>
#include <QMenu>
#include <QMenuBar>
#include <QProxyStyle>
#include <QSqlDatabase>
#include <QTest>
#include <fstream>
#include <sstream>

#include "materials/data_sources.h"
#include "persistence/design_file.h"
#include "platform/headless_surface.h"
#include "platform/paths.h"
#include "platform/qt/help_viewer.h"
#include "platform/qt/picture_surface.h"
#include "plot/graph.h"
#include "plot/headless_window.h"
#include "plot/plot_select.h"
#include "plot/plot_state.h"
#include "support/fresh_program.h"
#include "timedomain/excitation.h"

namespace halvorne::testing {
namespace {

namespace fs = std::filesystem;

/// Lays the program's folder out as it is shipped, but for the designs.
void LayOut(const fs::path& folder) {
  const fs::path shipped = fs::path(HALVORNE_SOURCE_DIR) / "share";
  for (const char* part : {"HALVORNESETUP", "Database"}) {
    fs::copy(shipped / part, folder / part, fs::copy_options::recursive);
  }
  fs::copy(HALVORNE_BINARY_DIR "/program/HALVORNE.HLP", folder / "HALVORNE.HLP");
  fs::create_directory(folder / "DATA");
}

}  // namespace

WindowTest::WindowTest() {
  ResetProgram();
  LayOut(Folder());
  SetProgramFolder(Folder());
  SetMessages(&boxes_);
}

WindowTest::~WindowTest() {
  EXPECT_TRUE(script.Finished()) << "a window that was expected did not come";
  EndHelp();
  main.reset();
  SetMessages(nullptr);
  dataSources = {};
  for (const QString& name : QSqlDatabase::connectionNames()) {
    QSqlDatabase::removeDatabase(name);
  }
  fs::current_path(startFolder_);
}

void WindowTest::StartProgram() {
  main = std::make_unique<frmHalvorneMain>();
  main->show();
  BecomeActive();
}

void WindowTest::BecomeActive() {
  main->activateWindow();
  EXPECT_TRUE(QTest::qWaitForWindowActive(main.get()));
}

std::string WindowTest::MakeDesignFile(const std::string& name) {
  HeadlessWindow none;
  MainWindow* const before = SetMainWindow(&none);
  MakeSimpleDesign(64, 1024);
  AcousticMaterial plate;
  plate.Name = "Plate";
  plate.Velocity = 2500;
  plate.ShearVelocity = 1200;
  plate.Density = 1500;
  plate.LossFreq = 1;
  plate.LossExp = 1;
  design.NoFace = 2;
  design.NoBack = 1;
  for (int i = 1; i <= 2; ++i) {
    design.FaceMatl(i) = plate;
    design.FrontThick(i) = 0.00012;
    design.FrontArea(i) = 1;
  }
  design.BackMatl(1) = plate;
  design.BackThick(1) = 0.002;
  design.BackArea(0) = design.FrontArea(0) = design.BackArea(1) = 1;
  design.ExciteType = 1;
  design.ExciteWave = 1;
  design.ExciteFreq = 5e6F;
  design.ExciteCycles = 3;
  design.ExcitePoints = design.ExciteLength = 1023;
  CopyExciteToTemp();
  CalcExciteWfm();
  for (int i = 0; i <= design.ExciteLength; ++i) {
    wave.ExciteRe(i) = draft.TmpExciteWfm(i);
  }
  design.DesignTitle = "A probe";
  design.ElementShape = 1;
  design.ElementDim1 = 11.28;
  design.AttenOn = false;
  Recalc();
  const std::string path = Data(name).string();
  WriteDesignFile(path);
  SetMainWindow(before);
  ResetProgram();
  return path;
}

void WindowTest::StartWithDesign() {
  const std::string path = MakeDesignFile();
  StartProgram();
  OpenFile(path);
}

void WindowTest::OpenFile(const std::string& path) {
  script.ExpectFileDialog("File Open", path);
  ClickMenu("mnuFileItem(1)");
}

std::string WindowTest::Caption(const std::string& label) const {
  return Find<QLabel>(label)->text().toStdString();
}

std::string WindowTest::Cell(const std::string& grid, int row, int column) const {
  return Find<QTableWidget>(grid)->item(row, column)->text().toStdString();
}

void WindowTest::ClickMenu(const std::string& name) {
  std::vector<QAction*> way{Action(name)};
  // From the command up to the menu bar.
  while (auto* const menu = way.back()->associatedObjects().value(0)) {
    if (qobject_cast<QMenu*>(menu) == nullptr) {
      break;
    }
    way.push_back(static_cast<QMenu*>(menu)->menuAction());
  }
  QMenuBar* const bar = main->menuBar();
  QTest::mouseClick(bar, Qt::LeftButton, {}, bar->actionGeometry(way.back()).center());
  for (auto step = way.rbegin(); step + 1 != way.rend(); ++step) {
    QMenu* const menu = (*step)->menu();
    // A menu within a menu opens a moment after its entry was pressed.
    ASSERT_TRUE(QTest::qWaitFor([&] { return menu->isVisible(); }))
        << menu->objectName().toStdString() << " did not open";
    QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(*(step + 1)).center());
  }
  while (QWidget* const open = QApplication::activePopupWidget()) {
    open->close();
  }
  if (main->isVisible()) {
    BecomeActive();
  }
}

void WindowTest::Click(const std::string& name) {
  QTest::mouseClick(Find<QWidget>(name), Qt::LeftButton);
  BecomeActive();
}

void WindowTest::ChooseForm(int index) {
  auto* const list = Find<QComboBox>("PlotType");
  list->setFocus();
  QTest::keyClick(list, Qt::Key_Home);
  for (int i = 0; i < index; ++i) {
    QTest::keyClick(list, Qt::Key_Down);
  }
}

QImage WindowTest::Screen() const {
  return Find<QWidget>("Picture1")->grab().toImage().convertToFormat(QImage::Format_RGB32);
}

QImage WindowTest::CorePicture() const {
  PictureSurface picture(SurfaceKind::kMainPicture);
  auto* const box = Find<QWidget>("Picture1");
  picture.SetSize(box->size(), box->devicePixelRatioF());
  PlotGraphOn(picture);
  return picture.Seen();
}

std::vector<std::string> WindowTest::CoreTexts() const {
  HeadlessSurface surface;
  PlotGraphOn(surface);
  std::vector<std::string> texts;
  for (const DrawnOperation& operation : surface.Operations()) {
    if (operation.kind == DrawnOperation::Kind::kText) {
      texts.push_back(operation.text);
    }
  }
  return texts;
}

/// Opens a menu within a menu at once, not after a moment under the mouse.
class ImpatientStyle : public QProxyStyle {
 public:
  int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                QStyleHintReturn* answer) const override {
    return hint == SH_Menu_SubMenuPopupDelay ? 0
                                             : QProxyStyle::styleHint(hint, option, widget, answer);
  }
};

std::string ReadFile(const fs::path& path) {
  std::ostringstream text;
  text << std::ifstream(path, std::ios::binary).rdbuf();
  return text.str();
}

}  // namespace halvorne::testing

int main(int argc, char** argv) {
  ::testing::InitGoogleTest(&argc, argv);
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
  }
  const QApplication application(argc, argv);
  QApplication::setStyle(new halvorne::testing::ImpatientStyle);
  QApplication::setQuitOnLastWindowClosed(false);
  return RUN_ALL_TESTS();
}
