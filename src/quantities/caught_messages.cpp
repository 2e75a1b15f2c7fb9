#include "quantities/caught_messages.h"

#include <algorithm>

namespace halvorne {

CaughtMessages::CaughtMessages(bool acceptAliasing)
    : acceptAliasing_(acceptAliasing), before_(SetMessages(this)) {}

CaughtMessages::~CaughtMessages() {
  SetMessages(before_);
}

MessageAnswer CaughtMessages::Show(const Message& message) {
  if (message.buttons == MessageButtons::kOkCancel && acceptAliasing_) {
    return MessageAnswer::kOk;
  }
  if (first_.empty()) {
    first_ = message.title + ": " + message.text;
    std::erase(first_, '\r');
    std::ranges::replace(first_, '\n', ' ');
  }
  return message.buttons == MessageButtons::kOk ? MessageAnswer::kOk : message.defaultAnswer;
}

}  // namespace halvorne
