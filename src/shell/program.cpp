#include "shell/program.h"

#include <QApplication>
#include <QTimer>
#include <csignal>
#include <exception>
#include <filesystem>
#include <memory>
#include <system_error>

#include "platform/paths.h"
#include "platform/qt/help_viewer.h"
#include "platform/qt/message_boxes.h"
#include "shell/frm_halvorne_main.h"
#include "shell/frm_startup.h"
#include "shell/patient_style.h"

namespace halvorne {
namespace {

/// The folder that the program works in: without one of the user's own, what it was installed with,
/// of which all can be read and nothing written.
std::filesystem::path WorkingFolder(const ProgramPlace& place) {
  try {
    FillProgramFolder(place);
    return place.folder;
  } catch (const std::exception& failed) {
    messages().Show({.title = "Halvorne",
                     .text = "The program's folder " + place.folder.string() +
                             " cannot be made, so that no settings are kept.\r\n" + failed.what(),
                     .icon = MessageIcon::kExclamation});
    return place.shipped;
  }
}

}  // namespace

std::string DesignNamedAtStart(const char* word) {
  std::error_code failed;
  const std::filesystem::path path = std::filesystem::absolute(word, failed);
  return failed ? word : path.string();
}

int RunProgram(const ProgramPlace& place, const std::string& design) {
#ifdef SIGXFSZ
  std::signal(SIGXFSZ, SIG_IGN);  // a file that may not grow fails its writer, not the program
#endif
  QApplication::setApplicationName(QStringLiteral("Halvorne"));
  QApplication::setStyle(new PatientStyle);
  QApplication::setQuitOnLastWindowClosed(false);  // the start-up window is not the program
  QGuiApplication::setDesktopFileName(QStringLiteral("org.halvorne.halvorne"));
  MessageBoxes boxes;
  SetMessages(&boxes);
  SetProgramFolder(WorkingFolder(place));

  std::unique_ptr<frmHalvorneMain> window;
  auto startup = std::make_unique<frmStartup>([&window] {
    window = std::make_unique<frmHalvorneMain>();
    window->show();
    QApplication::setQuitOnLastWindowClosed(true);
  });
  startup->Form_Load();
  startup.reset();
  if (window != nullptr && !design.empty()) {
    QTimer::singleShot(0, window.get(), [&window, &design] {
      const Command command;
      window->OpenDesign(design);
    });
  }
  const int status = window != nullptr ? QApplication::exec() : EXIT_FAILURE;
  EndHelp();
  window.reset();
  SetMessages(nullptr);
  return status;
}

}  // namespace halvorne
