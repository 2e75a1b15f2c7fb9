#include "persistence/file_helpers.h"

#include <algorithm>
#include <filesystem>
#include <string_view>
#include <system_error>

#include "platform/failure.h"
#include "platform/messages.h"

namespace halvorne {

void ExtractFileName(const std::string& path, std::string& name) try {
  constexpr char separators[] = {'\\', '/', '\0'};
  name = path.substr(path.find_last_of(separators) + 1);  // npos + 1 is the whole path
} catch (...) {
  ReportFailure("ExtractFileName", "FILES");
}

bool FileExists(const std::string& name) {
  if (name.empty()) {
    return false;
  }
  std::error_code none;
  const std::filesystem::file_status status = std::filesystem::status(name, none);
  return std::filesystem::exists(status) && !std::filesystem::is_directory(status);
}

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

std::string GetWord(const std::string& text, std::int32_t n, const std::string& delimiter) try {
  const std::string_view mark = std::string_view(delimiter).substr(0, 1);
  std::size_t begin = 0;
  for (std::int32_t passed = 1; passed < n; ++passed) {
    begin = text.find(mark, begin) + 1;  // Kept: npos + 1 is the text's begin
  }
  const std::size_t end = std::min(text.find(mark, begin), text.size());
  return begin <= end ? text.substr(begin, end - begin) : "";
} catch (...) {
  ReportFailure("GetWord", "FILES");
  return {};
}

}  // namespace halvorne
