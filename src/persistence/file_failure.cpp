#include "persistence/file_failure.h"

#include <cerrno>
#include <filesystem>
#include <system_error>

#include "platform/failure.h"

namespace halvorne {
namespace {

bool FolderMissing(const std::string& fileName) {
  const std::filesystem::path folder = std::filesystem::path(fileName).parent_path();
  std::error_code none;
  return !folder.empty() && !std::filesystem::is_directory(folder, none);
}

}  // namespace

void RaiseFileFailure(int error, const std::string& fileName) {
  switch (error) {
    case ENOENT:
      throw Failure(FolderMissing(fileName) ? failure_number::kPathNotFound
                                            : failure_number::kFileNotFound);
    case ENOTDIR:
      throw Failure(failure_number::kPathNotFound);
    case EACCES:
    case EPERM:
      throw Failure(failure_number::kPermissionDenied);
    default:
      throw Failure(failure_number::kPathFileAccess);
  }
}

}  // namespace halvorne
