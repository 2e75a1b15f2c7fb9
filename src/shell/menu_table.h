#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace halvorne {

/// A row of the menu bar, top to bottom. A row followed by deeper ones is a menu that holds them.
struct MenuRow {
  int depth;
  const char* name;     ///< its objectName
  const char* caption;  ///< "-" a separator
  const char* shortcut = "";
  std::int16_t plot = 0;  ///< number of the plot that the command shows
};

std::span<const MenuRow> MenuTable();

/// Name of the event procedure of a control: "mnuFileItem_Click" for "mnuFileItem(2)".
std::string_view ControlName(std::string_view objectName);
/// Index of an element of a control array, 2 for "mnuFileItem(2)"; 0 for a control of its own.
int ControlIndex(std::string_view objectName);

}  // namespace halvorne
