#pragma once

#include <string>

namespace halvorne::batch {

/// Where a design or a file beside it is read from: a file as it is, or a stream of the program's
/// own, /dev/stdin, whose bytes are kept in memory under a name, since both are read from regular
/// files only.
class InputSource {
 public:
  /// Reads a stream to its end. Raises CommandFailed when that is not possible.
  explicit InputSource(const std::string& name);
  ~InputSource();
  InputSource(const InputSource&) = delete;
  InputSource& operator=(const InputSource&) = delete;

  /// Name under which it can be opened.
  const std::string& Name() const { return name_; }

 private:
  std::string name_;
  int memory_ = -1;
};

}  // namespace halvorne::batch
