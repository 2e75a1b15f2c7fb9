#pragma once

#include <cstdint>
#include <string>

namespace halvorne {

/// The n-th field (from 1) of a text between delimiters.
/// Kept: only the first character of the delimiter counts, and a failed search restarts at the
/// text's begin, so the third field of "a,b" is "a".
std::string GetWord(const std::string& text, std::int32_t n, const std::string& delimiter);

}  // namespace halvorne
