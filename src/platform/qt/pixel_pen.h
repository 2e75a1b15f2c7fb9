#pragma once

#include <QImage>
#include <QPolygonF>

namespace halvorne {

/// Paints a polyline into an image with a pen of one pixel, unsmoothed and opaque: the very pixels
/// that the toolkit's painter sets with such a pen and square caps, at a fraction of its time,
/// which goes into blending each pixel with what it covers.
///
/// @param line  in pixels of the image
/// @return false, with nothing painted, where only the painter knows what to do: on an image that
///         does not hold 32 bits for a pixel, for a line that leaves it, closes or has no length
bool PaintWithPixelPen(QImage& image, const QPolygonF& line, QRgb colour);

}  // namespace halvorne
