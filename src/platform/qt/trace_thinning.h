#pragma once

#include <QPolygonF>
#include <span>

#include "platform/surface.h"

namespace halvorne {

/// Straight mapping of logical to painter coordinates: each axis a factor and an offset.
struct AxisMap {
  double factor = 1;
  double offset = 0;
  double operator()(double value) const { return value * factor + offset; }
};

/// Maps a trace to painter coordinates with at most four points in a row in the same column: the
/// first, the lowest, the highest and the last, in the order in which they came. That covers the
/// same pixels as all of them, at a cost that does not grow with the number of points.
///
/// @param points          the trace in logical coordinates, in any order of x
/// @param x,y             mapping to painter coordinates
/// @param columnsPerUnit  columns in a painter unit: the device pixels that a column stands for
QPolygonF ThinTrace(std::span<const Point> points, AxisMap x, AxisMap y, double columnsPerUnit);

/// Sum of the horizontal and vertical ways along a polyline: the number of pixels it takes to draw.
double TravelOf(const QPolygonF& line);

}  // namespace halvorne
