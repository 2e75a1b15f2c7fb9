#include "shell/program.h"

#include <QApplication>
#include <csignal>
#include <memory>

#include "platform/paths.h"
#include "platform/qt/help_viewer.h"
#include "platform/qt/message_boxes.h"
#include "shell/frm_halvorne_main.h"
#include "shell/frm_startup.h"

namespace halvorne {

int RunProgram(const std::filesystem::path& folder) {
#ifdef SIGXFSZ
  std::signal(SIGXFSZ, SIG_IGN);  // a file that may not grow fails its writer, not the program
#endif
  QApplication::setApplicationName(QStringLiteral("Halvorne"));
  QApplication::setQuitOnLastWindowClosed(false);  // the start-up window is not the program
  SetProgramFolder(folder);
  MessageBoxes boxes;
  SetMessages(&boxes);

  std::unique_ptr<frmHalvorneMain> window;
  auto startup = std::make_unique<frmStartup>([&window] {
    window = std::make_unique<frmHalvorneMain>();
    window->show();
    QApplication::setQuitOnLastWindowClosed(true);
  });
  startup->Form_Load();
  startup.reset();
  const int status = window != nullptr ? QApplication::exec() : EXIT_FAILURE;
  EndHelp();
  window.reset();
  SetMessages(nullptr);
  return status;
}

}  // namespace halvorne
