#pragma once

#include <string>
#include <vector>

#include "platform/messages.h"

namespace halvorne::batch {

/// Message boxes of a program without a window: counted, told once each, questions answered by
/// their default or as the options say.
class BatchMessages final : public Messages {
 public:
  /// @param overwrite       the answer to a question whether a file may be overwritten is Yes
  /// @param acceptAliasing  the answer to the warning of aliasing is OK
  BatchMessages(bool overwrite, bool acceptAliasing)
      : overwrite_(overwrite), acceptAliasing_(acceptAliasing) {}

  MessageAnswer Show(const Message& message) override;

  /// Boxes so far that told of a failure: all that only had an OK button.
  int FailureCount() const { return failures_; }

  /// Writes each distinct box once as "title: text", with its count where it came more than once,
  /// in the order in which they first came.
  void Tell() const;

 private:
  struct Told {
    std::string line;
    int count;
  };

  bool overwrite_;
  bool acceptAliasing_;
  int failures_ = 0;
  std::vector<Told> told_;
};

}  // namespace halvorne::batch
