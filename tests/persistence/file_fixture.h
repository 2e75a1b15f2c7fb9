#pragma once

#include <algorithm>
#include <csignal>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

#include "platform/failure.h"
#include "support/fresh_program.h"
#include "support/full_disk.h"

namespace halvorne::testing {

/// A fresh program and an empty folder of the test's own.
class FileTest : public FreshProgram {
 protected:
  FileTest() {
    static int counter = 0;
    folder_ = std::filesystem::temp_directory_path() /
              ("halvorne-files-" + std::to_string(getpid()) + "-" + std::to_string(++counter));
    std::filesystem::create_directories(folder_);
  }
  ~FileTest() override {
    std::error_code none;
    std::filesystem::remove_all(folder_, none);
  }

  std::string Path(const std::string& name) const { return (folder_ / name).string(); }
  std::string Put(const std::string& name, const std::string& bytes) const {
    std::ofstream(Path(name), std::ios::binary) << bytes;
    return Path(name);
  }
  std::string Get(const std::string& name) const {
    std::ifstream file(Path(name), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }
  /// Names of all that is in the folder, sorted.
  std::vector<std::string> Names() const {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder_)) {
      names.push_back(entry.path().filename().string());
    }
    std::ranges::sort(names);
    return names;
  }
  const std::filesystem::path& Folder() const { return folder_; }

 private:
  std::filesystem::path folder_;
};

/// Runs `action` in a process of its own that is killed in the middle of the write that makes one
/// of its files larger than `bytes`. True when it was.
template <class Action>
bool IsKilledAtByte(std::uint64_t bytes, Action action) {
  const pid_t child = fork();
  if (child == 0) {
    const FullDisk full(bytes);
    std::signal(SIGXFSZ, SIG_DFL);
    const rlimit noCore{};
    setrlimit(RLIMIT_CORE, &noCore);
    action();
    _exit(0);
  }
  int state = 0;
  return waitpid(child, &state, 0) == child && WIFSIGNALED(state);
}

/// Number of the failure that `action` raises, 0 when it raises none.
template <class Action>
int FailureOf(Action action) {
  try {
    action();
    return 0;
  } catch (const Failure& failure) {
    return failure.Number();
  }
}

}  // namespace halvorne::testing
