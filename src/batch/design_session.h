#pragma once

#include "batch/commands.h"

namespace halvorne::batch {

/// Opens the design with plot 11 on show and the display settings of the request, gives it the
/// materials and sets the fields that the request names, and calculates anew when it says so.
/// Raises CommandFailed when the file or a material database cannot be read, WrongCommandLine for a
/// material that is not there.
void OpenDesign(Session& session);

/// Says on standard error that complex loads have lost their values.
void TellFlatLoads();

/// Selects a plot of the open design, with the form of the request or its first one. Raises
/// CommandFailed when nothing comes on show, WrongCommandLine for a form that the plot's list does
/// not hold.
void ShowPlot(Session& session, int plotNumber);

/// ShowPlot() of the plot that the request names.
void ShowPlot(Session& session);

}  // namespace halvorne::batch
