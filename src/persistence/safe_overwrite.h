#pragma once

#include <optional>
#include <string>

// Writing over a file without losing what it held, whatever happens in between.

namespace halvorne {

/// Keeps the file that is written over as NAME~ beside it until its successor is whole. Where NAME
/// is a link, that is beside the file it leads to; devices and missing files have nothing to keep.
///
/// A file that stood as NAME~ before is moved aside meanwhile and comes back; it stays aside, as
/// NAME~~, when the successor failed. What a failed successor left behind is not kept in its turn:
/// NAME~ stays what it was. Where the folder takes no such file, the old bytes are held in memory
/// and put back after a failure.
class KeptOriginal {
 public:
  /// Moves the file aside and leaves an empty one with its permissions in its place. Raises 70 or
  /// 75 when the file may not be written, and leaves it as it was then.
  explicit KeptOriginal(const std::string& name);
  /// Without Discard() before, the successor has failed.
  ~KeptOriginal();
  KeptOriginal(const KeptOriginal&) = delete;
  KeptOriginal& operator=(const KeptOriginal&) = delete;

  /// The successor is written and closed; the old file goes.
  void Discard() noexcept;

 private:
  bool MoveAside();
  void PutBack() noexcept;

  std::string name_;
  std::string kept_;                  ///< NAME~ where it holds the old file, else empty
  std::string aside_;                 ///< where a file that was NAME~ stands, else empty
  std::optional<std::string> bytes_;  ///< the old file where it could not be moved
};

/// A file of its own that takes the place of another when it is whole, so that no reader ever sees
/// half of it. In a folder that takes no new file it is that other one.
class Successor {
 public:
  /// Creates the file, empty. Raises 70 or 75 when the file may not be written.
  explicit Successor(const std::string& name);
  /// Removes a file that took no place.
  ~Successor();
  Successor(const Successor&) = delete;
  Successor& operator=(const Successor&) = delete;

  /// What is to be written and closed.
  const std::string& Name() const { return file_; }
  /// Puts the file, written and closed, into place. Raises 70 or 75.
  void TakePlace();

 private:
  std::string name_;
  std::string file_;
};

}  // namespace halvorne
