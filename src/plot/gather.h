#pragma once

#include <string>

#include "plot/catalogue.h"

// Parts of PlotSelect and VDispConvert: what fails in them fails in the procedure that called them.

namespace halvorne {

/// Fills points.RawData(0..NoFreqPts) with a plot's physical values, takes the load medium's loss
/// off, runs the plot's steps and clears DualTrace when the plot has no second trace.
/// @return false when the plot's waveform can't be made
bool Gather(const CataloguePlot& row);

/// The title of a plot; that of plots 51 and 53 ends in the number of the layer.
std::string TitleOf(const CataloguePlot& row);

}  // namespace halvorne
