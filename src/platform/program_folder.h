#pragma once

#include <filesystem>

namespace halvorne {

/// Where the program finds and keeps its files.
struct ProgramPlace {
  /// What it reads and writes: DATA, EXCITE, Database, HALVORNESETUP.
  std::filesystem::path folder;
  /// What it was installed with and may not write; empty where the folder is all there is.
  std::filesystem::path shipped = {};
};

/// Finds the place of a program.
///
/// Built or unpacked, a program has its files beside it. Installed, it has a read-only copy of them
/// at ../share/halvorne, and its folder is the user's own: halvorne in $XDG_DATA_HOME, or in
/// ~/.local/share where that is not set.
///
/// @param executableFolder  folder of the running program
ProgramPlace FindProgramPlace(const std::filesystem::path& executableFolder);

/// The folder to read from where nothing is to be written: the user's own, or what is shipped where
/// there was no first start yet.
std::filesystem::path FolderToRead(const ProgramPlace& place);

/// Fills the user's own folder with the shipped files at the first start; nothing that is there is
/// ever overwritten. The help file is a link, so that it is always that of the installed program.
///
/// Raises std::filesystem::filesystem_error when the folder cannot be made; it is either whole or
/// not there.
void FillProgramFolder(const ProgramPlace& place);

}  // namespace halvorne
