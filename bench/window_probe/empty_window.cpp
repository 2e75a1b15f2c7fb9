#include <QApplication>
#include <QWidget>

// The least that a program with a window can be: what the desktop program's start and memory are
// measured against.

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QWidget window;
  window.resize(1024, 768);
  window.show();
  return QApplication::exec();
}
