#pragma once

#include <QString>
#include <map>

#include "platform/messages.h"

namespace halvorne {

/// A command of the user, from the action that starts it until it returns. What it starts in turn
/// (a dialog, its OK) belongs to it.
class Command {
 public:
  Command() { ++depth; }
  ~Command();
  Command(const Command&) = delete;
  Command& operator=(const Command&) = delete;

  static bool Running() { return depth > 0; }

 private:
  static int depth;
};

/// Messages as modal boxes, named "MsgBox".
///
/// From the second identical box within one command on, the box offers not to be shown again until
/// the command ends; what it then answers is what it was answered last.
class MessageBoxes final : public Messages {
 public:
  MessageBoxes();
  ~MessageBoxes() override;
  MessageBoxes(const MessageBoxes&) = delete;
  MessageBoxes& operator=(const MessageBoxes&) = delete;

  MessageAnswer Show(const Message& message) override;

 private:
  friend class Command;

  struct Shown {
    int times = 0;
    bool silenced = false;
    MessageAnswer answer = MessageAnswer::kOk;
  };

  std::map<QString, Shown> shownInCommand_;
};

}  // namespace halvorne
