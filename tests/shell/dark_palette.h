#pragma once

#include <QPalette>

namespace halvorne::testing {

/// The colours of a dark desktop.
QPalette DarkPalette();

}  // namespace halvorne::testing
