#pragma once

#include <QString>
#include <QUrl>
#include <string>
#include <vector>

// Names of files are bytes, and older ones are no UTF-8: such a name is shown as Latin-1, and what
// is shown leads back to its bytes.

namespace halvorne {

/// The absolute path that a person means: the UTF-8 of its text, but where only a file or folder of
/// another character set is shown so, that one.
std::string PathBytes(const QString& path);

/// The files of a folder whose names are no UTF-8, in order. The toolkit's own lists leave them
/// out.
std::vector<std::string> OtherNames(const std::string& folder);

/// The file that a drag carries, empty for a URL of anything else.
std::string LocalFileBytes(const QUrl& url);

}  // namespace halvorne
