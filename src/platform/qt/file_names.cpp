#include "platform/qt/file_names.h"

#include <QByteArray>
#include <algorithm>
#include <filesystem>
#include <system_error>

#include "platform/qt/text.h"

namespace halvorne {
namespace {

namespace fs = std::filesystem;

bool IsThere(const fs::path& path) {
  std::error_code none;
  return fs::exists(fs::symlink_status(path, none));
}

bool IsUtf8(const std::string& name) {
  return FromQString(ToQString(name)) == name;
}

/// The entry of a folder that is shown by such a name.
fs::path EntryShownAs(const fs::path& folder, const QString& name) {
  fs::path utf8 = FromQString(name);
  if (IsThere(folder / utf8)) {
    return utf8;
  }
  std::error_code none;
  for (const auto& entry : fs::directory_iterator(folder, none)) {
    fs::path found = entry.path().filename();
    if (!IsUtf8(found) && ToQString(found.string()) == name) {
      return found;
    }
  }
  return utf8;
}

}  // namespace

std::string PathBytes(const QString& path) {
  std::string utf8 = FromQString(path);
  if (IsThere(utf8) || std::ranges::all_of(path, [](QChar c) { return c.unicode() < 0x80; })) {
    return utf8;
  }
  fs::path found = "/";
  for (const QString& element : path.split(u'/', Qt::SkipEmptyParts)) {
    found /= EntryShownAs(found, element);
  }
  return found.string();
}

std::vector<std::string> OtherNames(const std::string& folder) {
  std::vector<std::string> names;
  std::error_code none;
  for (const auto& entry : fs::directory_iterator(folder, none)) {
    const std::string name = entry.path().filename().string();
    if (!IsUtf8(name) && !entry.is_directory(none)) {
      names.push_back(name);
    }
  }
  std::ranges::sort(names);
  return names;
}

std::string LocalFileBytes(const QUrl& url) {
  // The decoded path would have lost what is no UTF-8.
  return url.isLocalFile()
             ? QByteArray::fromPercentEncoding(url.path(QUrl::FullyEncoded).toLatin1())
                   .toStdString()
             : std::string();
}

}  // namespace halvorne
