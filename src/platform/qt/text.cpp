#include "platform/qt/text.h"

#include <QByteArrayView>
#include <QStringDecoder>

namespace halvorne {

QString ToQString(std::string_view bytes) {
  const QByteArrayView view(bytes.data(), static_cast<qsizetype>(bytes.size()));
  QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
  const QString decoded = decoder.decode(view);
  return decoder.hasError() ? QString::fromLatin1(view) : decoded;
}

std::string FromQString(const QString& text) {
  return text.toStdString();
}

}  // namespace halvorne
