#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "batch/commands.h"

namespace halvorne::batch {

/// Writes bytes to the request's output, a file whole or not at all. Raises CommandFailed, and
/// WrongCommandLine when that would overwrite the design that was read.
void WriteOutput(const Session& session, std::string_view bytes);

/// Lets one of the program's writers, which take a file name, make the request's output. It works
/// on a file of its own first, so a failure leaves no half of the output; when the output exists
/// and is not to be overwritten, the writer asks its question and the output is left alone. Raises
/// CommandFailed when nothing was written.
void WriteThrough(const Session& session, const std::function<void(const std::string&)>& writer);

}  // namespace halvorne::batch
