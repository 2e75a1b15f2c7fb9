#include "studies/chart_frame.h"

#include <QBuffer>
#include <cmath>

#include "platform/qt/picture_font.h"
#include "quantities/refusals.h"

namespace halvorne::studies {
namespace {

constexpr QSize kSize(1000, 620);
constexpr QRectF kBox(95, 74, 875, 468);
constexpr int kTextPixels = 15;
constexpr int kTitlePixels = 18;
constexpr double kTick = 6;
constexpr QColor kGrid(225, 225, 225);

/// A step of 1, 2 or 5 times a power of ten that cuts a length into about that many pieces.
double RoundStep(double length, double pieces) {
  const double raw = length / pieces;
  const double power = std::pow(10, std::floor(std::log10(raw)));
  const double digit = raw / power;
  return power * (digit < 1.5 ? 1 : digit < 3.5 ? 2 : digit < 7.5 ? 5 : 10);
}

QFont Font(int pixels) {
  QFont font = PictureFont();
  font.setPixelSize(pixels);
  return font;
}

}  // namespace

ChartFrame::ChartFrame(const QString& title, const AxisOf& x, Span xSpan, const AxisOf& y,
                       Span ySpan)
    : image_(kSize, QImage::Format_RGB32), x_(xSpan), y_(ySpan), legendEnd_(kBox.left()) {
  image_.fill(Qt::white);
  painter_.begin(&image_);
  painter_.setRenderHint(QPainter::Antialiasing);
  painter_.setFont(Font(kTitlePixels));
  painter_.drawText(QRectF(kBox.left(), 8, kBox.width(), 30), Qt::AlignLeft | Qt::AlignVCenter,
                    title);
  painter_.setFont(Font(kTextPixels));
  DrawAxis(x, xSpan, true);
  DrawAxis(y, ySpan, false);
  painter_.setPen(Qt::black);
  painter_.drawRect(kBox);
}

QRectF ChartFrame::Box() const {
  return kBox;
}

QPointF ChartFrame::At(double x, double y) const {
  return {kBox.left() + (x - x_.from) / (x_.to - x_.from) * kBox.width(),
          kBox.bottom() - (y - y_.from) / (y_.to - y_.from) * kBox.height()};
}

void ChartFrame::DrawAxis(const AxisOf& axis, Span span, bool horizontal) {
  constexpr double pieces = 7;
  const double step = RoundStep((span.to - span.from) / axis.unit, pieces) * axis.unit;
  const double first = std::ceil(span.from / step - 1e-9);
  for (double k = first; k * step <= span.to + 1e-9 * step; ++k) {
    const QPointF at = horizontal ? At(k * step, y_.from) : At(x_.from, k * step);
    const QPointF far = horizontal ? At(k * step, y_.to) : At(x_.to, k * step);
    painter_.setPen(kGrid);
    painter_.drawLine(at, far);
    painter_.setPen(Qt::black);
    // A step times a whole number would show its rounding.
    const QString text = QString::number(k == 0 ? 0 : k * step / axis.unit, 'g', 6);
    if (horizontal) {
      painter_.drawText(QRectF(at.x() - 60, at.y() + kTick, 120, 22),
                        Qt::AlignHCenter | Qt::AlignTop, text);
    } else {
      painter_.drawText(QRectF(at.x() - 75 - kTick, at.y() - 11, 75, 22),
                        Qt::AlignRight | Qt::AlignVCenter, text);
    }
  }
  if (horizontal) {
    painter_.drawText(QRectF(kBox.left(), kBox.bottom() + 34, kBox.width(), 26), Qt::AlignCenter,
                      axis.label);
    return;
  }
  painter_.save();
  painter_.translate(16, kBox.center().y());
  painter_.rotate(-90);
  painter_.drawText(QRectF(-kBox.height() / 2, -13, kBox.height(), 26), Qt::AlignCenter,
                    axis.label);
  painter_.restore();
}

void ChartFrame::AddLegend(const QString& name, const QColor& colour, bool filled) {
  constexpr double sample = 26;
  constexpr double middle = 54;
  painter_.save();
  painter_.setPen(QPen(colour, 2));
  if (filled) {
    painter_.fillRect(QRectF(legendEnd_, middle - 6, sample, 12), colour);
  } else {
    painter_.drawLine(QPointF(legendEnd_, middle), QPointF(legendEnd_ + sample, middle));
  }
  painter_.setPen(Qt::black);
  const double width = painter_.fontMetrics().horizontalAdvance(name);
  painter_.drawText(QRectF(legendEnd_ + sample + 7, middle - 12, width + 4, 24),
                    Qt::AlignLeft | Qt::AlignVCenter, name);
  painter_.restore();
  legendEnd_ += sample + width + 32;
}

QByteArray ChartFrame::Png() {
  painter_.end();
  QBuffer buffer;
  buffer.open(QIODevice::WriteOnly);
  if (!image_.save(&buffer, "PNG")) {
    throw NotPossible("a picture could not be encoded");
  }
  return buffer.data();
}

}  // namespace halvorne::studies
