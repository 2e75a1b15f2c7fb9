#pragma once

#include "platform/qt/picture_box.h"
#include "shell/graph_menu.h"

namespace halvorne {

/// Adds the entries that save the picture, the values behind it and the impedance.
/// @param picture  the graph, whose window owns the dialogs
void AddTakeAlongItems(GraphMenu& menu, PictureBox* picture);

}  // namespace halvorne
