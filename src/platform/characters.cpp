#include "platform/characters.h"

#include <cstdint>
#include <optional>

namespace halvorne {
namespace {

constexpr char32_t kLastCharacter = 0x10FFFF;
constexpr char32_t kReplacement = 0xFFFD;

std::uint8_t ByteAt(std::string_view text, std::size_t at) {
  return static_cast<std::uint8_t>(text[at]);
}

bool Continues(std::uint8_t byte) {
  return (byte & 0xC0U) == 0x80U;
}

/// Bytes of the character that begins with `first`; 0 where none can.
std::size_t LengthOf(std::uint8_t first) {
  if (first < 0x80) {
    return 1;
  }
  if (first < 0xC2) {
    return 0;
  }
  if (first < 0xE0) {
    return 2;
  }
  return first < 0xF0 ? 3 : first < 0xF5 ? 4 : 0;
}

/// Takes the character at `at` and moves behind it; none where the bytes are not UTF-8.
std::optional<char32_t> NextCharacter(std::string_view text, std::size_t& at) {
  constexpr char32_t smallest[] = {0, 0, 0x80, 0x800, 0x10000};
  constexpr unsigned leadBits[] = {0, 0x7F, 0x1F, 0x0F, 0x07};
  const std::size_t length = LengthOf(ByteAt(text, at));
  if (length == 0 || at + length > text.size()) {
    return std::nullopt;
  }
  char32_t character = ByteAt(text, at) & leadBits[length];
  for (std::size_t i = at + 1; i < at + length; ++i) {
    if (!Continues(ByteAt(text, i))) {
      return std::nullopt;
    }
    character = character << 6U | (ByteAt(text, i) & 0x3FU);
  }
  const bool surrogate = character >= 0xD800 && character <= 0xDFFF;
  if (character < smallest[length] || character > kLastCharacter || surrogate) {
    return std::nullopt;
  }
  at += length;
  return character;
}

void Append(std::string& utf8, char32_t character) {
  const auto continuation = [character](unsigned shift) {
    return static_cast<char>(0x80U | (character >> shift & 0x3FU));
  };
  if (character < 0x80) {
    utf8 += static_cast<char>(character);
  } else if (character < 0x800) {
    utf8 += static_cast<char>(0xC0U | character >> 6U);
    utf8 += continuation(0);
  } else if (character < 0x10000) {
    utf8 += static_cast<char>(0xE0U | character >> 12U);
    utf8 += continuation(6);
    utf8 += continuation(0);
  } else {
    utf8 += static_cast<char>(0xF0U | character >> 18U);
    utf8 += continuation(12);
    utf8 += continuation(6);
    utf8 += continuation(0);
  }
}

std::optional<std::u32string> Decoded(std::string_view bytes) {
  std::u32string characters;
  for (std::size_t at = 0; at < bytes.size();) {
    const auto character = NextCharacter(bytes, at);
    if (!character) {
      return std::nullopt;
    }
    characters += *character;
  }
  return characters;
}

std::u32string CharactersOf(std::string_view bytes) {
  if (const auto utf8 = Decoded(bytes)) {
    return *utf8;
  }
  std::u32string latin1;
  for (const char byte : bytes) {
    latin1 += static_cast<std::uint8_t>(byte);
  }
  return latin1;
}

std::string Encoded(const std::u32string& characters) {
  std::string utf8;
  for (const char32_t character : characters) {
    Append(utf8, character);
  }
  return utf8;
}

bool MovesThePen(char32_t character) {
  return character < 0x20 || (character >= 0x7F && character < 0xA0) || character == 0x2028 ||
         character == 0x2029;
}

/// Where character `count` of the text begins.
std::size_t OffsetOf(std::string_view utf8, std::size_t count) {
  std::size_t at = 0;
  for (; at < utf8.size(); ++at) {
    if (!Continues(ByteAt(utf8, at)) && count-- == 0) {
      break;
    }
  }
  return at;
}

}  // namespace

std::string Utf8Of(std::string_view bytes) {
  return Encoded(CharactersOf(bytes));
}

std::string PrintableText(std::string_view bytes) {
  std::u32string characters = CharactersOf(bytes);
  for (char32_t& character : characters) {
    if (MovesThePen(character)) {
      character = kReplacement;
    }
  }
  return Encoded(characters);
}

std::size_t CharacterCount(std::string_view utf8) {
  std::size_t count = 0;
  for (std::size_t at = 0; at < utf8.size(); ++at) {
    count += Continues(ByteAt(utf8, at)) ? 0 : 1;
  }
  return count;
}

std::string_view FirstCharacters(std::string_view utf8, std::size_t count) {
  return utf8.substr(0, OffsetOf(utf8, count));
}

std::string_view LastCharacters(std::string_view utf8, std::size_t count) {
  const std::size_t all = CharacterCount(utf8);
  return utf8.substr(OffsetOf(utf8, count < all ? all - count : 0));
}

}  // namespace halvorne
