#include "quiet_program.h"

#include <string>

namespace halvorne::bench {
namespace {

/// What the last failure box said, empty when there was none.
std::string lastFailure;

}  // namespace

QuietProgram::QuietProgram() {
  SetMessages(this);
  SetMainWindow(&window_);
}

QuietProgram::~QuietProgram() {
  SetMainWindow(nullptr);
  SetMessages(nullptr);
}

MessageAnswer QuietProgram::Show(const Message& message) {
  switch (message.buttons) {
    case MessageButtons::kYesNo:
      return MessageAnswer::kYes;
    case MessageButtons::kOkCancel:
      return MessageAnswer::kOk;
    default:
      lastFailure = message.title + ": " + message.text;
      return MessageAnswer::kOk;
  }
}

void CheckQuiet(benchmark::State& state) {
  if (!lastFailure.empty()) {
    state.SkipWithError(lastFailure.c_str());
    lastFailure.clear();
  }
}

}  // namespace halvorne::bench
