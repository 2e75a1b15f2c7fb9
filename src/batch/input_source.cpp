#include "batch/input_source.h"

#include <cerrno>
#include <sys/mman.h>
#include <system_error>
#include <unistd.h>

#include "batch/stops.h"
#include "platform/files/own_streams.h"

namespace halvorne::batch {
namespace {

/// More than any file is read of: a stream that never ends is left behind it.
constexpr std::size_t kMostBytes = std::size_t{64} << 20;

}  // namespace

InputSource::InputSource(const std::string& name) try : name_(name) {
  const auto stream = OwnStream(name);
  if (!stream) {
    return;
  }
  const std::string bytes = ReadStream(*stream, kMostBytes);
  memory_ = memfd_create("input", MFD_CLOEXEC);
  if (memory_ < 0) {
    throw std::system_error(errno, std::generic_category());
  }
  WriteStream(memory_, bytes);
  name_ = "/proc/self/fd/" + std::to_string(memory_);
} catch (const std::system_error& refused) {
  throw CommandFailed(name + " could not be read: " + refused.code().message());
}

InputSource::~InputSource() {
  if (memory_ >= 0) {
    close(memory_);
  }
}

}  // namespace halvorne::batch
