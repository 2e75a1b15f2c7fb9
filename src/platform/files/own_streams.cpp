#include "platform/files/own_streams.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <charconv>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace halvorne {
namespace {

constexpr std::array<std::pair<std::string_view, int>, 3> kNamed{
    {{"/dev/stdin", STDIN_FILENO}, {"/dev/stdout", STDOUT_FILENO}, {"/dev/stderr", STDERR_FILENO}}};
constexpr std::array<std::string_view, 2> kNumbered{"/dev/fd/", "/proc/self/fd/"};
constexpr std::size_t kBlock = std::size_t{1} << 16;

/// Result of a call on a stream: true when it is to be made again; raises a refusal.
bool Interrupted(ssize_t result) {
  if (result < 0 && errno != EINTR) {
    throw std::system_error(errno, std::generic_category());
  }
  return result < 0;
}

}  // namespace

std::optional<int> OwnStream(const std::string& name) {
  for (const auto& [known, stream] : kNamed) {
    if (name == known) {
      return stream;
    }
  }
  for (const std::string_view folder : kNumbered) {
    if (name.starts_with(folder)) {
      const char* const end = name.data() + name.size();
      int stream = -1;
      const auto [stop, error] = std::from_chars(name.data() + folder.size(), end, stream);
      if (error == std::errc() && stop == end && stream >= 0) {
        return stream;
      }
    }
  }
  return std::nullopt;
}

std::string ReadStream(int stream, std::size_t most) {
  std::string bytes;
  std::array<char, kBlock> block{};
  while (bytes.size() < most) {
    const ssize_t have = read(stream, block.data(), std::min(kBlock, most - bytes.size()));
    if (Interrupted(have)) {
      continue;
    }
    if (have == 0) {
      break;
    }
    bytes.append(block.data(), static_cast<std::size_t>(have));
  }
  return bytes;
}

void WriteStream(int stream, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t written = write(stream, bytes.data(), bytes.size());
    if (!Interrupted(written)) {
      bytes.remove_prefix(static_cast<std::size_t>(written));
    }
  }
}

}  // namespace halvorne
