#pragma once

#include <string>

class QImage;

namespace halvorne::Clipboard {

void Clear();
void SetText(const std::string& text);
/// The text on the clipboard, empty when there is none.
std::string GetText();
void SetData(const QImage& bitmap);

}  // namespace halvorne::Clipboard
