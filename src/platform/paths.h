#pragma once

#include <filesystem>
#include <string_view>

namespace halvorne {

/// The program's own folder: where DATA, EXCITE, Database and HALVORNESETUP stand.
const std::filesystem::path& ProgramFolder();
void SetProgramFolder(const std::filesystem::path& folder);

/// Native path of a place below the program's folder written with backslashes, "\DATA\x.dat".
/// Each element is found whatever its case; one that does not exist keeps its spelling.
std::filesystem::path ProgramPath(std::string_view backslashPath);

}  // namespace halvorne
