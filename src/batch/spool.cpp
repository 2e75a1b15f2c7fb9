#include "batch/spool.h"

#include <cerrno>
#include <sys/mman.h>
#include <system_error>

#include "batch/output.h"
#include "batch/stops.h"
#include "platform/files/own_streams.h"

namespace halvorne::batch {
namespace {

constexpr std::size_t kMostPending = std::size_t{1} << 16;

[[noreturn]] void RaiseNoRoom() {
  throw CommandFailed("a temporary file could not be written: " +
                      std::generic_category().message(errno));
}

/// The bytes of a file in memory for a time.
class MappedFile {
 public:
  MappedFile(std::FILE* file, std::size_t size)
      : size_(size),
        bytes_(size == 0 ? nullptr : mmap(nullptr, size, PROT_READ, MAP_PRIVATE, fileno(file), 0)) {
    if (bytes_ == MAP_FAILED) {
      RaiseNoRoom();
    }
  }
  ~MappedFile() {
    if (bytes_ != nullptr) {
      munmap(bytes_, size_);
    }
  }
  MappedFile(const MappedFile&) = delete;
  MappedFile& operator=(const MappedFile&) = delete;

  std::string_view Bytes() const { return {static_cast<const char*>(bytes_), size_}; }

 private:
  std::size_t size_;
  void* bytes_;
};

}  // namespace

Spool::Spool(const Session& session) : session_(session) {
  if (!session.request.out.empty()) {
    file_.reset(std::tmpfile());
    if (file_ == nullptr) {
      RaiseNoRoom();
    }
  }
}

void Spool::Flush() {
  if (file_ == nullptr) {
    WriteOutput(session_, pending_);
  } else if (std::fwrite(pending_.data(), 1, pending_.size(), file_.get()) != pending_.size()) {
    RaiseNoRoom();
  }
  pending_.clear();
}

void Spool::Add(std::string_view bytes) {
  pending_ += bytes;
  if (pending_.size() >= kMostPending) {
    Flush();
  }
}

void Spool::Finish() {
  Flush();
  if (file_ == nullptr) {
    return;
  }
  if (std::fflush(file_.get()) != 0) {
    RaiseNoRoom();
  }
  const long size = std::ftell(file_.get());
  if (size < 0) {
    RaiseNoRoom();
  }
  WriteOutput(session_, MappedFile(file_.get(), static_cast<std::size_t>(size)).Bytes());
}

}  // namespace halvorne::batch
