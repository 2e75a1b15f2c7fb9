#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace halvorne::testing {

/// A file of the repository: its path from the root, written with "/", and its bytes.
struct SourceFile {
  std::string path;
  std::string text;

  bool HasExtension(const std::string& extension) const {
    return std::filesystem::path(path).extension() == extension;
  }
  bool IsText() const { return text.find('\0') == std::string::npos; }
  /// Its lines without their ends.
  std::vector<std::string> Lines() const;
};

/// All files below a folder of the repository ("" for all of it), in the order of their paths,
/// without what is built and what git keeps for itself.
std::vector<SourceFile> SourceFiles(const std::string& folder);

}  // namespace halvorne::testing
