#pragma once

#include "shell/graph_menu.h"

namespace halvorne {

/// Adds the entries that hold the present design, drop held ones and scale to all of them.
void AddHoldItems(GraphMenu& menu);

}  // namespace halvorne
