#pragma once

#include <csignal>
#include <cstdint>
#include <sys/resource.h>

namespace halvorne::testing {

/// While it lives no file of this process can grow beyond `bytes`: a full disk.
class FullDisk {
 public:
  explicit FullDisk(std::uint64_t bytes) : handler_(std::signal(SIGXFSZ, SIG_IGN)) {
    getrlimit(RLIMIT_FSIZE, &before_);
    rlimit limit = before_;
    limit.rlim_cur = bytes;
    setrlimit(RLIMIT_FSIZE, &limit);
  }
  ~FullDisk() {
    setrlimit(RLIMIT_FSIZE, &before_);
    std::signal(SIGXFSZ, handler_);
  }
  FullDisk(const FullDisk&) = delete;
  FullDisk& operator=(const FullDisk&) = delete;

 private:
  rlimit before_{};
  void (*handler_)(int);
};

}  // namespace halvorne::testing
