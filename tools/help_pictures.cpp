// Makes the pictures of the help with the program itself: help_pictures SHARE FOLDER
//
// SHARE is what the program ships with. FOLDER gets a picture of each plot and each window that a
// command opens, named after the command or the window, and those of the tutorial. A picture that
// did not change keeps its time, so that nothing is made anew for it.

#include <QAction>
#include <QApplication>
#include <QBuffer>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QKeyEvent>
#include <QMenu>
#include <QTemporaryDir>
#include <QTimer>
#include <cstdio>
#include <filesystem>
#include <stdexcept>
#include <utility>

#include "engine/design_model.h"
#include "platform/messages.h"
#include "platform/paths.h"
#include "plot/cursor.h"
#include "plot/plot_select.h"
#include "shell/frm_halvorne_main.h"
#include "shell/menu_table.h"
#include "timedomain/view.h"
#include "tutorial_design.h"

namespace halvorne::tools {
namespace {

constexpr int kWidestPicture = 620;  // pixels that a page has beside the list of contents

/// A picture shows no failure: a box ends the work.
class NoBoxes final : public Messages {
 public:
  MessageAnswer Show(const Message& message) override {
    if (listening) {
      std::fprintf(stderr, "help_pictures: %s: %s\n", message.title.c_str(), message.text.c_str());
      failed = true;
    }
    return message.defaultAnswer;
  }

  bool listening = false;
  bool failed = false;
};

class Pictures {
 public:
  Pictures(const QDir& share, const QDir& folder) : share_(share), folder_(folder.absolutePath()) {
    for (const char* part : {"HALVORNESETUP", "Database", "DATA", "EXCITE"}) {
      std::filesystem::copy(Native(share_.filePath(QLatin1String(part))),
                            Native(home_.filePath(QLatin1String(part))),
                            std::filesystem::copy_options::recursive);
    }
    SetProgramFolder(Native(home_.path()));
    QDir::setCurrent(home_.path());
  }

  /// True when all were made.
  bool Make() {
    NoBoxes boxes;
    SetMessages(&boxes);
    frmHalvorneMain window;
    boxes.listening = true;  // at its start it misses the help, which is what is being made
    window_ = &window;
    window.resize(980, 640);
    window.show();
    Open("burst_3mhz_dispersive");
    TakePlots();
    TakeReadings();
    TakeWindows();
    TakeStack();
    TakeTuning();
    TakeTutorial();
    TakeHeld();
    SetMessages(nullptr);
    return !boxes.failed && saved_;
  }

 private:
  static std::filesystem::path Native(const QString& path) {
    return QFile::encodeName(path).toStdString();
  }

  void Open(const char* design) {
    // By a short name: the preview shows it.
    window_->OpenDesign("DATA/" + std::string(design) + ".dat");
  }

  QAction* Command(const char* name) const {
    return window_->findChild<QAction*>(QLatin1String(name));
  }

  void Save(QPixmap picture, const QString& name) {
    if (picture.width() > kWidestPicture) {
      picture = picture.scaledToWidth(kWidestPicture, Qt::SmoothTransformation);
    }
    QBuffer bytes;
    bytes.open(QIODevice::WriteOnly);
    picture.save(&bytes, "PNG");
    QFile file(folder_.filePath(name + QStringLiteral(".png")));
    if (file.open(QIODevice::ReadOnly) && file.readAll() == bytes.data()) {
      return;
    }
    file.close();
    saved_ = file.open(QIODevice::WriteOnly | QIODevice::Truncate) &&
             file.write(bytes.data()) == bytes.size() && saved_;
  }

  void TakeGraph(const QString& name) {
    QApplication::processEvents();
    Save(window_->findChild<QWidget*>(QStringLiteral("Picture1"))->grab(), name);
  }

  void TakePlots() {
    for (const MenuRow& row : MenuTable()) {
      if (row.plot != 0) {
        Command(row.name)->trigger();
        TakeGraph(QLatin1String(row.name));
      }
    }
    Command("mnuView2WayItem(2)")->trigger();
    QApplication::processEvents();
    Save(window_->grab(), QStringLiteral("frmHalvorneMain"));
  }

  void ChooseForm(int index) {
    window_->findChild<QComboBox*>(QStringLiteral("PlotType"))->setCurrentIndex(index);
    PlotType_Click();
  }

  /// What can be laid over the graph, and the rectangle that zooms.
  void TakeReadings() {
    Command("mnuView2WayItem(0)")->trigger();
    const int before = window_->PlotTypeIndex();
    ChooseForm(1);
    for (const auto& [entry, name] :
         {std::pair{"mnuGraphGrid", "reading_grid"}, std::pair{"mnuGraphBand", "reading_band"}}) {
      Command(entry)->trigger();
      TakeGraph(QLatin1String(name));
      Command(entry)->trigger();
    }
    Command("mnuGraphMark")->trigger();
    window_->SetCursorValue(window_->CursorValue() * 3 / 4);
    TakeGraph(QStringLiteral("reading_mark"));
    Command("mnuGraphMark")->trigger();
    Cursor1_Click();
    Command("mnuGraphZoom")->trigger();
    TakeGraph(QStringLiteral("zoom"));
    QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
    QApplication::sendEvent(window_->findChild<QWidget*>(QStringLiteral("Picture1")), &escape);
    ChooseForm(before);
  }

