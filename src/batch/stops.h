#pragma once

#include "quantities/refusals.h"

namespace halvorne::batch {

/// Ends the program with status 2: what was asked cannot be meant.
using WrongCommandLine = WrongInput;

/// Ends the program with status 1: a file could not be read or written, or there is nothing to
/// show.
using CommandFailed = NotPossible;

}  // namespace halvorne::batch
