#include <QApplication>
#include <QFile>
#include <cstdio>

#include "shell/program.h"

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  // The toolkit has taken its own options out; what is left is the design that a desktop hands
  // over.
  if (argc > 2 || (argc == 2 && *argv[1] == '-')) {
    std::fputs("usage: halvorne [DESIGN.dat]\n", stderr);
    return 2;
  }
  const QString folder = QCoreApplication::applicationDirPath();
  const std::string design = argc == 2 ? halvorne::DesignNamedAtStart(argv[1]) : "";
  return halvorne::RunProgram(halvorne::FindProgramPlace(QFile::encodeName(folder).toStdString()),
                              design);
}
