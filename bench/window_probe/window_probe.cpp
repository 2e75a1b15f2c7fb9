#include <QAction>
#include <QApplication>
#include <QDropEvent>
#include <QElapsedTimer>
#include <QFile>
#include <QMessageBox>
#include <QMimeData>
#include <QUrl>
#include <QWidget>
#include <QWindow>
#include <cstdio>
#include <ctime>
#include <unistd.h>

// A library that is loaded in front of a program with windows (LD_PRELOAD) and watches it from
// within, so that the program is measured as it is shipped and needs no hook for it. Once the
// first window that is no splash screen has been painted it prints one line, the processor time
// since the process began in seconds, less that while a splash screen stood alone, the resident
// size in KiB, and the processor time in seconds of one step of resizing, and ends the process.
//
// With a design file named in HALVORNE_BENCH_DESIGN, the file is first dropped on the window and
// the action named in HALVORNE_BENCH_ACTION is chosen; then the window system makes the window
// larger HALVORNE_BENCH_STEPS times.

namespace {

double ProcessorSeconds() {
  timespec time{};
  clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
  return static_cast<double>(time.tv_sec) + 1e-9 * static_cast<double>(time.tv_nsec);
}

long ResidentKiB() {
  QFile file(QStringLiteral("/proc/self/statm"));
  if (!file.open(QIODevice::ReadOnly)) {
    return 0;
  }
  return file.readAll().split(' ').value(1).toLong() * (sysconf(_SC_PAGESIZE) / 1024);
}

[[noreturn]] void ReportAndEnd(double seconds, double stepSeconds) {
  std::printf("%.9f %ld %.9f\n", seconds, ResidentKiB(), stepSeconds);
  std::fflush(stdout);
  _exit(0);
}

void OpenDesign(QWidget* window, const QString& file) {
  QMimeData data;
  data.setUrls({QUrl::fromLocalFile(file)});
  const QPoint middle = window->rect().center();
  QDragEnterEvent enter(middle, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(window, &enter);
  QDropEvent drop(middle, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(window, &drop);
  if (auto* const action =
          window->findChild<QAction*>(qEnvironmentVariable("HALVORNE_BENCH_ACTION"))) {
    action->trigger();
  }
}

/// Lets the window system make the window larger, a pixel each way at a time, each size painted
/// before the next one comes.
/// @return processor time of one step in seconds; 0 without any
double Resize(QWidget* window) {
  const int steps = qEnvironmentVariableIntValue("HALVORNE_BENCH_STEPS");
  if (steps <= 0) {
    return 0;
  }
  const double start = ProcessorSeconds();
  for (int step = 0; step < steps; ++step) {
    window->windowHandle()->resize(window->size() + QSize(1, 1));
    QCoreApplication::processEvents();
    QCoreApplication::processEvents();
  }
  return (ProcessorSeconds() - start) / steps;
}

/// A message box would wait for its answer for ever: says what it says and ends the process.
class NoBoxes final : public QObject {
 public:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::Show) {
      if (const auto* const box = qobject_cast<QMessageBox*>(watched)) {
        std::fprintf(stderr, "%s: %s\n", qPrintable(box->windowTitle()), qPrintable(box->text()));
        _exit(1);
      }
    }
    return false;
  }
};

class FirstPaint final : public QObject {
 public:
  bool eventFilter(QObject* watched, QEvent* event) override {
    auto* const widget = qobject_cast<QWidget*>(watched);
    if (widget == nullptr || !widget->isWindow()) {
      return false;
    }
    const bool paint = event->type() == QEvent::Paint;
    if (widget->windowType() == Qt::SplashScreen) {
      if (paint && splashFrom_ == 0) {
        splashFrom_ = ProcessorSeconds();
      }
      return false;
    }
    if (splashFrom_ != 0 && splashTo_ == 0) {
      splashTo_ = ProcessorSeconds();
    }
    if (paint && widget->windowType() == Qt::Window) {
      QCoreApplication::instance()->removeEventFilter(this);
      window_ = widget;  // it and all in it are painted in one pass, behind which comes the timer
      startTimer(0);
    }
    return false;
  }

 protected:
  void timerEvent(QTimerEvent* /*event*/) override {
    const double seconds = ProcessorSeconds() - (splashTo_ - splashFrom_);
    const QString design = qEnvironmentVariable("HALVORNE_BENCH_DESIGN");
    if (!design.isEmpty()) {
      OpenDesign(window_, design);
      constexpr int rest = 100;  // ms, in which the plot is painted
      QElapsedTimer since;
      since.start();
      while (!since.hasExpired(rest)) {
        QCoreApplication::processEvents(QEventLoop::AllEvents, rest);
      }
    }
    ReportAndEnd(seconds, Resize(window_));
  }

 private:
  QWidget* window_ = nullptr;
  double splashFrom_ = 0;
  double splashTo_ = 0;
};

void WatchApplication() {
  QCoreApplication::instance()->installEventFilter(new FirstPaint);
  QCoreApplication::instance()->installEventFilter(new NoBoxes);
}

}  // namespace

Q_COREAPP_STARTUP_FUNCTION(WatchApplication)
