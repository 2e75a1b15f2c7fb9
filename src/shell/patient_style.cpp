#include "shell/patient_style.h"

#include <QGroupBox>
#include <QIconEngine>
#include <QPainter>
#include <QStyleOption>
#include <algorithm>

namespace halvorne {
namespace {

class AwaitedIconEngine final : public QIconEngine {
 public:
  explicit AwaitedIconEngine(const QStyle* style) : style_(style) {}

  void paint(QPainter* painter, const QRect& place, QIcon::Mode mode, QIcon::State state) override {
    Icon().paint(painter, place, Qt::AlignCenter, mode, state);
  }
  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
    return Icon().pixmap(size, mode, state);
  }
  QIconEngine* clone() const override { return new AwaitedIconEngine(*this); }

 private:
  QIcon Icon() const { return style_->standardIcon(QStyle::SP_ToolBarHorizontalExtensionButton); }

  const QStyle* style_;
};

/// A sheet with round corners below the title, a little darker than the window, or lighter on a
/// dark desktop.
void DrawGroupFrame(QPainter& painter, const QStyleOption& option, int indicatorHeight) {
  constexpr int air = 3;
  constexpr double radius = 2.5;
  constexpr int sheet = 10;  // how opaque, of 255
  constexpr int edge = 44;
  const int title = std::max(indicatorHeight, option.fontMetrics.height()) + air;
  QColor ink = option.palette.color(QPalette::WindowText);
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  ink.setAlpha(edge);
  painter.setPen(ink);
  ink.setAlpha(sheet);
  painter.setBrush(ink);
  painter.drawRoundedRect(QRectF(option.rect).adjusted(0.5, title + 0.5, -0.5, -0.5), radius,
                          radius);
  painter.restore();
}

}  // namespace

QIcon PatientStyle::standardIcon(StandardPixmap which, const QStyleOption* option,
                                 const QWidget* widget) const {
  return which == SP_ToolBarHorizontalExtensionButton
             ? QIcon(new AwaitedIconEngine(baseStyle()))
             : QProxyStyle::standardIcon(which, option, widget);
}

void PatientStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                                 QPainter* painter, const QWidget* widget) const {
  const auto* const group = qobject_cast<const QGroupBox*>(widget);
  if (element == PE_FrameGroupBox && group != nullptr && !group->title().isEmpty() &&
      baseStyle()->name() == QStringLiteral("fusion")) {
    DrawGroupFrame(*painter, *option, pixelMetric(PM_ExclusiveIndicatorHeight));
  } else {
    QProxyStyle::drawPrimitive(element, option, painter, widget);
  }
}

}  // namespace halvorne
