#include "platform/paths.h"

#include <algorithm>
#include <cctype>
#include <string>
#include <system_error>

namespace halvorne {
namespace {

std::filesystem::path& Folder() {
  static std::filesystem::path folder = ".";
  return folder;
}

bool EqualWithoutCase(std::string_view a, std::string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](unsigned char x, unsigned char y) {
    return std::tolower(x) == std::tolower(y);
  });
}

std::filesystem::path FindWithoutCase(const std::filesystem::path& folder,
                                      const std::string& element) {
  std::error_code none;
  if (std::filesystem::exists(folder / element, none)) {
    return folder / element;
  }
  for (const auto& entry : std::filesystem::directory_iterator(folder, none)) {
    if (EqualWithoutCase(entry.path().filename().string(), element)) {
      return entry.path();
    }
  }
  return folder / element;
}

}  // namespace

const std::filesystem::path& ProgramFolder() {
  return Folder();
}

void SetProgramFolder(const std::filesystem::path& folder) {
  Folder() = folder;
}

std::filesystem::path ProgramPath(std::string_view backslashPath) {
  std::filesystem::path path = Folder();
  while (!backslashPath.empty()) {
    const std::size_t end = std::min(backslashPath.find('\\'), backslashPath.size());
    if (end > 0) {
      path = FindWithoutCase(path, std::string(backslashPath.substr(0, end)));
    }
    backslashPath.remove_prefix(std::min(end + 1, backslashPath.size()));
  }
  return path;
}

}  // namespace halvorne
