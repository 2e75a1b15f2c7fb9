#include "platform/qt/clipboard.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QImage>

#include "platform/qt/text.h"

namespace halvorne::Clipboard {

void Clear() {
  QGuiApplication::clipboard()->clear();
}

void SetText(const std::string& text) {
  QGuiApplication::clipboard()->setText(ToQString(text));
}

std::string GetText() {
  return FromQString(QGuiApplication::clipboard()->text());
}

void SetData(const QImage& bitmap) {
  QGuiApplication::clipboard()->setImage(bitmap);
}

}  // namespace halvorne::Clipboard
