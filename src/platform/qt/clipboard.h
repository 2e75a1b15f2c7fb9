#pragma once

#include <string>

class QByteArray;
class QImage;

namespace halvorne::Clipboard {

void Clear();
void SetText(const std::string& text);
/// The text on the clipboard, empty when there is none.
std::string GetText();
/// Puts a picture on it in two forms: who pastes takes the one he can do more with.
/// @param svg  the bytes of an SVG file
void SetData(const QImage& bitmap, const QByteArray& svg);

}  // namespace halvorne::Clipboard
