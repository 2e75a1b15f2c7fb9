#include "platform/messages.h"

#include <cstdio>

namespace halvorne {
namespace {

class StandardErrorMessages final : public Messages {
 public:
  MessageAnswer Show(const Message& message) override {
    const std::string line = message.title + ": " + message.text + "\n";
    std::fputs(line.c_str(), stderr);
    return message.defaultAnswer;
  }
};

StandardErrorMessages standardError;
Messages* inForce = &standardError;

}  // namespace

Messages& messages() {
  return *inForce;
}

Messages* SetMessages(Messages* replacement) {
  Messages* const before = inForce;
  inForce = replacement != nullptr ? replacement : &standardError;
  return before;
}

}  // namespace halvorne
