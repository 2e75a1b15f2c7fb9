#include "platform/qt/clipboard.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QImage>
#include <QMimeData>

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

void SetData(const QImage& bitmap, const QByteArray& svg) {
  auto* const both = new QMimeData;  // the clipboard's own from now on
  both->setImageData(bitmap);
  both->setData(QStringLiteral("image/svg+xml"), svg);
  QGuiApplication::clipboard()->setMimeData(both);
}

}  // namespace halvorne::Clipboard
