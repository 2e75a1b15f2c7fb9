#pragma once

#include <string>

namespace halvorne {

/// Writes the design in format 4 and clears DesignNew. An existing file is overwritten only after
/// the question "Overwrite existing file?". Any failure shows "Error occurred trying to close
/// file."; what was written stays on disk and DesignNew stays as it was.
void WriteDesignFile(const std::string& fileName);

/// Reads a design of format 3 or 4 with its curves, derives what isn't stored and opens the
/// commands. Asks "Revert to the saved file ?" when the file is the one on show. Any failure shows
/// "Error encountered while trying to open file, please retry."; what was read before it stays.
void ReadDesignFile(const std::string& fileName);

}  // namespace halvorne
