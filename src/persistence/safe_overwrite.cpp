#include "persistence/safe_overwrite.h"

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <random>
#include <system_error>

#include "persistence/file_failure.h"
#include "persistence/regular_file.h"

namespace halvorne {
namespace {

namespace fs = std::filesystem;

bool CanOpen(const std::string& name, const char* mode) {
  return FileHandle(std::fopen(name.c_str(), mode)) != nullptr;
}

bool IsThere(const std::string& name) {
  std::error_code none;
  return fs::exists(fs::symlink_status(name, none));
}

bool IsPlainFile(const std::string& name) {
  std::error_code none;
  return fs::is_regular_file(name, none);
}

/// The file that a link leads to; any other name is returned as it is.
std::string LinkedFile(const std::string& name) {
  std::error_code none;
  const fs::path target = fs::canonical(name, none);
  return none ? name : target.string();
}

bool Rename(const std::string& from, const std::string& to) noexcept {
  return std::rename(from.c_str(), to.c_str()) == 0;
}

/// A file that is protected against writing must not be replaced by way of its folder.
void CheckMayBeWritten(const std::string& name) {
  if (!CanOpen(name, "r+b")) {
    RaiseFileFailure(errno, name);
  }
}

void CopyPermissions(const std::string& from, const std::string& to) {
  std::error_code none;
  const fs::perms permissions = fs::status(from, none).permissions();
  if (!none) {
    fs::permissions(to, permissions, none);
  }
}

std::string Bytes(const std::string& name) {
  std::ifstream file(name, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

/// Files that a failed successor of this process left, with the time of its last write.
std::map<std::string, fs::file_time_type>& FailedSuccessors() {
  static std::map<std::string, fs::file_time_type> files;
  return files;
}

bool IsFailedSuccessor(const std::string& name) {
  const auto found = FailedSuccessors().find(name);
  std::error_code none;
  return found != FailedSuccessors().end() && found->second == fs::last_write_time(name, none);
}

std::string FreeNameBehind(std::string name) {
  while (IsThere(name)) {
    name += '~';
  }
  return name;
}

}  // namespace

KeptOriginal::KeptOriginal(const std::string& name) : name_(LinkedFile(name)) {
  if (!IsPlainFile(name_)) {
    return;
  }
  CheckMayBeWritten(name_);
  if (!MoveAside()) {
    bytes_ = Bytes(name_);
  }
}

/// False, with everything as it was, where the folder does not allow it.
bool KeptOriginal::MoveAside() {
  const std::string kept = name_ + '~';
  if (IsThere(kept)) {
    if (IsFailedSuccessor(name_)) {
      kept_ = kept;
      return true;
    }
    aside_ = FreeNameBehind(kept);
    if (!Rename(kept, aside_)) {
      aside_.clear();
      return false;
    }
  }
  if (Rename(name_, kept)) {
    kept_ = kept;
    if (CanOpen(name_, "wb")) {
      CopyPermissions(kept_, name_);
      return true;
    }
  }
  PutBack();
  return false;
}

void KeptOriginal::PutBack() noexcept {
  if (!kept_.empty()) {
    Rename(kept_, name_);
    kept_.clear();
  }
  if (!aside_.empty()) {
    Rename(aside_, name_ + '~');
    aside_.clear();
  }
}

void KeptOriginal::Discard() noexcept {
  FailedSuccessors().erase(name_);
  bytes_.reset();
  if (!kept_.empty()) {
    std::remove(kept_.c_str());
    kept_.clear();
  }
  PutBack();
}

KeptOriginal::~KeptOriginal() {
  try {
    if (!kept_.empty()) {
      std::error_code none;
      FailedSuccessors()[name_] = fs::last_write_time(name_, none);
    } else if (bytes_) {
      std::ofstream(name_, std::ios::binary) << *bytes_;
    }
  } catch (...) {  // NOLINT(bugprone-empty-catch): without memory nothing can be noted
  }
}

Successor::Successor(const std::string& name) : name_(LinkedFile(name)), file_(name_) {
  if (IsPlainFile(name_)) {
    CheckMayBeWritten(name_);
  } else if (IsThere(name_)) {
    return;
  }
  const std::string beside = name_ + '~' + std::to_string(std::random_device{}());
  if (CanOpen(beside, "wb")) {
    file_ = beside;
    CopyPermissions(name_, file_);
  }
}

Successor::~Successor() {
  if (file_ != name_) {
    std::remove(file_.c_str());
  }
}

void Successor::TakePlace() {
  if (file_ != name_ && !Rename(file_, name_)) {
    RaiseFileFailure(errno, name_);
  }
  file_ = name_;
}

}  // namespace halvorne
