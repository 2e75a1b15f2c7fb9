#pragma once

#include <charconv>
#include <string>

namespace halvorne {

/// Adds the shortest text that reads back as the same number.
inline void AppendShortest(std::string& text, double value) {
  char digits[32];
  text.append(digits, std::to_chars(std::begin(digits), std::end(digits), value).ptr);
}

}  // namespace halvorne
