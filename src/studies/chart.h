#pragma once

#include <QByteArray>
#include <QString>
#include <optional>
#include <vector>

#include "statistics/sample.h"

namespace halvorne::studies {

/// A quantity along an axis.
struct AxisOf {
  QString label;
  double unit = 1;  ///< values are shown divided by it
};

/// Curves over one abscissa: a band, the line in its middle and the design's own; NaN where there
/// is none.
struct BandChart {
  QString title;
  AxisOf x;
  AxisOf y;
  std::vector<double> abscissae;
  std::vector<double> lower;
  std::vector<double> middle;
  std::vector<double> upper;
  std::vector<double> own;
  QString bandName;
  /// Span of the ordinate below its top, of logarithmic plots; none: all that is there.
  std::optional<double> span;
};

/// Counts of a measure, with its limits.
struct HistogramChart {
  QString title;
  AxisOf x;
  Histogram histogram;
  std::optional<double> atLeast;
  std::optional<double> atMost;
  double own = 0;  ///< NaN for none
};

/// The picture of a chart as the bytes of a PNG file of 1000 x 620 pixels.
QByteArray PictureOf(const BandChart& chart);
QByteArray PictureOf(const HistogramChart& chart);

}  // namespace halvorne::studies
