#pragma once

#include <string>

// Scales set by hand: by the numbers of a dialog, or by a rectangle drawn in the graph.

namespace halvorne {

/// Ends of the amplitude axes in the units of their texts, that is divided by LeftMag and RightMag.
struct AmplitudeEnds {
  double leftMax, leftMin, rightMax, rightMin;
};

/// A rectangle in the box of the graph, in box units. A side on the box's own edge is not cut.
struct BoxRectangle {
  double left = 0, right = 10;
  double bottom = 0, top = 10;
};

// What an entry becomes once it counts. Failures go up to the caller; what was set by then stays.

/// Sets both amplitude scales. Two equal ends are parted: the top rises by 1 in plotted units.
void TakeManualAmplitude(const AmplitudeEnds& ends);
/// Sets the time window, ends in any order and sign, kept within the record and moved to whole
/// samples.
/// @param lower, upper  in TimeUnit
void TakeManualTimeWindow(double lower, double upper);
/// Sets the frequency window, ends in any order and sign, kept within the sweep and moved to its
/// points.
/// @param lower, upper  in FreqUnit
void TakeManualFrequencyWindow(double lower, double upper);

/// Shows the rectangle's part of the graph in the whole box, as the same numbers entered by hand
/// would: the amplitudes to the thousandth that the axis texts tell, the window to points, at least
/// one interval. A rectangle as high, or as wide, as the box leaves that scale as it is.
void ZoomTo(const BoxRectangle& rectangle);

/// What ZoomTo would make of a rectangle, in words: "2.000 to 4.500 MHz, 10.000 to 20.000 KOhms".
std::string RectangleText(const BoxRectangle& rectangle);

/// All scales of the plot on show automatic again.
void AutomaticScales();
/// Whether one of them was set by hand.
bool ScaledByHand();

}  // namespace halvorne
