#include "persistence/regular_file.h"

#include <cerrno>
#include <filesystem>
#include <system_error>

#include "persistence/file_failure.h"
#include "platform/failure.h"

namespace halvorne {

FileHandle OpenRegularFile(const std::string& fileName, const char* mode) {
  // Asked before it is opened: the opening of a pipe waits for its other end.
  std::error_code none;
  const std::filesystem::file_status status = std::filesystem::status(fileName, none);
  if (std::filesystem::exists(status) && !std::filesystem::is_regular_file(status)) {
    throw Failure(failure_number::kPathFileAccess);
  }
  FileHandle file(std::fopen(fileName.c_str(), mode));
  if (!file) {
    RaiseFileFailure(errno, fileName);
  }
  return file;
}

}  // namespace halvorne
