#include "dense_line.h"

#include <QPainter>
#include <cmath>

#include "timedomain/plot_points.h"

namespace halvorne::bench {

void SetDenseWaveforms() {
  for (int i = 0; i < kDenseSamples; ++i) {
    const double x = static_cast<double>(i) / kDenseSamples;
    points.PlotData(i) = {(1 - 0.7 * x) * std::sin(0.3 * i), (0.2 + 0.6 * x) * std::cos(0.37 * i)};
  }
}

DenseLine::DenseLine() : image_(kDensePicture, QImage::Format_RGB32) {
  image_.fill(Qt::white);
  SetDenseWaveforms();
  for (double PlotPoint::*const channel : {&PlotPoint::Y1, &PlotPoint::Y2}) {
    for (int i = 0; i < kDenseSamples; ++i) {
      const double x = 10.0 * i / (kDenseSamples - 1);
      const double y = (points.PlotData(i).*channel + 1) * 5;
      line_.append({(x + 2) / 14 * kDensePicture.width(), (11 - y) / 13 * kDensePicture.height()});
    }
  }
}

void DenseLine::DrawOnce() {
  QPainter painter(&image_);
  painter.drawPolyline(line_);
}

}  // namespace halvorne::bench
