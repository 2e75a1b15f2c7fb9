#pragma once

namespace halvorne {

/// Sets the whole window for a design being open or not: caption, title box, commands, list of
/// data forms, cursor. With no plates on a side its dispersion plot falls back to plot 52.
void EnableItems(bool open);

/// Enables the dispersion plot of each side that has plates; without plates a dispersion plot on
/// show falls back to the piezoelectric layer's, 52.
void UpdateFaceDispersionView();
void UpdateBackDispersionView();

}  // namespace halvorne
