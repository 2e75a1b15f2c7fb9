#include "platform/files/whole_file.h"

#include <cerrno>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace halvorne {
namespace {

constexpr int kMostLinks = 40;    // as many as the system follows
constexpr int kMostDrafts = 100;  // names tried for a draft
constexpr mode_t kUsualRights = 0666;
constexpr mode_t kAllRights = 07777;

[[noreturn]] void Raise(int error) {
  throw std::system_error(error, std::generic_category());
}

/// A call's result; raises the errno of one that was refused.
template <class Result>
Result Checked(Result result) {
  if (result < 0) {
    Raise(errno);
  }
  return result;
}

/// An open file, closed at the latest when this ends.
class OpenFile {
 public:
  OpenFile() = default;
  OpenFile(const OpenFile&) = delete;
  OpenFile& operator=(const OpenFile&) = delete;
  ~OpenFile() {
    if (descriptor_ >= 0) {
      close(descriptor_);
    }
  }
  void Take(int descriptor) { descriptor_ = descriptor; }
  int operator*() const { return descriptor_; }

  /// Some file systems tell only now that there is no room.
  void Close() { Checked(close(std::exchange(descriptor_, -1))); }

 private:
  int descriptor_ = -1;
};

/// Where the name leads to, the last element's links followed by hand, so that a target that is
/// missing is found too; the name itself where it leads in a circle.
std::string TargetOf(const std::string& fileName) {
  std::filesystem::path target = fileName;
  for (int followed = 0; followed < kMostLinks; ++followed) {
    std::error_code none;
    if (!std::filesystem::is_symlink(std::filesystem::symlink_status(target, none))) {
      return target.string();
    }
    target = target.parent_path() / std::filesystem::read_symlink(target);
  }
  return fileName;
}

std::string FolderOf(const std::string& fileName) {
  const std::string folder = std::filesystem::path(fileName).parent_path().string();
  return folder.empty() ? "." : folder;
}

void WriteAt(int file, std::string_view bytes, off_t from) {
  while (!bytes.empty()) {
    const ssize_t written = pwrite(file, bytes.data(), bytes.size(), from);
    if (written < 0 && errno == EINTR) {
      continue;
    }
    if (Checked(written) == 0) {
      Raise(EIO);
    }
    bytes.remove_prefix(static_cast<std::size_t>(written));
    from += written;
  }
}

std::string ReadAll(int file, off_t size) {
  std::string bytes(static_cast<std::size_t>(size), '\0');
  std::size_t have = 0;
  while (have < bytes.size()) {
    const ssize_t more =
        pread(file, bytes.data() + have, bytes.size() - have, static_cast<off_t>(have));
    if (more < 0 && errno == EINTR) {
      continue;
    }
    if (Checked(more) == 0) {
      Raise(EIO);
    }
    have += static_cast<std::size_t>(more);
  }
  return bytes;
}

/// Makes room up to `size`, so that a full disk is told of while the old content still stands.
void FindRoom(int file, off_t oldSize, off_t size) {
  if (size <= oldSize) {
    return;
  }
  const int error = posix_fallocate(file, oldSize, size - oldSize);
  if (error != 0 && error != EOPNOTSUPP && error != EINVAL) {
    // A failing cut would leave zeros behind the old content; there is nothing more to try.
    static_cast<void>(ftruncate(file, oldSize) == 0);
    Raise(error);
  }
}

void WriteInPlace(const std::string& target, off_t oldSize, std::string_view bytes) {
  OpenFile file;
  file.Take(Checked(open(target.c_str(), O_RDWR | O_CLOEXEC)));
  const std::string old = ReadAll(*file, oldSize);
  const auto size = static_cast<off_t>(bytes.size());
  FindRoom(*file, oldSize, size);
  try {
    WriteAt(*file, bytes, 0);
    Checked(ftruncate(*file, size));
    Checked(fsync(*file));
  } catch (const std::system_error&) {
    WriteAt(*file, old, 0);
    Checked(ftruncate(*file, oldSize));
    throw;
  }
  file.Close();
}

/// A file beside the target that is to take its place.
class Draft {
 public:
  explicit Draft(const std::string& target) : target_(target) {
    // Without a name: a program that is killed leaves nothing behind.
    int file = open(FolderOf(target_).c_str(), O_TMPFILE | O_WRONLY | O_CLOEXEC, kUsualRights);
    if (file < 0 && (errno == EOPNOTSUPP || errno == EISDIR || errno == EINVAL)) {
      file = ForFreeName([](const char* name) {
        return open(name, O_CREAT | O_EXCL | O_WRONLY | O_CLOEXEC, kUsualRights);
      });
    }
    file_.Take(Checked(file));
  }
  ~Draft() {
    if (!name_.empty()) {
      unlink(name_.c_str());
    }
  }
  Draft(const Draft&) = delete;
  Draft& operator=(const Draft&) = delete;

