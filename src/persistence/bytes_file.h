#pragma once

#include <string>
#include <string_view>

namespace halvorne {

/// Writes a file whose bytes are all there. An existing one is overwritten only after the question
/// "Overwrite existing file?", asked under `title`, and kept as NAME~ until the new one is whole;
/// a No writes nothing. Raises 70 or 76, and 75 for a folder, a pipe, a device or a full disk.
void SaveBytes(const std::string& fileName, std::string_view bytes, const char* title);

}  // namespace halvorne
