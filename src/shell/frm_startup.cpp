#include "shell/frm_startup.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QFontMetricsF>
#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <QScreen>
#include <QTime>
#include <QTimer>
#include <cmath>

#include "platform/failure.h"
#include "platform/paths.h"

namespace halvorne {
namespace {

/// Lets events run, for a few milliseconds at most.
void DoEvents() {
  QTimer wake;
  wake.start(10);
  QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

/// A pulse: three cycles under a bell.
QPainterPath PulsePath(const QRectF& place) {
  QPainterPath path;
  constexpr int steps = 160;
  for (int i = 0; i <= steps; ++i) {
    const double t = 2.0 * i / steps - 1;
    const double y = std::exp(-7 * t * t) * std::cos(22 * t);
    const QPointF point(place.left() + place.width() * i / steps,
                        place.center().y() - y * place.height() / 2);
    i == 0 ? path.moveTo(point) : path.lineTo(point);
  }
  return path;
}

}  // namespace

float Timer() {
  return static_cast<float>(QTime::currentTime().msecsSinceStartOfDay()) / 1000.0F;
}

bool PauseIsOver(float start, float pause, float now) {
  return start + pause <= now;
}

frmStartup::frmStartup(std::function<void()> showMain)
    : QWidget(nullptr, Qt::SplashScreen | Qt::FramelessWindowHint), showMain_(std::move(showMain)) {
  setObjectName(QStringLiteral("frmStartup"));
  setWindowTitle(QStringLiteral("Halvorne"));
  setFixedSize(460, 250);
}

void frmStartup::Form_Load() try {
  const QRect area = screen()->geometry();
  move(area.x() + area.width() / 2 - width() / 2, area.y() + area.height() / 2 - height() / 2);
  show();
  setCursor(Qt::WaitCursor);
  PauseTime = 1.0F;
  Start = Timer();
  while (!PauseIsOver(Start, PauseTime, Timer())) {
    DoEvents();
  }
  ConnectString = "Provider=Microsoft.Jet.OLEDB.4.0;Data Source=" + ProgramFolder().string() +
                  "\\database\\pzmatls.mdb;";
  unsetCursor();
  showMain_();
} catch (...) {
  ReportFailure("Form_Load", "frmStartup");
}

void frmStartup::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  QLinearGradient ground(0, 0, 0, height());
  ground.setColorAt(0, QColor(0x12, 0x39, 0x4b));
  ground.setColorAt(1, QColor(0x0b, 0x22, 0x2e));
  painter.fillRect(rect(), ground);

  // The stack: backing, two layers, two plates, and the wave that leaves it.
  const QRectF stack(36, 92, 12, 64);
  const QColor layers[] = {QColor(0x3c, 0x5a, 0x68), QColor(0xf2, 0xb5, 0x44),
                           QColor(0xe0, 0x9f, 0x2e), QColor(0x6f, 0xb7, 0xc7),
                           QColor(0x9c, 0xcf, 0xd8)};
  const double widths[] = {26, 14, 14, 7, 7};
  double left = stack.left();
  for (int i = 0; i < 5; ++i) {
    painter.fillRect(QRectF(left, stack.top(), widths[i], stack.height()), layers[i]);
    left += widths[i];
  }
  painter.setPen(QPen(QColor(0x9c, 0xcf, 0xd8), 2));
  painter.drawPath(PulsePath(QRectF(left + 16, stack.top() - 4, 290, stack.height() + 8)));

  QFont words = font();
  words.setPixelSize(34);
  words.setBold(true);
  painter.setFont(words);
  painter.setPen(Qt::white);
  painter.drawText(QRectF(36, 24, 400, 48), Qt::AlignLeft | Qt::AlignVCenter,
                   QStringLiteral("Halvorne"));
  words.setPixelSize(14);
  words.setBold(false);
  painter.setFont(words);
  painter.setPen(QColor(0xc8, 0xdd, 0xe4));
  painter.drawText(QRectF(36, 182, 400, 24), Qt::AlignLeft | Qt::AlignVCenter,
                   QStringLiteral("Design of ultrasonic piezoelectric transducers"));
}

}  // namespace halvorne
