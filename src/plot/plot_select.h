#pragma once

#include <cstdint>

namespace halvorne {

/// Gathers a plot's data into points.RawData, makes its waveforms, sets its title and then the
/// index of PlotType, whose selection event converts and draws.
void PlotSelect(std::int16_t plotNumber);

/// The selection event of PlotType: remembers the form, writes the setup file, converts and draws.
void PlotType_Click();

/// Turns RawData or the waveforms into the data form chosen in PlotType, measures, scales and draws
/// on Picture1.
void PlotConvertDataType(std::int16_t plotNumber);

/// New calculation and redraw: PrelimCalc, MainCalc, DesignNew, ClearCursor, PlotSelect.
void Recalc();

}  // namespace halvorne
