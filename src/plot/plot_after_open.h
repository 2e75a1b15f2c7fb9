#pragma once

namespace halvorne {

/// Shows the plot of a design that was just opened: the one on show before, which at the first
/// opening is that of the setup file, or what it fell back to where the design does not have it.
void ShowPlotAfterOpen();

/// Enables the dispersion plot of each side that has plates; without plates a dispersion plot on
/// show falls back to the piezoelectric layer's, 52.
void UpdateFaceDispersionView();
void UpdateBackDispersionView();

}  // namespace halvorne
