#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

// Names such as /dev/stdin stand for what the caller of the program has opened already. That is
// read and written as it is: opened by its name once more, it would begin anew and, where it is a
// file, be emptied or replaced.

namespace halvorne {

/// Number of the open stream that the name stands for: /dev/stdin, /dev/stdout, /dev/stderr,
/// /dev/fd/N, /proc/self/fd/N. None for any other name.
std::optional<int> OwnStream(const std::string& name);

/// Reads a stream up to its end, `most` bytes at most. Raises std::system_error.
std::string ReadStream(int stream, std::size_t most);

/// Writes all bytes. Raises std::system_error.
void WriteStream(int stream, std::string_view bytes);

}  // namespace halvorne
