#include "support/recorded_messages.h"

namespace halvorne::testing {

MessageAnswer RecordedMessages::Show(const Message& message) {
  shown_.push_back(message);
  if (message.buttons == MessageButtons::kOk || answers_.empty()) {
    return message.defaultAnswer;
  }
  const MessageAnswer answer = answers_.front();
  answers_.erase(answers_.begin());
  return answer;
}

std::vector<std::string> RecordedMessages::Lines() const {
  std::vector<std::string> lines;
  lines.reserve(shown_.size());
  for (const Message& message : shown_) {
    lines.push_back(message.title + "|" + message.text);
  }
  return lines;
}

}  // namespace halvorne::testing
