#include "shell/program.h"

#include <QMimeData>
#include <QTest>
#include <filesystem>
#include <fstream>
#include <functional>

#include "engine/design_model.h"
#include "platform/paths.h"
#include "platform/qt/forms.h"
#include "plot/plot_state.h"
#include "shell/window_test.h"

namespace halvorne::testing {
namespace {

QWidget* Shown(const char* name) {
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (window->objectName() == QLatin1String(name) && window->isVisible()) {
      return window;
    }
  }
  return nullptr;
}

/// The whole program, from its start-up window to its exit status.
class Program : public WindowTest {
 protected:
  Program() { soon_.setInterval(10); }
  ~Program() override { QApplication::setQuitOnLastWindowClosed(false); }

  /// Runs the program and acts once its main window stands.
  int Run(const std::function<void(frmHalvorneMain&)>& act) {
    QObject::connect(&soon_, &QTimer::timeout, [&] {
      auto* const window = dynamic_cast<frmHalvorneMain*>(Shown("frmHalvorneMain"));
      if (window != nullptr && window->isActiveWindow()) {
        soon_.stop();
        act(*window);
      }
    });
    soon_.start();
    QTimer::singleShot(8000, &soon_, [] {
      ADD_FAILURE() << "the program does not end";
      QCoreApplication::exit(EXIT_FAILURE);
    });
    return RunProgram({.folder = Folder(), .shipped = shipped_}, design_);
  }

  void OpenByKey(frmHalvorneMain& window, const std::string& path) {
    script.ExpectFileDialog("File Open", path);
    QTest::keyClick(&window, Qt::Key_O, Qt::ControlModifier);
    ASSERT_TRUE(plot.DesignOpen);
  }

  std::filesystem::path shipped_;  ///< what the program is installed with
  std::string design_;             ///< the file it is started with

