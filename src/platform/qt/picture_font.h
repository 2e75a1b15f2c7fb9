#pragma once

#include <QFont>

namespace halvorne {

/// The font of all pictures, 8 points: a clean sans of the system.
QFont PictureFont();

/// The font of report pages: that of the pictures, made as narrow as Arial is where the system's is
/// wider, since the columns of the report are laid out for that. Its letters stand one by one,
/// without ligatures, so that text taken from a page can be searched.
QFont PageFont();

}  // namespace halvorne
