#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "batch/commands.h"

namespace halvorne::batch {

/// Writes a file whole or not at all. Raises CommandFailed, and WrongCommandLine when that would
/// overwrite the design that was read.
void WriteFile(const Session& session, const std::string& file, std::string_view bytes);

/// Writes bytes to the request's output, a file whole or not at all. Raises CommandFailed, and
/// WrongCommandLine when that would overwrite the design that was read.
void WriteOutput(const Session& session, std::string_view bytes);

/// Makes the request's output as a command does that asks before it overwrites: a file that exists
/// is left alone without --force, and the question is told under `title`. An output for which
/// `make` shows a failure is not written; where the reading, the options or the calculation showed
/// one, no file is replaced: half a design must not take the place of a whole one. Raises
/// CommandFailed when nothing was written.
void WriteOutputOnceAsked(const Session& session, const char* title,
                          const std::function<std::string()>& make);

}  // namespace halvorne::batch
