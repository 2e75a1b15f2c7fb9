#pragma once

#include <QIcon>

namespace halvorne {

/// Icon from a recorded drawing, all in the colour of texts on buttons, so that it reads on light
/// and dark desktops, sharp at any resolution.
/// @param drawing  name of a resource, ":/shell/icons/new.pic"
QIcon PaletteIcon(const QString& drawing);

/// The same in the colours of the drawing.
QIcon ColourIcon(const QString& drawing);

}  // namespace halvorne
