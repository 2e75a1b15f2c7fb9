#include "studies/chart.h"

#include <QPolygonF>
#include <algorithm>
#include <cmath>
#include <limits>

#include "studies/chart_frame.h"

namespace halvorne::studies {
namespace {

constexpr QColor kBand(170, 201, 234);
constexpr QColor kMiddle(0, 70, 150);
constexpr QColor kOwn(205, 90, 0);
constexpr QColor kLimit(180, 0, 0);
constexpr QColor kBars(116, 160, 208);

/// A span that holds the finite ones of all values, with some room on both sides.
/// @param longest  of what lies further below the top nothing is shown
Span SpanOf(std::initializer_list<const std::vector<double>*> curves,
            double longest = std::numeric_limits<double>::infinity()) {
  Span span{std::numeric_limits<double>::infinity(), -std::numeric_limits<double>::infinity()};
  for (const auto* curve : curves) {
    for (const double value : *curve) {
      if (std::isfinite(value)) {
        span = {std::min(span.from, value), std::max(span.to, value)};
      }
    }
  }
  if (span.from > span.to) {
    return {0, 1};
  }
  span.from = std::max(span.from, span.to - longest);
  const double room = span.to > span.from ? 0.04 * (span.to - span.from)
                      : span.to != 0      ? 0.1 * std::abs(span.to)
                                          : 1;
  return {span.from - room, span.to + room};
}

/// The pieces of a curve between which there is nothing.
template <class Draw>
void DrawPieces(const ChartFrame& frame, const std::vector<double>& x, const std::vector<double>& y,
                Draw draw) {
  QPolygonF piece;
  for (std::size_t k = 0; k < x.size(); ++k) {
    if (std::isfinite(y[k])) {
      piece << frame.At(x[k], y[k]);
    } else {
      draw(piece);
      piece.clear();
    }
  }
  draw(piece);
}

void DrawCurve(ChartFrame& frame, const std::vector<double>& x, const std::vector<double>& y,
               const QPen& pen) {
  frame.Painter().setPen(pen);
  DrawPieces(frame, x, y, [&](const QPolygonF& piece) { frame.Painter().drawPolyline(piece); });
}

/// Between two points of which both have the band.
void DrawBand(ChartFrame& frame, const BandChart& chart) {
  QPolygonF above;
  QPolygonF below;
  const auto fill = [&] {
    std::ranges::reverse(below);
    frame.Painter().setPen(Qt::NoPen);
    frame.Painter().setBrush(kBand);
    frame.Painter().drawPolygon(above + below);
    frame.Painter().setBrush(Qt::NoBrush);
    above.clear();
    below.clear();
  };
  for (std::size_t k = 0; k < chart.abscissae.size(); ++k) {
    if (std::isfinite(chart.lower[k]) && std::isfinite(chart.upper[k])) {
      above << frame.At(chart.abscissae[k], chart.upper[k]);
      below << frame.At(chart.abscissae[k], chart.lower[k]);
    } else {
      fill();
    }
  }
  fill();
}

void DrawUpright(ChartFrame& frame, double x, const QColor& colour, Qt::PenStyle style) {
  const double at = frame.At(x, 0).x();
  frame.Painter().setPen(QPen(colour, 2, style));
  frame.Painter().drawLine(QPointF(at, frame.Box().top()), QPointF(at, frame.Box().bottom()));
}

std::vector<double> MarksOf(const HistogramChart& chart) {
  const Histogram& histogram = chart.histogram;
  std::vector<double> marks{chart.own};
  if (!histogram.counts.empty()) {
    const auto bins = static_cast<double>(histogram.counts.size());
    marks.insert(marks.end(), {histogram.from, histogram.from + bins * histogram.width});
  }
  for (const auto& limit : {chart.atLeast, chart.atMost}) {
    if (limit) {
      marks.push_back(*limit);
    }
  }
  return marks;
}

}  // namespace

QByteArray PictureOf(const BandChart& chart) {
  const Span ySpan = SpanOf({&chart.lower, &chart.upper, &chart.middle, &chart.own},
                            chart.span.value_or(std::numeric_limits<double>::infinity()));
  ChartFrame frame(chart.title, chart.x, {chart.abscissae.front(), chart.abscissae.back()}, chart.y,
                   ySpan);
  frame.AddLegend(chart.bandName, kBand, true);
  frame.AddLegend(QStringLiteral("median"), kMiddle, false);
  frame.AddLegend(QStringLiteral("as designed"), kOwn, false);
  frame.Painter().setClipRect(frame.Box());
  DrawBand(frame, chart);
  DrawCurve(frame, chart.abscissae, chart.middle, QPen(kMiddle, 2));
  DrawCurve(frame, chart.abscissae, chart.own, QPen(kOwn, 1.5, Qt::DashLine));
  return frame.Png();
}

QByteArray PictureOf(const HistogramChart& chart) {
  const Histogram& histogram = chart.histogram;
  const std::vector<double> marks = MarksOf(chart);
  const double most =
      histogram.counts.empty() ? 1 : static_cast<double>(std::ranges::max(histogram.counts));
  const Span xSpan = SpanOf({&marks});
  ChartFrame frame(chart.title, chart.x, xSpan, {QStringLiteral("Runs")}, {0, most * 1.05});
  const double width = histogram.width > 0 ? histogram.width : (xSpan.to - xSpan.from) / 40;
  frame.Painter().setPen(QPen(Qt::white, 1));
  for (std::size_t k = 0; k < histogram.counts.size(); ++k) {
    const double from = histogram.width > 0 ? histogram.from + static_cast<double>(k) * width
                                            : histogram.from - width / 2;
    frame.Painter().setBrush(kBars);
    frame.Painter().drawRect(QRectF(frame.At(from, static_cast<double>(histogram.counts[k])),
                                    frame.At(from + width, 0)));
  }
  if (std::isfinite(chart.own)) {
    DrawUpright(frame, chart.own, kOwn, Qt::DashLine);
    frame.AddLegend(QStringLiteral("as designed"), kOwn, false);
  }
  for (const auto& limit : {chart.atLeast, chart.atMost}) {
    if (limit) {
      DrawUpright(frame, *limit, kLimit, Qt::SolidLine);
    }
  }
  if (chart.atLeast || chart.atMost) {
    frame.AddLegend(QStringLiteral("limit"), kLimit, false);
  }
  return frame.Png();
}

}  // namespace halvorne::studies
