#include "persistence/delimited_words.h"

#include <algorithm>
#include <string_view>

#include "platform/failure.h"

namespace halvorne {

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
