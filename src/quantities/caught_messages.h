#pragma once

#include <string>

#include "platform/messages.h"

namespace halvorne {

/// Message boxes while a design is calculated as one of many: the first failure is kept, questions
/// are answered without anybody. In force as long as this lives.
class CaughtMessages final : public Messages {
 public:
  /// @param acceptAliasing  the answer to the warning of aliasing is OK
  explicit CaughtMessages(bool acceptAliasing);
  ~CaughtMessages() override;
  CaughtMessages(const CaughtMessages&) = delete;
  CaughtMessages& operator=(const CaughtMessages&) = delete;

  MessageAnswer Show(const Message& message) override;

  /// The first failure or refused question since Forget() as "title: text" in one line; empty when
  /// there was none.
  const std::string& First() const { return first_; }
  void Forget() { first_.clear(); }

 private:
  bool acceptAliasing_;
  std::string first_;
  Messages* before_;
};

}  // namespace halvorne
