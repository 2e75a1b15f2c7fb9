#pragma once

#include "batch/commands.h"

namespace halvorne::batch {

/// Runs the study of the request's file, or a shard of it, into the request's folder; or joins the
/// shards that stand in a folder. The summary goes to standard output. Raises WrongCommandLine for
/// a study file that cannot be meant, CommandFailed for a file that cannot be read or written, for
/// runs that are missing and for a design that cannot be opened.
void RunStudyCommand(const Session& session);

}  // namespace halvorne::batch
