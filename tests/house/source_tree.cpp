#include "house/source_tree.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <sstream>

namespace halvorne::testing {

namespace fs = std::filesystem;

std::vector<std::string> SourceFile::Lines() const {
  std::vector<std::string> lines;
  std::istringstream stream(text);
  for (std::string line; std::getline(stream, line);) {
    lines.push_back(line);
  }
  return lines;
}

std::vector<SourceFile> SourceFiles(const std::string& folder) {
  const fs::path root = HALVORNE_SOURCE_DIR;
  std::vector<SourceFile> files;
  for (auto entry = fs::recursive_directory_iterator(root / folder);
       entry != fs::recursive_directory_iterator(); ++entry) {
    const std::string path = entry->path().lexically_relative(root).generic_string();
    if (path == "build" || path == ".git") {
      entry.disable_recursion_pending();
    } else if (entry->is_regular_file()) {
      std::ifstream stream(entry->path(), std::ios::binary);
      files.push_back({path, {std::istreambuf_iterator<char>(stream), {}}});
    }
  }
  std::sort(files.begin(), files.end(),
            [](const SourceFile& a, const SourceFile& b) { return a.path < b.path; });
  return files;
}

}  // namespace halvorne::testing
