#include "batch/batch_messages.h"

#include <algorithm>
#include <cstdio>

namespace halvorne::batch {

MessageAnswer BatchMessages::Show(const Message& message) {
  std::string line = message.title + ": " + message.text;
  std::erase(line, '\r');
  const auto same = std::ranges::find(told_, line, &Told::line);
  if (same == told_.end()) {
    told_.push_back({line, 1});
  } else {
    ++same->count;
  }
  switch (message.buttons) {
    case MessageButtons::kOk:
      ++failures_;
      return MessageAnswer::kOk;
    case MessageButtons::kOkCancel:
      return acceptAliasing_ ? MessageAnswer::kOk : message.defaultAnswer;
    case MessageButtons::kYesNo:
      return overwrite_ ? MessageAnswer::kYes : message.defaultAnswer;
  }
  return message.defaultAnswer;
}

void BatchMessages::Tell() const {
  for (const Told& told : told_) {
    std::fputs(told.line.c_str(), stderr);
    if (told.count > 1) {
      std::fprintf(stderr, " (%d times)", told.count);
    }
    std::fputc('\n', stderr);
  }
}

}  // namespace halvorne::batch
