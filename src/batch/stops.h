#pragma once

#include <stdexcept>

namespace halvorne::batch {

/// Ends the program with status 2: what was asked cannot be meant.
struct WrongCommandLine : std::runtime_error {
  using std::runtime_error::runtime_error;
};

/// Ends the program with status 1: a file could not be read or written, or there is nothing to
/// show.
struct CommandFailed : std::runtime_error {
  using std::runtime_error::runtime_error;
};

}  // namespace halvorne::batch
