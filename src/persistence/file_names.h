#pragma once

#include <string>

namespace halvorne {

/// Characters behind the last "\" of a path; a path without one is returned whole. On platforms
/// whose paths are written with "/" that counts as well.
void ExtractFileName(const std::string& path, std::string& name);

/// True when name is not empty and a file of that name is there. Shows nothing.
bool FileExists(const std::string& name);

}  // namespace halvorne
