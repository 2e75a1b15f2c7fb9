#pragma once

#include <cstdint>

namespace halvorne {

/// Gathers a plot's data into points.RawData, makes its waveforms, sets its title and then the
/// index of PlotType, whose selection event converts and draws. When the user refuses an
/// undersampled waveform, the plot on show stays the one that is chosen.
void PlotSelect(std::int16_t plotNumber);

/// Draws the plot on show once more, on a picture of another size: as a selection does, but a
/// waveform is not made anew, so that nothing is asked.
void PlotRedraw();

/// Draws the plot on show once more from the values that it has, as when something beside its own
/// curves has changed; the cursor comes back to its point.
void PlotRepaint();

/// Makes the plot on show anew from the design and its curves, in the form on show: as a selection
/// does, but nothing is chosen, remembered or written.
void PlotAgain();

/// The selection event of PlotType: remembers the form, writes the setup file, converts and draws.
/// Another form of an outdated waveform selects the plot again.
void PlotType_Click();

/// Turns RawData or the waveforms into a data form of a plot, measures and scales the axis of
/// frequency or time; draws nothing. A part of PlotConvertDataType(): failures go up to the caller.
/// @param index  of the form in the plot's list
void ConvertToForm(std::int16_t index, std::int16_t plotNumber);

/// Turns RawData or the waveforms into the data form chosen in PlotType, measures, scales and draws
/// on Picture1.
void PlotConvertDataType(std::int16_t plotNumber);

/// New calculation and redraw: PrelimCalc, MainCalc, DesignNew, ClearCursor, PlotSelect.
void Recalc();

/// As Recalc(), for a plot that follows a number while it is being moved: PlotAgain() shows it.
void RecalcOnShow();

}  // namespace halvorne
