#pragma once

#include "batch/commands.h"

namespace halvorne::batch {

/// Opens the design with plot 11 on show and the display settings of the request, sets the fields
/// that it names and calculates anew when it says so. Raises CommandFailed when the file cannot be
/// read.
void OpenDesign(Session& session);

/// Selects a plot of the open design, with the form of the request or its first one. Raises
/// CommandFailed when nothing comes on show, WrongCommandLine for a form that the plot's list does
/// not hold.
void ShowPlot(Session& session, int plotNumber);

/// ShowPlot() of the plot that the request names.
void ShowPlot(Session& session);

}  // namespace halvorne::batch
