#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <dlfcn.h>
#include <fcntl.h>
#include <string>
#include <sys/stat.h>
#include <unistd.h>

// A library that is loaded in front of the batch program (LD_PRELOAD). It counts the file calls
// that touch the folder named in FAILING_FOLDER; the one of the number in FAILING_CALL is refused
// as by a disk that fails, "EIO", or, with FAILING_KILL set, ends the process in front of it.
// Standard error tells which call it was. With FAILING_UNNAMED set files without a name are
// unknown, as on some file systems.

namespace {

template <class Function>
Function* Real(const char* name) {
  return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

bool IsInFolder(const std::string& path) {
  const char* const folder = std::getenv("FAILING_FOLDER");
  return folder != nullptr && path.starts_with(folder);
}

bool IsInFolder(int file) {
  char path[4096];
  const std::string link = "/proc/self/fd/" + std::to_string(file);
  const ssize_t length = readlink(link.c_str(), path, sizeof path);
  return length > 0 && IsInFolder(std::string(path, static_cast<std::size_t>(length)));
}

long calls = 0;

template <class Place>
bool Fails(const char* name, Place place) {
  if (!IsInFolder(place) || ++calls != std::atol(std::getenv("FAILING_CALL"))) {
    return false;
  }
  const std::string told = "failing call: " + std::string(name) + "\n";
  static_cast<void>(
      Real<ssize_t(int, const void*, std::size_t)>("write")(2, told.data(), told.size()));
  if (std::getenv("FAILING_KILL") != nullptr) {
    std::raise(SIGKILL);
  }
  errno = EIO;
  return true;
}

template <class... Argument>
auto CallOn(int file, const char* name, Argument... arguments) {
  using Result = decltype(Real<ssize_t(int, Argument...)>(name)(file, arguments...));
  return Fails(name, file) ? Result{-1} : Real<ssize_t(int, Argument...)>(name)(file, arguments...);
}

int OpenNamed(const char* name, const char* path, int flags, mode_t mode) {
  if ((flags & O_TMPFILE) == O_TMPFILE && std::getenv("FAILING_UNNAMED") != nullptr) {
    errno = EOPNOTSUPP;
    return -1;
  }
  return Fails(name, std::string(path)) ? -1
                                        : Real<int(const char*, int, ...)>(name)(path, flags, mode);
}

mode_t ModeOf(int flags, va_list arguments) {
  return (flags & (O_CREAT | O_TMPFILE)) != 0 ? va_arg(arguments, mode_t) : 0;
}

}  // namespace

extern "C" {

int open(const char* path, int flags, ...) {
  va_list arguments;
  va_start(arguments, flags);
  const mode_t mode = ModeOf(flags, arguments);
  va_end(arguments);
  return OpenNamed("open", path, flags, mode);
}

int open64(const char* path, int flags, ...) {
  va_list arguments;
  va_start(arguments, flags);
  const mode_t mode = ModeOf(flags, arguments);
  va_end(arguments);
  return OpenNamed("open64", path, flags, mode);
}

ssize_t read(int file, void* bytes, size_t size) {
  return CallOn(file, "read", bytes, size);
}

ssize_t pread(int file, void* bytes, size_t size, off_t from) {
  return CallOn(file, "pread", bytes, size, from);
}

ssize_t write(int file, const void* bytes, size_t size) {
  return CallOn(file, "write", bytes, size);
}

ssize_t pwrite(int file, const void* bytes, size_t size, off_t from) {
  return CallOn(file, "pwrite", bytes, size, from);
}

int fsync(int file) {
  return Fails("fsync", file) ? -1 : Real<int(int)>("fsync")(file);
}

int ftruncate(int file, off_t size) noexcept {
  return Fails("ftruncate", file) ? -1 : Real<int(int, off_t)>("ftruncate")(file, size);
}

int fchmod(int file, mode_t mode) noexcept {
  return Fails("fchmod", file) ? -1 : Real<int(int, mode_t)>("fchmod")(file, mode);
}

int posix_fallocate(int file, off_t from, off_t size) {
  return Fails("posix_fallocate", file)
             ? EIO
             : Real<int(int, off_t, off_t)>("posix_fallocate")(file, from, size);
}

int linkat(int from, const char* old, int to, const char* name, int flags) noexcept {
  return Fails("linkat", std::string(name)) ? -1
                                            : Real<int(int, const char*, int, const char*, int)>(
                                                  "linkat")(from, old, to, name, flags);
}

int rename(const char* from, const char* to) noexcept {
  return Fails("rename", std::string(to)) ? -1
                                          : Real<int(const char*, const char*)>("rename")(from, to);
}

int close(int file) {
  const bool fails = Fails("close", file);
  const int result = Real<int(int)>("close")(file);
  if (fails) {
    errno = EIO;
  }
  return fails ? -1 : result;
}

}  // extern "C"
