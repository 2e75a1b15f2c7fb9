#include <QImage>
#include <QPainter>
#include <QPolygonF>
#include <cmath>

#include "platform/qt/picture_surface.h"
#include "plot/graph.h"
#include "plot/trace.h"
#include "quiet_program.h"
#include "subjects.h"
#include "timedomain/plot_points.h"

namespace halvorne::bench {
namespace {

constexpr int kSamples = 65536;
constexpr QSize kPictureSize(1200, 800);

/// Two dense waveforms with slowly changing amplitudes: hundreds of cycles in every inch.
void SetWaveforms() {
  for (int i = 0; i < kSamples; ++i) {
    const double x = static_cast<double>(i) / kSamples;
    points.PlotData(i) = {(1 - 0.7 * x) * std::sin(0.3 * i), (0.2 + 0.6 * x) * std::cos(0.37 * i)};
  }
}

QImage EmptyImage() {
  QImage image(kPictureSize, QImage::Format_RGB32);
  image.fill(Qt::white);
  return image;
}

/// The points of both traces where the picture below has them.
QPolygonF PointsOfBothTraces() {
  QPolygonF line;
  for (double PlotPoint::*const channel : {&PlotPoint::Y1, &PlotPoint::Y2}) {
    for (int i = 0; i < kSamples; ++i) {
      const double x = 10.0 * i / (kSamples - 1);
      const double y = (points.PlotData(i).*channel + 1) * 5;
      line.append({(x + 2) / 14 * kPictureSize.width(), (11 - y) / 13 * kPictureSize.height()});
    }
  }
  return line;
}

void OnePolyline(benchmark::State& state) {
  SetWaveforms();
  const QPolygonF line = PointsOfBothTraces();
  QImage image = EmptyImage();
  for ([[maybe_unused]] auto once : state) {
    QPainter painter(&image);
    painter.drawPolyline(line);
  }
}

void DrawWaveform(Surface& picture, double PlotPoint::*channel, Colour colour) {
  picture.SetForeColor(colour);
  DrawTrace(picture, {.array = points.PlotData,
                      .channel = channel,
                      .intervals = kSamples - 1,
                      .min = -1,
                      .max = 1});
}

/// The main picture emptied, drawn anew with its axes and both traces, and shown.
void Redraw(benchmark::State& state) {
  SetWaveforms();
  PictureSurface picture(SurfaceKind::kMainPicture);
  picture.SetSize(kPictureSize, 1);
  QImage window = EmptyImage();
  for ([[maybe_unused]] auto once : state) {
    picture.Cls();
    picture.Scale(-2, 11, 12, -2);
    AxisDrawOn(picture);
    DrawWaveform(picture, &PlotPoint::Y1, kBlack);
    DrawWaveform(picture, &PlotPoint::Y2, kBlue);
    QPainter painter(&window);
    picture.PaintOn(painter, window.rect());
  }
  CheckQuiet(state);
}

}  // namespace

std::vector<Row> RedrawRows() {
  return {{"redraw, 2 x 65536", 0.5, 0.1, OnePolyline, Redraw}};
}

}  // namespace halvorne::bench
