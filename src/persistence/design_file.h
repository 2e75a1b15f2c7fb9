#pragma once

#include <string>

namespace halvorne {

/// Title of the boxes of WriteDesignFile.
inline constexpr const char* kSaveDesignTitle = "Halvorne Save File";

/// Writes the design in format 4 and clears DesignNew. An existing file is overwritten only after
/// the question "Overwrite existing file?" and kept as NAME~ until the new one is whole; a double
/// quote in a text becomes two single ones. Any failure shows "Error occurred trying to close
/// file."; what was written stays on disk, the old file as NAME~ beside it, and DesignNew stays as
/// it was.
void WriteDesignFile(const std::string& fileName);

/// The bytes that WriteDesignFile writes, without a file. Any failure shows its box and leaves what
/// was made before it.
std::string DesignFileText();

/// Reads a design of format 3 or 4 with its curves, derives what isn't stored and opens the
/// commands. Asks "Revert to the saved file ?" when the file is the one on show. Any failure shows
/// "Error encountered while trying to open file, please retry."; what was read before it stays.
void ReadDesignFile(const std::string& fileName);

}  // namespace halvorne
