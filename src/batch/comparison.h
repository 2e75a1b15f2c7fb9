#pragma once

#include "batch/commands.h"

namespace halvorne::batch {

/// Opens all designs of the request, shows the first one's plot with the others behind it and
/// writes it: by the ending of the output as a picture with a table of measurements, as CSV or as
/// JSON. A design that cannot show the plot is told and left out; CommandFailed is raised then
/// behind the writing. Raises WrongCommandLine for another ending and for too many designs.
void WriteComparison(Session& session);

}  // namespace halvorne::batch
