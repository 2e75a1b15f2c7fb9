#include "platform/clock.h"

#include <charconv>
#include <cstdlib>
#include <ctime>
#include <iomanip>
#include <locale>
#include <optional>
#include <sstream>
#include <stdexcept>
#include <string_view>

namespace halvorne {

namespace {

/// Made once: opening a locale by name costs as much as a sweep of some hundred points.
const std::locale& UserLocale() {
  static const std::locale user = [] {
    try {
      return std::locale("");
    } catch (const std::runtime_error&) {
      return std::locale::classic();  // a locale that is named but not installed
    }
  }();
  return user;
}

/// What SOURCE_DATE_EPOCH holds; none where it is not set or no time up to the year 9999.
std::optional<std::time_t> FixedTime() {
  constexpr std::time_t lastSecond = 253402300799;
  const char* const variable = std::getenv("SOURCE_DATE_EPOCH");
  const std::string_view text = variable != nullptr ? variable : "";
  std::time_t seconds = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), seconds);
  const bool whole = error == std::errc() && end == text.data() + text.size();
  return whole && seconds >= 0 && seconds <= lastSecond ? std::optional(seconds) : std::nullopt;
}

std::string TextOf(std::time_t second, bool fixed) {
  const std::tm parts = fixed ? *std::gmtime(&second) : *std::localtime(&second);
  std::ostringstream text;
  text.imbue(UserLocale());
  text << std::put_time(&parts, "%x %X");
  return text.str();
}

}  // namespace

std::time_t Now() {
  return FixedTime().value_or(std::time(nullptr));
}

std::string DateTimeText() {
  // Kept for its second: a text anew asks the system for its time zone and costs a third of a
  // typical sweep.
  struct Stamp {
    std::time_t second = -1;
    bool fixed = false;
    std::string text;
  };
  static Stamp last;
  const std::optional<std::time_t> fixed = FixedTime();
  const std::time_t second = fixed.value_or(std::time(nullptr));
  if (last.text.empty() || second != last.second || fixed.has_value() != last.fixed) {
    last = {second, fixed.has_value(), TextOf(second, fixed.has_value())};
  }
  return last.text;
}

}  // namespace halvorne
