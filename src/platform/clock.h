#pragma once

#include <string>

namespace halvorne {

/// The date, a blank and the time of now, in the short forms of the user's locale.
std::string DateTimeText();

}  // namespace halvorne