 private:
  QTimer soon_;
};

TEST_F(Program, KnowsTheDesignItIsStartedWithByItsWholePath) {
  const std::filesystem::path before = std::filesystem::current_path();
  std::filesystem::current_path("/");
  EXPECT_EQ(DesignNamedAtStart("some/design.dat"), "/some/design.dat");
  EXPECT_EQ(DesignNamedAtStart("/some/design.dat"), "/some/design.dat");
  EXPECT_EQ(DesignNamedAtStart(""), "") << "a script whose variable is empty opens nothing";
  const std::filesystem::path gone = Folder() / "gone";
  std::filesystem::create_directory(gone);
  std::filesystem::current_path(gone);
  std::filesystem::remove(gone);
  EXPECT_EQ(DesignNamedAtStart("design.dat"), "design.dat");
  std::filesystem::current_path(before);
}

TEST_F(Program, EndsWhenItsWindowIsClosed) {
  EXPECT_EQ(Run([](frmHalvorneMain& window) { window.close(); }), 0);
  EXPECT_EQ(FormCount("frmHalvorneMain"), 0);
  EXPECT_EQ(FormCount("frmStartup"), 0);
}

/// Closes a window as its close box does.
void CloseByItsBox(QWidget& window) {
  QCloseEvent event;
  QSpontaneKeyEvent::setSpontaneous(&event);
  qApp->notify(&window, &event);
}

TEST_F(Program, EndsByTheCloseBoxThoughAWindowStandsBesideIt) {
  QWidget other;
  EXPECT_EQ(Run([&](frmHalvorneMain& window) {
              other.show();
              CloseByItsBox(window);
            }),
            0);
}

TEST_F(Program, GoesOnWhenTheSystemOrTheProgramItselfUnloads) {
  EXPECT_EQ(Run([](frmHalvorneMain& window) {
              for (const int mode : {1, 2}) {
                window.Form_QueryUnload(mode);
                EXPECT_TRUE(window.isVisible()) << "mode " << mode << " ended the program itself";
              }
              window.Form_QueryUnload(3);
              EXPECT_FALSE(window.isVisible()) << "the task manager ends it";
            }),
            0);
}

TEST_F(Program, EndsByItsExitCommand) {
  EXPECT_EQ(Run([](frmHalvorneMain& window) {
              QTest::keyClick(&window, Qt::Key_Q, Qt::ControlModifier);
            }),
            0);
}

TEST_F(Program, EndsOverAnUnsavedDesignWithoutAWord) {
  const std::string path = MakeDesignFile();
  const std::string before = ReadFile(path);
  EXPECT_EQ(Run([&](frmHalvorneMain& window) {
              OpenByKey(window, path);
              design.DesignNew = 65535;
              design.DesignTitle = "Changed";
              window.close();
            }),
            0);
  EXPECT_EQ(ReadFile(path), before);
}

TEST_F(Program, EndsFromBehindABox) {
  EXPECT_EQ(Run([&](frmHalvorneMain& window) {
              script.ExpectCancelledFileDialog("File Open");
              script.ExpectForm("MsgBox", [&](QWidget& /*box*/) { window.close(); });
              QTest::keyClick(&window, Qt::Key_O, Qt::ControlModifier);
            }),
            0);
}

TEST_F(Program, EndsFromBehindAFileDialog) {
  EXPECT_EQ(Run([&](frmHalvorneMain& window) {
              script.ExpectFileDialog("File Open",
                                      [&](QFileDialog& /*dialog*/) { window.close(); });
              QTest::keyClick(&window, Qt::Key_O, Qt::ControlModifier);
            }),
            0);
}

TEST_F(Program, EndsFromBehindADialogAndItsBox) {
  const std::string path = MakeDesignFile();
  EXPECT_EQ(Run([&](frmHalvorneMain& window) {
              OpenByKey(window, path);
              script.ExpectForm("frmSizeEntry", [&](QWidget& /*dialog*/) {
                const Command command;
                script.ExpectForm("MsgBox", [&](QWidget& /*box*/) { window.close(); });
                messages().Show({.title = "T", .text = "x"});
              });
              window.findChild<QAction*>(QStringLiteral("mnuInputSz"))->trigger();
            }),
            0);
}

TEST_F(Program, EndsWithItsHelpWindow) {
  EXPECT_EQ(Run([](frmHalvorneMain& window) {
              QTest::keyClick(&window, Qt::Key_F1);
              ASSERT_NE(Shown("frmHelp"), nullptr);
              window.close();
            }),
            0);
  EXPECT_EQ(Shown("frmHelp"), nullptr);
}

TEST_F(Program, StartsThoughItsStartUpWindowWasClosed) {
  QTimer::singleShot(100, &script, [] {
    QWidget* const startup = Shown("frmStartup");
    ASSERT_NE(startup, nullptr);
    startup->close();
  });
  EXPECT_EQ(Run([](frmHalvorneMain& window) { window.close(); }), 0);
}

TEST_F(Program, StartsInAnEmptyFolderAndTellsWhatIsMissing) {
  for (const auto& entry : std::filesystem::directory_iterator(Folder())) {
    std::filesystem::remove_all(entry.path());
  }
  const ExpectedBox database{
      .title = "Halvorne", .text = "Database file doesn't exist!", .icon = QMessageBox::Critical};
  script.ExpectForm("MsgBox", [](QWidget& box) {
    EXPECT_EQ(box.windowTitle(), QStringLiteral("   Missing File!"));
    EXPECT_EQ(Shown("frmStartup"), nullptr) << "the start-up window stands beside the first box";
    box.close();
  });
  script.Expect(database);
  script.Expect(database);
  script.Expect(FailureBox("ERROR in ReadHalvorneSetup of FILES", "Error: 53. File not found"));
  EXPECT_EQ(Run([](frmHalvorneMain& window) {
              EXPECT_EQ(window.windowTitle(), QStringLiteral("Halvorne: Untitled"));
              window.close();
            }),
            0);
}

TEST_F(Program, OpensTheDesignItIsStartedWith) {
  design_ = MakeDesignFile();
  EXPECT_EQ(Run([&](frmHalvorneMain& window) {
              EXPECT_TRUE(QTest::qWaitFor([] { return plot.DesignOpen; }));
              EXPECT_EQ(window.windowTitle().toStdString(), "Halvorne: " + design_);
              window.close();
            }),
            0);
}

TEST_F(Program, TellsThatItsFolderCannotBeMadeAndGoesOnWithWhatIsInstalled) {
  shipped_ = Folder() / "installed";
  std::filesystem::create_directory(shipped_);
  for (const char* part : {"HALVORNESETUP", "Database", "HALVORNE.HLP", "DATA"}) {
    std::filesystem::rename(Folder() / part, shipped_ / part);
  }
  std::ofstream(Folder() / "file") << "in the way";
  script.ExpectForm("MsgBox", [&](QWidget& box) {
    EXPECT_TRUE(static_cast<QMessageBox&>(box).text().contains(
        QStringLiteral("cannot be made, so that no settings are kept")));
    box.close();
  });
  QTimer end;
  QObject::connect(&end, &QTimer::timeout, [] {
    QWidget* const window = Shown("frmHalvorneMain");
    if (window != nullptr && window->isActiveWindow()) {
      window->close();
    }
  });
  end.start(20);
  EXPECT_EQ(RunProgram({.folder = Folder() / "file" / "halvorne", .shipped = shipped_}), 0);
  EXPECT_EQ(ProgramFolder(), shipped_);
}

TEST_F(Program, TakesNoDroppedFileBehindABox) {
  const std::string path = MakeDesignFile();
  EXPECT_EQ(Run([&](frmHalvorneMain& window) {
              script.ExpectForm("frmAbout", [&](QWidget& about) {
                QMimeData data;
                data.setUrls({QUrl::fromLocalFile(QString::fromStdString(path))});
                QDragEnterEvent enter({9, 9}, Qt::CopyAction, &data, Qt::LeftButton, {});
                QCoreApplication::sendEvent(&window, &enter);
                EXPECT_FALSE(enter.isAccepted());
                about.close();
              });
              window.findChild<QAction*>(QStringLiteral("mnuHelpItem(3)"))->trigger();
              window.close();
            }),
            0);
}

}  // namespace
}  // namespace halvorne::testing
