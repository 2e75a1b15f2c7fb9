#pragma once

#include <string>

namespace halvorne {

/// True when no file of that name is there, or when the user answers "Overwrite existing file?",
/// asked under `title`, with Yes.
bool MayOverwrite(const std::string& name, const std::string& title);

}  // namespace halvorne
