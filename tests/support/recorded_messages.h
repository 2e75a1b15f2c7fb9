#pragma once

#include <string>
#include <vector>

#include "platform/messages.h"

namespace halvorne::testing {

/// Messages that are written down and answered by their default, or as the test says.
class RecordedMessages final : public Messages {
 public:
  MessageAnswer Show(const Message& message) override;

  /// Answers the next questions so, in order; then defaults again.
  void AnswerNext(MessageAnswer answer) { answers_.push_back(answer); }
  const std::vector<Message>& Shown() const { return shown_; }
  /// "title|text" of each box, in order.
  std::vector<std::string> Lines() const;
  void Forget() { shown_.clear(); }

 private:
  std::vector<Message> shown_;
  std::vector<MessageAnswer> answers_;
};

}  // namespace halvorne::testing
