#include "platform/program_folder.h"

#include <cstdlib>
#include <random>
#include <string>
#include <system_error>

namespace halvorne {
namespace {

namespace fs = std::filesystem;

constexpr const char* kHelpFile = "HALVORNE.HLP";
constexpr const char* kSettings = "HALVORNESETUP";

/// The user's folder for the data of programs. A relative path in the variable counts as none.
fs::path UserData() {
  const char* const told = std::getenv("XDG_DATA_HOME");
  if (told != nullptr && fs::path(told).is_absolute()) {
    return told;
  }
  const char* const home = std::getenv("HOME");
  return fs::path(home != nullptr && *home != '\0' ? home : "/") / ".local" / "share";
}

bool IsFilled(const fs::path& folder) {
  std::error_code none;
  return fs::exists(folder, none) && !fs::is_empty(folder, none);
}

/// Copies a folder so that its copies may be written, whatever the modes of what is shipped.
void CopyWritable(const fs::path& from, const fs::path& to) {
  for (const auto& entry : fs::recursive_directory_iterator(from)) {
    const fs::path copy = to / fs::relative(entry.path(), from);
    if (entry.is_directory()) {
      fs::create_directory(copy);
    } else if (entry.path().filename() != kHelpFile) {
      fs::copy_file(entry.path(), copy);
      fs::permissions(copy, fs::perms::owner_read | fs::perms::owner_write, fs::perm_options::add);
    }
  }
}

/// Makes the whole folder beside its place and moves it there, so that a start that is killed or
/// runs out of space leaves no half of it.
void MakeFolder(const ProgramPlace& place) {
  fs::create_directories(place.folder.parent_path());
  const fs::path beside = place.folder.string() + "." + std::to_string(std::random_device()());
  fs::create_directory(beside);
  std::error_code failed;
  try {
    CopyWritable(place.shipped, beside);
    fs::rename(beside, place.folder, failed);
  } catch (...) {
    fs::remove_all(beside, failed);
    throw;
  }
  if (failed) {
    std::error_code none;
    fs::remove_all(beside, none);
    if (!IsFilled(place.folder)) {  // else another start was faster
      throw fs::filesystem_error("cannot rename", beside, place.folder, failed);
    }
  }
}

/// Leads the help file to that of the installed program. One that the user put there stays.
void LinkHelpFile(const ProgramPlace& place) {
  const fs::path link = place.folder / kHelpFile;
  const fs::path target = place.shipped / kHelpFile;
  const fs::file_status there = fs::symlink_status(link);
  if (fs::is_symlink(there) && fs::read_symlink(link) != target) {
    fs::remove(link);
    fs::create_symlink(target, link);
  } else if (!fs::exists(there)) {
    fs::create_symlink(target, link);
  }
}

}  // namespace

ProgramPlace FindProgramPlace(const fs::path& executableFolder) {
  std::error_code none;
  const fs::path shipped = (executableFolder / ".." / "share" / "halvorne").lexically_normal();
  if (fs::exists(executableFolder / kSettings, none) || !fs::is_directory(shipped, none)) {
    return {.folder = executableFolder};
  }
  return {.folder = UserData() / "halvorne", .shipped = shipped};
}

fs::path FolderToRead(const ProgramPlace& place) {
  return place.shipped.empty() || IsFilled(place.folder) ? place.folder : place.shipped;
}

void FillProgramFolder(const ProgramPlace& place) {
  if (place.shipped.empty()) {
    return;
  }
  if (!IsFilled(place.folder)) {
    MakeFolder(place);
  }
  LinkHelpFile(place);
}

}  // namespace halvorne
