#pragma once

#include <string>

namespace halvorne {

/// The plot on show in words: its title, its axes with name, unit and ends, and what the cursor
/// reads while it is on.
std::string GraphDescription();

}  // namespace halvorne
