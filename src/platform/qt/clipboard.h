#pragma once

#include <string>

class QImage;

namespace halvorne::Clipboard {

void Clear();
void SetText(const std::string& text);
void SetData(const QImage& bitmap);

}  // namespace halvorne::Clipboard
