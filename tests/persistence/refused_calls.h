#pragma once

namespace halvorne::testing {

/// While it lives the disk has no room for another file: those that stand can be written to and
/// renamed, none can be created.
class NoNewFiles {
 public:
  NoNewFiles();
  ~NoNewFiles();
  NoNewFiles(const NoNewFiles&) = delete;
  NoNewFiles& operator=(const NoNewFiles&) = delete;
};

/// While it lives each file that is closed tells an error, as one does whose bytes reach their disk
/// only then.
class FailingCloses {
 public:
  /// @param error  an errno
  explicit FailingCloses(int error);
  ~FailingCloses();
  FailingCloses(const FailingCloses&) = delete;
  FailingCloses& operator=(const FailingCloses&) = delete;
};

}  // namespace halvorne::testing
