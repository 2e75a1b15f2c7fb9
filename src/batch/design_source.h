#pragma once

#include <string>

namespace halvorne::batch {

/// Where a design is read from: a file as it is, or a stream of the program's own, /dev/stdin,
/// whose bytes are kept in memory under a name, since designs are read from regular files only.
class DesignSource {
 public:
  /// Reads a stream to its end. Raises CommandFailed when that is not possible.
  explicit DesignSource(const std::string& name);
  ~DesignSource();
  DesignSource(const DesignSource&) = delete;
  DesignSource& operator=(const DesignSource&) = delete;

  /// Name under which the design can be opened.
  const std::string& Name() const { return name_; }

 private:
  std::string name_;
  int memory_ = -1;
};

}  // namespace halvorne::batch
