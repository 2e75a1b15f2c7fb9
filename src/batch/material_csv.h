#pragma once

#include <string>

#include "batch/commands.h"

namespace halvorne::batch {

/// The tables of the material databases that the request asks for as CSV, the name of the table
/// first; an empty line parts the two databases. Raises WrongCommandLine for a table that is not
/// there, CommandFailed when a database cannot be read.
std::string MaterialCsv(const Request& request);

}  // namespace halvorne::batch
