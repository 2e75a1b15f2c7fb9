#include "platform/clock.h"

#include <ctime>
#include <iomanip>
#include <locale>
#include <sstream>
#include <stdexcept>

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

}  // namespace

std::string DateTimeText() {
  const std::time_t now = std::time(nullptr);
  const std::tm local = *std::localtime(&now);
  std::ostringstream text;
  text.imbue(UserLocale());
  text << std::put_time(&local, "%x %X");
  return text.str();
}

}  // namespace halvorne
