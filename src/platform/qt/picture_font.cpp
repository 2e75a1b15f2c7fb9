#include "platform/qt/picture_font.h"

#include <QFontMetricsF>
#include <QStringList>

namespace halvorne {
namespace {

/// Advance of the letters a to z, of which Arial's is 12.73 times the font's size.
double AlphabetOf(QFont font) {
  constexpr double size = 100;
  font.setPixelSize(static_cast<int>(size));
  font.setHintingPreference(QFont::PreferNoHinting);
  return QFontMetricsF(font).horizontalAdvance(QStringLiteral("abcdefghijklmnopqrstuvwxyz")) / size;
}

QFont NarrowFont() {
  constexpr double widest = 12.75;
  constexpr int narrowest = 70;
  QFont font = PictureFont();
  font.setStyleStrategy(QFont::PreferNoShaping);
  // In steps: the system may have a narrower face of the family and take that.
  for (int stretch = 100; stretch >= narrowest && AlphabetOf(font) > widest; --stretch) {
    font.setStretch(stretch);
  }
  return font;
}

}  // namespace

QFont PictureFont() {
  QFont font;
  font.setFamilies(
      {QStringLiteral("Arial"), QStringLiteral("Liberation Sans"), QStringLiteral("DejaVu Sans")});
  font.setStyleHint(QFont::SansSerif);
  font.setPointSizeF(8);
  return font;
}

QFont PageFont() {
  static const QFont font = NarrowFont();
  return font;
}

}  // namespace halvorne
