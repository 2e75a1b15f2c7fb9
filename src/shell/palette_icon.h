#pragma once

#include <QIcon>

namespace halvorne {

/// Icon from an SVG drawing in which "currentColor" stands for the colour of texts on buttons, so
/// that it reads on light and dark desktops, sharp at any resolution.
/// @param drawing  name of a resource, ":/shell/new.svg"
QIcon PaletteIcon(const QString& drawing);

}  // namespace halvorne
