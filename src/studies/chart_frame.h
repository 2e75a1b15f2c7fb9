#pragma once

#include <QImage>
#include <QPainter>
#include <QString>

#include "studies/chart.h"

namespace halvorne::studies {

/// The ends of an axis.
struct Span {
  double from;
  double to;
};

/// A white picture with a frame, two axes with round numbers and a title; curves are drawn into it
/// in the units of the axes.
class ChartFrame {
 public:
  ChartFrame(const QString& title, const AxisOf& x, Span xSpan, const AxisOf& y, Span ySpan);

  QPainter& Painter() { return painter_; }
  QPointF At(double x, double y) const;
  QRectF Box() const;
  /// Names what a colour stands for, one beside the other below the title.
  void AddLegend(const QString& name, const QColor& colour, bool filled);

  /// Ends the picture. Raises NotPossible when it cannot be encoded.
  QByteArray Png();

 private:
  void DrawAxis(const AxisOf& axis, Span span, bool horizontal);

  QImage image_;
  QPainter painter_;
  Span x_;
  Span y_;
  double legendEnd_;
};

}  // namespace halvorne::studies
