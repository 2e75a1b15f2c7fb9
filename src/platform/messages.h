#pragma once

#include <string>

namespace halvorne {

enum class MessageIcon { kNone, kQuestion, kExclamation, kCritical };
enum class MessageButtons { kOk, kOkCancel, kYesNo };
enum class MessageAnswer { kOk, kCancel, kYes, kNo };

/// A message box: its words, its looks and the button that Enter presses.
struct Message {
  std::string title;
  std::string text;  ///< lines end in CR LF
  MessageIcon icon = MessageIcon::kNone;
  MessageButtons buttons = MessageButtons::kOk;
  MessageAnswer defaultAnswer = MessageAnswer::kOk;
};

/// The one way in which any room speaks to the user. The desktop program shows a modal box, the
/// program without a window writes it down and takes the default answer.
class Messages {
 public:
  virtual ~Messages() = default;
  virtual MessageAnswer Show(const Message& message) = 0;
};

/// The messages in force. Before any was set: a writer to standard error that takes the default
/// answer.
Messages& messages();

/// Puts `replacement` in force (null restores the first one) and returns what was in force before.
Messages* SetMessages(Messages* replacement);

}  // namespace halvorne
