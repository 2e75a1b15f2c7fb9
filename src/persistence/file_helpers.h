#pragma once

#include <cstdint>
#include <string>

namespace halvorne {

/// Characters behind the last "\" of a path; a path without one is returned whole. On platforms
/// whose paths are written with "/" that counts as well.
void ExtractFileName(const std::string& path, std::string& name);

/// True when name is not empty and a file of that name is there. Shows nothing.
bool FileExists(const std::string& name);

/// True when no file of that name is there, or when the user answers "Overwrite existing file?",
/// asked under `title`, with Yes.
bool MayOverwrite(const std::string& name, const std::string& title);

/// The n-th field (from 1) of a text between delimiters.
/// Kept: only the first character of the delimiter counts, and a failed search restarts at the
/// text's begin, so the third field of "a,b" is "a".
std::string GetWord(const std::string& text, std::int32_t n, const std::string& delimiter);

}  // namespace halvorne
