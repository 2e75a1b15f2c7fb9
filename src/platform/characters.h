#pragma once

#include <cstddef>
#include <string>
#include <string_view>

// Characters of the program's texts, which are bytes: UTF-8 where they are valid UTF-8, else
// Latin-1.

namespace halvorne {

/// The text in UTF-8.
std::string Utf8Of(std::string_view bytes);

/// The text in UTF-8 as it goes on one line: each control character and line separator becomes the
/// replacement character, so that it is seen and moves nothing.
std::string PrintableText(std::string_view bytes);

/// Number of characters of a text in UTF-8.
std::size_t CharacterCount(std::string_view utf8);

/// The first `count` characters of a text in UTF-8, all of it when it has fewer.
std::string_view FirstCharacters(std::string_view utf8, std::size_t count);
/// The last `count` characters.
std::string_view LastCharacters(std::string_view utf8, std::size_t count);

}  // namespace halvorne
