#include "persistence/file_names.h"

#include <filesystem>
#include <system_error>

#include "platform/failure.h"

namespace halvorne {

void ExtractFileName(const std::string& path, std::string& name) try {
  constexpr char separators[] = {'\\', '/', '\0'};
  name = path.substr(path.find_last_of(separators) + 1);  // npos + 1 is the whole path
} catch (...) {
  ReportFailure("ExtractFileName", "FILES");
}

bool FileExists(const std::string& name) {
  if (name.empty()) {
    return false;
  }
  std::error_code none;
  const std::filesystem::file_status status = std::filesystem::status(name, none);
  return std::filesystem::exists(status) && !std::filesystem::is_directory(status);
}

}  // namespace halvorne
