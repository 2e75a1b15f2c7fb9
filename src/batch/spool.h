#pragma once

#include <cstdio>
#include <memory>
#include <string>
#include <string_view>

#include "batch/commands.h"

namespace halvorne::batch {

/// Output that comes in pieces and is too much to be held in memory. Standard output takes it as it
/// comes; a file is written at the end, whole or not at all.
class Spool {
 public:
  /// Raises CommandFailed when there is no room for a temporary file.
  explicit Spool(const Session& session);

  /// Raises CommandFailed.
  void Add(std::string_view bytes);
  /// Writes what is left. Raises as WriteOutput() does.
  void Finish();

 private:
  struct Close {
    void operator()(std::FILE* file) const { std::fclose(file); }
  };

  void Flush();

  const Session& session_;
  std::string pending_;
  std::unique_ptr<std::FILE, Close> file_;  ///< without a name; null for standard output
};

}  // namespace halvorne::batch
