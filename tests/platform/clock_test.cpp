#include "platform/clock.h"

#include <cstdlib>
#include <gtest/gtest.h>

namespace halvorne {
namespace {

TEST(DateTimeText, IsADateABlankAndATime) {
  const std::string text = DateTimeText();
  const std::size_t blank = text.find(' ');
  ASSERT_NE(blank, std::string::npos);
  EXPECT_NE(text.substr(0, blank).find_first_of("0123456789"), std::string::npos);
  EXPECT_NE(text.substr(blank).find(':'), std::string::npos) << text;
}

TEST(DateTimeText, StandsALocaleThatIsNamedButNotInstalled) {
  ::setenv("LC_ALL", "xx_XX.UTF-8", 1);
  EXPECT_FALSE(DateTimeText().empty());
  ::setenv("LC_ALL", "C", 1);
}

}  // namespace
}  // namespace halvorne
