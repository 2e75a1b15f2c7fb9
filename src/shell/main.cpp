#include <QApplication>
#include <QFile>

#include "shell/program.h"

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  const QString folder = QCoreApplication::applicationDirPath();
  return halvorne::RunProgram(QFile::encodeName(folder).toStdString());
}
