#pragma once

#include <filesystem>

namespace halvorne {

/// The desktop program from its start-up window to its end. The application object must exist.
///
/// @param folder  the program's folder, which holds what it ships with
/// @return exit status
int RunProgram(const std::filesystem::path& folder);

}  // namespace halvorne
