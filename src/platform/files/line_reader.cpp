#include "platform/files/line_reader.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <system_error>
#include <unistd.h>

#include "platform/files/own_streams.h"

namespace halvorne {

LineReader::LineReader(const std::string& name) {
  const auto stream = OwnStream(name);
  own_ = !stream;
  file_ = stream ? *stream : open(name.c_str(), O_RDONLY | O_CLOEXEC | O_NOCTTY);
  if (file_ < 0) {
    throw std::system_error(errno, std::generic_category());
  }
}

LineReader::~LineReader() {
  if (own_) {
    close(file_);
  }
}

bool LineReader::Fill() {
  from_ = 0;
  to_ = 0;
  while (true) {
    const ssize_t have = read(file_, block_.data(), block_.size());
    if (have >= 0) {
      to_ = static_cast<std::size_t>(have);
      return have > 0;
    }
    if (errno != EINTR) {
      throw std::system_error(errno, std::generic_category());
    }
  }
}

bool LineReader::Next(std::string& line) {
  line.clear();
  tooLong_ = false;
  if (from_ == to_ && !Fill()) {
    return false;
  }
  ++number_;
  do {
    const char* const first = block_.data() + from_;
    const char* const last = block_.data() + to_;
    const char* const end = std::find(first, last, '\n');
    const auto room = static_cast<std::ptrdiff_t>(kMostBytes - line.size());
    tooLong_ = tooLong_ || end - first > room;
    line.append(first, std::min(end - first, room));
    from_ = static_cast<std::size_t>(end - block_.data());
    if (end != last) {
      ++from_;
      break;
    }
  } while (Fill());
  if (line.ends_with('\r')) {
    line.pop_back();
  }
  return true;
}

}  // namespace halvorne
