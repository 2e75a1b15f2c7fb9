#include <algorithm>
#include <array>
#include <cctype>
#include <gtest/gtest.h>
#include <string>
#include <string_view>
#include <vector>

#include "house/source_tree.h"

namespace halvorne::testing {
namespace {

constexpr std::size_t kLongestFile = 400;

bool IsSource(const SourceFile& file) {
  return file.HasExtension(".h") || file.HasExtension(".cpp");
}

bool IsWritten(const SourceFile& file) {
  constexpr std::array kExtensions = {".h", ".cpp", ".md", ".txt", ".cmake", ".sh", ".json"};
  return std::any_of(kExtensions.begin(), kExtensions.end(),
                     [&](const char* extension) { return file.HasExtension(extension); });
}

TEST(Files, AreShortEnoughToBeReadAtOnce) {
  for (const SourceFile& file : SourceFiles("src")) {
    if (IsSource(file)) {
      EXPECT_LE(file.Lines().size(), kLongestFile) << file.path;
    }
  }
}

TEST(Files, EndTheirLastLineAndNoLineInBlanks) {
  for (const SourceFile& file : SourceFiles("")) {
    if (!IsWritten(file)) {
      continue;
    }
    EXPECT_TRUE(file.text.ends_with('\n')) << file.path;
    EXPECT_FALSE(file.text.ends_with("\n\n")) << file.path;
    EXPECT_EQ(file.text.find(" \n"), std::string::npos) << file.path;
    EXPECT_EQ(file.text.find('\t'), std::string::npos) << file.path;
  }
}

TEST(Files, EveryHeaderGuardsItself) {
  for (const SourceFile& file : SourceFiles("src")) {
    if (file.HasExtension(".h")) {
      EXPECT_NE(file.text.find("#pragma once\n"), std::string::npos) << file.path;
    }
  }
}

TEST(Files, TheLicenceIsThere) {
  const auto files = SourceFiles("");
  const auto licence = std::find_if(files.begin(), files.end(),
                                    [](const SourceFile& file) { return file.path == "LICENSE"; });
  ASSERT_NE(licence, files.end());
  EXPECT_NE(licence->text.find("MIT License"), std::string::npos);
  EXPECT_NE(licence->text.find("The Halvorne authors"), std::string::npos);
}

bool IsWordCharacter(char c) {
  return std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '_';
}
bool IsDigit(char c) {
  return std::isdigit(static_cast<unsigned char>(c)) != 0;
}

/// A word in lower case that no file may hold, and what must stand behind it to make it one.
struct UnwantedWord {
  std::string word;
  enum class Behind { kAnything, kNoWordCharacter, kDigit, kWordCharacter } behind;
};

/// Put together here, so that this file does not hold them either.
std::vector<UnwantedWord> UnwantedWords() {
  using Behind = UnwantedWord::Behind;
  return {{std::string("specif") + "ication", Behind::kAnything},
          {std::string("sp") + "ec", Behind::kNoWordCharacter},
          {std::string("seed ") + "document", Behind::kAnything},
          {std::string("par") + "t ", Behind::kDigit},
          {std::string("par") + "ts ", Behind::kDigit},
          {std::string("/wo") + "rk/", Behind::kWordCharacter},
          {std::string("/fa") + "rm/", Behind::kWordCharacter},
          {std::string("to") + "do", Behind::kNoWordCharacter},
          {std::string("fix") + "me", Behind::kNoWordCharacter}};
}

bool HoldsAt(std::string_view text, std::size_t at, const UnwantedWord& unwanted) {
  const char before = at == 0 ? ' ' : text[at - 1];
  const std::size_t end = at + unwanted.word.size();
  const char behind = end < text.size() ? text[end] : ' ';
  if (IsWordCharacter(before)) {
    return false;
  }
  switch (unwanted.behind) {
    case UnwantedWord::Behind::kNoWordCharacter:
      return !IsWordCharacter(behind);
    case UnwantedWord::Behind::kDigit:
      return IsDigit(behind);
    case UnwantedWord::Behind::kWordCharacter:  // of a path from the root
      return IsWordCharacter(behind) && before != '.' && before != '}';
    default:
      return true;
  }
}

/// The unwanted words that a text holds, one behind the other.
std::string UnwantedIn(std::string text) {
  std::transform(text.begin(), text.end(), text.begin(),
                 [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
  std::string found;
  for (const UnwantedWord& unwanted : UnwantedWords()) {
    for (std::size_t at = text.find(unwanted.word); at != std::string::npos;
         at = text.find(unwanted.word, at + 1)) {
      if (HoldsAt(text, at, unwanted)) {
        found += unwanted.word + ';';
        break;
      }
    }
  }
  return found;
}

TEST(Files, SpeakForThemselves) {
  for (const SourceFile& file : SourceFiles("")) {
    if (file.IsText()) {
      EXPECT_EQ(UnwantedIn(file.text), "") << file.path;
    }
    std::string words = file.path;
    std::replace(words.begin(), words.end(), '_', ' ');
    EXPECT_EQ(UnwantedIn(words), "") << file.path;
  }
}

TEST(Files, UnwantedWordsAreFoundWhereTheyStand) {
  EXPECT_NE(UnwantedIn(std::string("see Par") + "t 3.1"), "");
  EXPECT_NE(UnwantedIn(std::string("as in the Specif") + "ication."), "");
  EXPECT_NE(UnwantedIn(std::string("the sp") + "ec says"), "");
  EXPECT_NE(UnwantedIn(std::string("in /wo") + "rk/main"), "");
  EXPECT_NE(UnwantedIn(std::string("// TO") + "DO: later"), "");
  EXPECT_EQ(UnwantedIn("Part of the special ImpulseSpec, net/work/flow, to do"), "");
}

}  // namespace
}  // namespace halvorne::testing
