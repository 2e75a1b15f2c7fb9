#pragma once

#include <cstdint>
#include <functional>
#include <string>

// The small text files that a user prepares beside a design: first line a comment, then data, one
// point a line.

namespace halvorne {

/// Takes the comment. What it raises ends the read.
using TakeSideComment = std::function<void(const std::string& comment)>;

/// Takes line `point` (from 0) behind the comment. What it raises ends the read.
using TakeSideLine = std::function<void(std::int32_t point, const std::string& line)>;

/// Reads a side file line by line: the first line to `takeComment`, each further one to `take`, up
/// to point 16000. Lines end in LF, CR or CR LF.
///
/// A failure, of the file or of a line, shows the box of the file commands under `title`; what was
/// taken before it stays. An empty file fails with 62.
/// @return false when the box was shown
bool ReadSideFile(const std::string& fileName, const char* title,
                  const TakeSideComment& takeComment, const TakeSideLine& take);

}  // namespace halvorne