  /// The commands that open a window of the program and wait for it.
  static bool OpensWindow(const QString& name) {
    return name.startsWith(QStringLiteral("mnuInput")) ||
           name.startsWith(QStringLiteral("mnuOptionsItem")) ||
           name == QStringLiteral("mnuHelpItem(3)") || name == QStringLiteral("mnuFileItem(5)");
  }

  void TakeWindows() {
    QTimer look;
    QObject::connect(&look, &QTimer::timeout, [this] {
      QWidget* const shown = QApplication::activeModalWidget();
      if (shown != nullptr && shown->isVisible()) {
        Save(shown->grab(), shown->objectName());
        shown->close();
      }
    });
    look.start(1);
    Command("mnuGraphGoTo")->trigger();
    for (const MenuRow& row : MenuTable()) {
      QAction* const command = Command(row.name);
      if (command != nullptr && command->isEnabled() && OpensWindow(QLatin1String(row.name))) {
        command->trigger();
      }
    }
  }

  void TakeStack() {
    const QSize size = window_->size();
    window_->resize(size.width(), 860);  // with room for it
    QApplication::processEvents();
    Save(window_->findChild<QWidget*>(QStringLiteral("picStack"))->grab(),
         QStringLiteral("picStack"));
    window_->resize(size);
  }

  void TakeTuning() {
    window_->findChild<QAction*>(QStringLiteral("mnuGraphTune"))->trigger();
    QApplication::processEvents();
    auto* const shown = window_->findChild<QWidget*>(QStringLiteral("frmTune"));
    Save(shown->grab(), QStringLiteral("frmTune"));
    shown->close();
  }

  void TakeTutorialStep(const char* step) {
    auto* const forms = window_->findChild<QComboBox*>(QStringLiteral("PlotType"));
    Command("mnuView2WayItem(0)")->trigger();
    forms->setCurrentIndex(1);
    TakeGraph(QStringLiteral("tutorial_band_") + QLatin1String(step));
    Command("mnuView2WayItem(2)")->trigger();
    forms->setCurrentIndex(2);
    TakeGraph(QStringLiteral("tutorial_pulse_") + QLatin1String(step));
  }

  void TakeTutorial() {
    Open(kTutorialDesign);
    view.TimeWindowPercent = 4;
    TakeTutorialStep("before");
    ThinTutorialPlates();
    Recalc();
    TakeTutorialStep("plates");
    BackTutorialLoad();
    Recalc();
    TakeTutorialStep("after");
  }

  /// A design before and after a change, and the menu that holds it.
  void TakeHeld() {
    Command("mnuView2WayItem(0)")->trigger();
    window_->findChild<QComboBox*>(QStringLiteral("PlotType"))->setCurrentIndex(1);
    Command("mnuGraphHold")->trigger();
    design.FrontThick(1) *= 1.2;
    Recalc();
    TakeGraph(QStringLiteral("mnuGraphHold"));
    auto* const menu = window_->findChild<QMenu*>(QStringLiteral("mnuGraph"));
    menu->popup({0, 0});
    QApplication::processEvents();
    Save(menu->grab(), QStringLiteral("mnuGraph"));
    menu->close();
    Command("mnuGraphDropAll")->trigger();
  }

  QDir share_;
  QDir folder_;
  QTemporaryDir home_;
  frmHalvorneMain* window_ = nullptr;
  bool saved_ = true;
};

}  // namespace
}  // namespace halvorne::tools

int main(int argc, char** argv) try {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  qputenv("SOURCE_DATE_EPOCH", "1767225600");  // the same pictures at every build
  // What the toolkit says of a platform without a screen.
  qInstallMessageHandler([](QtMsgType type, const QMessageLogContext&, const QString& text) {
    if (type == QtCriticalMsg || type == QtFatalMsg) {
      std::fprintf(stderr, "%s\n", qPrintable(text));
    }
  });
  const QApplication application(argc, argv);
  const QStringList words = QCoreApplication::arguments();
  if (words.size() != 3) {
    std::fputs("usage: help_pictures SHARE FOLDER\n", stderr);
    return 2;
  }
  if (!QDir().mkpath(words[2])) {
    throw std::runtime_error("the folder of the pictures cannot be made");
  }
  return halvorne::tools::Pictures(QDir(words[1]), QDir(words[2])).Make() ? 0 : 1;
} catch (const std::exception& failed) {
  std::fprintf(stderr, "help_pictures: %s\n", failed.what());
  return 1;
}
