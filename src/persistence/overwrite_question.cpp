#include "persistence/overwrite_question.h"

#include "persistence/file_names.h"
#include "platform/messages.h"

namespace halvorne {

bool MayOverwrite(const std::string& name, const std::string& title) {
  if (!FileExists(name)) {
    return true;
  }
  Message question;
  question.title = title;
  question.text = "Overwrite existing file?";
  question.icon = MessageIcon::kQuestion;
  question.buttons = MessageButtons::kYesNo;
  question.defaultAnswer = MessageAnswer::kNo;
  return messages().Show(question) == MessageAnswer::kYes;
}

}  // namespace halvorne
