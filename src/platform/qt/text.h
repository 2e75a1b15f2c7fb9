#pragma once

#include <QByteArray>
#include <QString>
#include <string>
#include <string_view>

namespace halvorne {

/// Text of the program's state as the toolkit shows it: UTF-8 where its bytes are valid UTF-8, else
/// Latin-1, so that no byte of an old file is lost on the screen.
QString ToQString(std::string_view bytes);

/// What a user typed as the program keeps it: UTF-8.
std::string FromQString(const QString& text);

}  // namespace halvorne
