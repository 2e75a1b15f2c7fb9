#include "persistence/delimited_words.h"

#include <gtest/gtest.h>

namespace halvorne::testing {
namespace {

TEST(DelimitedWords, WordsAreCountedFromOne) {
  EXPECT_EQ(GetWord("a,b,c", 1, ","), "a");
  EXPECT_EQ(GetWord("a,b,c", 2, ","), "b");
  EXPECT_EQ(GetWord("a,b,c", 3, ","), "c");
  EXPECT_EQ(GetWord("a,,c", 2, ","), "");
  EXPECT_EQ(GetWord("a,b,", 3, ","), "");
  EXPECT_EQ(GetWord("", 1, ","), "");
  EXPECT_EQ(GetWord("a,b", 0, ","), "a");
  EXPECT_EQ(GetWord("a,b", -5, ","), "a");
}

TEST(DelimitedWords, AFailedSearchForAWordRestartsAtTheBegin) {
  EXPECT_EQ(GetWord("a,b", 3, ","), "a");
  EXPECT_EQ(GetWord("a,b", 4, ","), "b");
  EXPECT_EQ(GetWord("1.5", 2, ","), "1.5") << "a line without a comma gives itself twice";
}

TEST(DelimitedWords, OnlyTheFirstCharacterOfADelimiterCounts) {
  EXPECT_EQ(GetWord("a;b;-c", 3, ";-"), "-c");
  EXPECT_EQ(GetWord("abc", 1, ""), "") << "an empty delimiter is found at once";
}

}  // namespace
}  // namespace halvorne::testing