  void TakeRightsOf(const struct stat& old) const {
    // Not everybody may give a file away. Whose it is then changes; its content counts more.
    static_cast<void>(fchown(*file_, old.st_uid, old.st_gid) == 0);
    Checked(fchmod(*file_, old.st_mode & kAllRights));
  }

  void Write(std::string_view bytes) const {
    WriteAt(*file_, bytes, 0);
    Checked(fsync(*file_));
  }

  void TakePlace() {
    const std::string unnamed = "/proc/self/fd/" + std::to_string(*file_);
    const auto giveName = [&unnamed](const char* name) {
      return linkat(AT_FDCWD, unnamed.c_str(), AT_FDCWD, name, AT_SYMLINK_FOLLOW);
    };
    const bool free = name_.empty() && giveName(target_.c_str()) == 0;
    if (!free && name_.empty()) {
      Checked(errno == EEXIST ? ForFreeName(giveName) : -1);
    }
    if (!free) {
      Checked(rename(name_.c_str(), target_.c_str()));
      name_.clear();
    }
    file_.Close();
  }

 private:
  /// Gives names beside the target to `make` until one is free, which becomes the draft's. Returns
  /// what `make` did at last.
  template <class Make>
  int ForFreeName(Make make) {
    // Not made from the target's name, which may be as long as a name can be.
    const std::string stem = FolderOf(target_) + "/.halvorne-" + std::to_string(getpid()) + "-";
    int made = -1;
    for (int k = 0; k < kMostDrafts; ++k) {
      const std::string name = stem + std::to_string(k);
      made = make(name.c_str());
      if (made >= 0) {
        name_ = name;
      }
      if (made >= 0 || errno != EEXIST) {
        break;
      }
    }
    return made;
  }

  std::string target_;
  OpenFile file_;
  std::string name_;  ///< empty as long as it has none
};

/// The folder takes no new file, or lets none of somebody else's be replaced.
bool IsClosed(const std::system_error& refused) {
  const int error = refused.code().value();
  return error == EACCES || error == EPERM || error == EROFS;
}

}  // namespace

void WriteWholeFile(const std::string& fileName, std::string_view bytes) {
  const std::string target = TargetOf(fileName);
  struct stat old {};
  const bool there = stat(target.c_str(), &old) == 0;
  if (there && !S_ISREG(old.st_mode)) {
    Raise(S_ISDIR(old.st_mode) ? EISDIR : EINVAL);
  }
  OpenFile existing;
  if (there) {
    // What may not be written to is not replaced either, though its folder would allow it.
    existing.Take(Checked(open(target.c_str(), O_WRONLY | O_CLOEXEC)));
  }
  try {
    Draft draft(target);
    if (there) {
      draft.TakeRightsOf(old);
    }
    draft.Write(bytes);
    draft.TakePlace();
  } catch (const std::system_error& refused) {
    if (!there || !IsClosed(refused)) {
      throw;
    }
    WriteInPlace(target, old.st_size, bytes);
  }
}

}  // namespace halvorne
