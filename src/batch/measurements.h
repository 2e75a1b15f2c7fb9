#pragma once

#include "batch/commands.h"

namespace halvorne::batch {

/// Writes the request's measures of the open design as one line of JSON; with a file of variants,
/// one line for each of its lines, calculated anew.
///
/// A line of that file holds settings as --set takes them, parted by blanks, in double quotes where
/// one holds a blank; empty lines and lines that begin with # are passed over. What is wrong with a
/// line is told in its JSON line, {"line":3,"error":"..."}, and the rest goes on. Memory does not
/// grow with the number of lines. Raises CommandFailed when the file cannot be read or the output
/// not be written.
void WriteMeasurements(const Session& session);

/// The measures that --measure knows, for the help.
std::string MeasuresHelpText();

}  // namespace halvorne::batch
