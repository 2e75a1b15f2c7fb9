#include "persistence/bytes_file.h"

#include <cerrno>
#include <cstdio>

#include "persistence/file_failure.h"
#include "persistence/overwrite_question.h"
#include "persistence/regular_file.h"
#include "persistence/safe_overwrite.h"

namespace halvorne {

void SaveBytes(const std::string& fileName, std::string_view bytes, const char* title) {
  if (!MayOverwrite(fileName, title)) {
    return;
  }
  KeptOriginal original(fileName);
  FileHandle file = OpenRegularFile(fileName, "wb");
  std::setvbuf(file.get(), nullptr, _IONBF, 0);  // so that the write itself tells of a full disk
  if (std::fwrite(bytes.data(), 1, bytes.size(), file.get()) != bytes.size()) {
    RaiseFileFailure(errno, fileName);
  }
  // Some file systems tell only now that there is no room.
  if (std::fclose(file.release()) != 0) {
    RaiseFileFailure(errno, fileName);
  }
  original.Discard();
}

}  // namespace halvorne
