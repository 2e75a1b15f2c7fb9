#include <QImage>
#include <QPainter>

#include "dense_line.h"
#include "platform/qt/picture_surface.h"
#include "plot/graph.h"
#include "plot/trace.h"
#include "quiet_program.h"
#include "subjects.h"
#include "timedomain/plot_points.h"

namespace halvorne::bench {
namespace {

void OnePolyline(benchmark::State& state) {
  DenseLine line;
  for ([[maybe_unused]] auto once : state) {
    line.DrawOnce();
  }
}

void DrawWaveform(Surface& picture, double PlotPoint::*channel, Colour colour) {
  picture.SetForeColor(colour);
  DrawTrace(picture, {.array = points.PlotData,
                      .channel = channel,
                      .intervals = kDenseSamples - 1,
                      .min = -1,
                      .max = 1});
}

/// The main picture emptied, drawn anew with its axes and both traces, and shown.
void Redraw(benchmark::State& state) {
  SetDenseWaveforms();
  PictureSurface picture(SurfaceKind::kMainPicture);
  picture.SetSize(kDensePicture, 1);
  QImage window(kDensePicture, QImage::Format_RGB32);
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
  return {{"redraw, 2 x 65536", 0.5, 0.08, OnePolyline, Redraw}};
}

}  // namespace halvorne::bench
