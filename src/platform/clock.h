#pragma once

#include <ctime>
#include <string>

namespace halvorne {

/// The time of now. The environment's SOURCE_DATE_EPOCH, a number of seconds since 1970, stands in
/// for it where outputs are to be the same each time.
std::time_t Now();

/// The date, a blank and the time of now, in the short forms of the user's locale: local time, or
/// UTC where SOURCE_DATE_EPOCH stands in for it.
std::string DateTimeText();

}  // namespace halvorne
