#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "platform/messages.h"
#include "plot/headless_window.h"

namespace halvorne::fuzz {

/// Says yes to every question and keeps the titles of the other boxes.
class YesMessages final : public Messages {
 public:
  MessageAnswer Show(const Message& message) override;
  std::vector<std::string> boxes;
};

/// The program as it is at its start, with a window that shows nothing and a folder of its own.
class FuzzedProgram {
 public:
  FuzzedProgram();
  ~FuzzedProgram();
  FuzzedProgram(const FuzzedProgram&) = delete;
  FuzzedProgram& operator=(const FuzzedProgram&) = delete;

  /// Path of a file of that name with these bytes in the program's folder.
  std::string Put(const std::string& name, std::string_view bytes) const;
  std::string Get(const std::string& name) const;
  std::string Path(const std::string& name) const { return (folder_ / name).string(); }
  /// Shows plot number `place` of the catalogue, counted round, with the same of its forms, and
  /// moves the cursor over it.
  void ShowPlot(unsigned place, unsigned form);

  YesMessages messages;
  HeadlessWindow window;

 private:
  std::filesystem::path folder_;
  std::filesystem::path folderBefore_;
};

/// Raises std::logic_error with these words when a promise does not hold.
void Promise(bool holds, const std::string& words);

}  // namespace halvorne::fuzz
