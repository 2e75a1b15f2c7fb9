#include "platform/characters.h"

#include <gtest/gtest.h>

namespace halvorne {
namespace {

TEST(Characters, ValidUtf8StaysAsItIs) {
  for (const char* text : {"", "plain", "\xC2\xB5m", "\xE2\x82\xAC", "\xF0\x9F\x94\x8A!"}) {
    EXPECT_EQ(Utf8Of(text), text);
    EXPECT_EQ(PrintableText(text), text);
  }
}

TEST(Characters, OtherBytesAreLatin1) {
  EXPECT_EQ(Utf8Of("5 \xB5m"), "5 \xC2\xB5m");
  EXPECT_EQ(Utf8Of("\xE4\xFF"), "\xC3\xA4\xC3\xBF");
  EXPECT_EQ(Utf8Of("\xC3"), "\xC3\x83") << "cut within a character";
  EXPECT_EQ(Utf8Of("\xC0\x80"), "\xC3\x80\xC2\x80") << "a longer form than needed";
  EXPECT_EQ(Utf8Of("\xED\xA0\x80"), "\xC3\xAD\xC2\xA0\xC2\x80") << "half a surrogate pair";
  EXPECT_EQ(Utf8Of("\xF4\x90\x80\x80"), "\xC3\xB4\xC2\x90\xC2\x80\xC2\x80")
      << "beyond the last character";
}

TEST(Characters, WhatMovesThePenIsSeenInstead) {
  constexpr const char* sign = "\xEF\xBF\xBD";
  EXPECT_EQ(PrintableText("a\tb"), std::string("a") + sign + "b");
  EXPECT_EQ(PrintableText("a\r\nb"), std::string("a") + sign + sign + "b");
  EXPECT_EQ(PrintableText(std::string_view("\0\x7F", 2)), std::string(sign) + sign);
  EXPECT_EQ(PrintableText("\xE2\x80\xA8"), sign) << "a line separator";
  EXPECT_EQ(PrintableText("\x85"), sign) << "a control character of Latin-1";
  EXPECT_EQ(PrintableText("~ \xC2\xA0"), "~ \xC2\xA0");
}

TEST(Characters, AreCountedAndTakenWhole) {
  const std::string text =
      "\xC2\xB5"
      "a\xE2\x82\xAC";
  EXPECT_EQ(CharacterCount(text), 3U);
  EXPECT_EQ(FirstCharacters(text, 0), "");
  EXPECT_EQ(FirstCharacters(text, 1), "\xC2\xB5");
  EXPECT_EQ(FirstCharacters(text, 2),
            "\xC2\xB5"
            "a");
  EXPECT_EQ(FirstCharacters(text, 9), text);
  EXPECT_EQ(LastCharacters(text, 0), "");
  EXPECT_EQ(LastCharacters(text, 1), "\xE2\x82\xAC");
  EXPECT_EQ(LastCharacters(text, 9), text);
}

}  // namespace
}  // namespace halvorne
