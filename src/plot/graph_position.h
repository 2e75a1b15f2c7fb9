#pragma once

#include <cstdint>
#include <string>

#include "platform/surface.h"

// Places in the graph that the cursor stands in: the single one, or the response of an excitation
// plot. Failures go up to the caller.

namespace halvorne {

/// Logical coordinates of a place in the main picture.
/// @param across, down  shares of the picture's width and height from its top left corner, 0 to 1
Point GraphPlace(double across, double down);

/// The same the other way round: shares of the picture's width and height, as x and y.
Point PictureShares(const Point& place);

/// True within the box, edges included.
bool InBox(const Point& place);

/// x in box units of a point, which may be a fraction or lie outside the window shown. A window of
/// a single point is failure 11.
double BoxX(double point);

/// The point of the window shown that is nearest to an x in box units.
std::int32_t PointAt(double x);

/// Frequency or time of a point in the unit of the x axis. Failure 11 as BoxX.
double DisplayPosition(std::int32_t point);

/// Unit of the x axis: FreqUnit or TimeUnit.
const std::string& PositionUnit();

}  // namespace halvorne
