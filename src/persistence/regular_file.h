#pragma once

#include <cstdio>
#include <memory>
#include <string>

namespace halvorne {

struct FileCloser {
  void operator()(std::FILE* file) const { std::fclose(file); }
};
using FileHandle = std::unique_ptr<std::FILE, FileCloser>;

/// Opens a file. A folder, a pipe or a device is refused at once, without waiting for whoever has
/// the other end of the pipe. Raises 53, 70 or 76, and 75 for what is no regular file.
/// @param mode  as std::fopen has it
FileHandle OpenRegularFile(const std::string& fileName, const char* mode);

}  // namespace halvorne
