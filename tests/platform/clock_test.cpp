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

/// Sets SOURCE_DATE_EPOCH for the length of a test.
class FixedClock {
 public:
  explicit FixedClock(const char* seconds) { ::setenv("SOURCE_DATE_EPOCH", seconds, 1); }
  ~FixedClock() { ::unsetenv("SOURCE_DATE_EPOCH"); }
  FixedClock(const FixedClock&) = delete;
  FixedClock& operator=(const FixedClock&) = delete;
};

TEST(DateTimeText, TakesTheTimeThatTheEnvironmentFixes) {
  const FixedClock clock("1000000000");
  EXPECT_EQ(Now(), 1000000000);
  EXPECT_EQ(DateTimeText(), "09/09/01 01:46:40");
}

TEST(DateTimeText, TellsEachSecondAndEachSourceOfTheTimeApart) {
  {
    const FixedClock clock("1000000000");
    EXPECT_EQ(DateTimeText(), "09/09/01 01:46:40");
  }
  EXPECT_NE(DateTimeText(), "09/09/01 01:46:40");
  {
    const FixedClock clock("1000000001");
    EXPECT_EQ(DateTimeText(), "09/09/01 01:46:41");
    EXPECT_EQ(DateTimeText(), "09/09/01 01:46:41");
  }
}

TEST(DateTimeText, PassesOverAFixedTimeThatIsNone) {
  const std::time_t before = std::time(nullptr);
  for (const char* text : {"", "soon", "12x", "-1", "1e9", "99999999999999999999"}) {
    const FixedClock clock(text);
    EXPECT_GE(Now(), before) << text;
    EXPECT_LE(Now(), before + 600) << text;
  }
}

}  // namespace
}  // namespace halvorne
