#include <QApplication>
#include <QImage>
#include <QPainter>
#include <QWidget>

#include "timed_work.h"

// Work right behind the painting of a window: halvorne-bench-painted-work NAME.

namespace {

class Picture final : public QWidget {
 protected:
  void paintEvent(QPaintEvent* /*event*/) override {
    QImage image(size(), QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter(this).drawImage(0, 0, image);
  }
};

}  // namespace

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  Picture window;
  window.resize(1024, 768);
  window.show();
  QApplication::processEvents();
  halvorne::bench::PrintTimeOf(argc == 2 ? argv[1] : "", [&window] { window.repaint(); });
}
