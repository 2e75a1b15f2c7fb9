#pragma once

namespace halvorne {

/// Sets the whole window for a design being open or not: caption, title box, commands, list of
/// data forms, cursor. With no plates on a side its dispersion plot falls back to plot 52.
void EnableItems(bool open);

}  // namespace halvorne
