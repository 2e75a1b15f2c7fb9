#include <QApplication>
#include <QFile>
#include <memory>

#include "platform/paths.h"
#include "platform/qt/message_boxes.h"
#include "shell/frm_halvorne_main.h"
#include "shell/frm_startup.h"

int main(int argc, char** argv) {
  using namespace halvorne;
  QApplication application(argc, argv);
  QApplication::setApplicationName(QStringLiteral("Halvorne"));
  QApplication::setQuitOnLastWindowClosed(false);  // the start-up window is not the program
  SetProgramFolder(QFile::encodeName(QCoreApplication::applicationDirPath()).toStdString());
  MessageBoxes boxes;
  SetMessages(&boxes);

  std::unique_ptr<frmHalvorneMain> window;
  auto* const startup = new frmStartup([&window] {
    window = std::make_unique<frmHalvorneMain>();
    window->show();
    QApplication::setQuitOnLastWindowClosed(true);
  });
  startup->Form_Load();
  const int status = QApplication::exec();
  window.reset();
  SetMessages(nullptr);
  return status;
}
