#include "materials/data_sources.h"

#include <QFile>
#include <QSqlDatabase>

#include "persistence/file_names.h"
#include "platform/failure.h"
#include "platform/messages.h"
#include "platform/qt/text.h"

namespace halvorne {

void MakeDSN(const std::string& name, const std::string& driver, const std::string& databasePath,
             int request) try {
  const QString connection = ToQString(name);
  const bool registered = QSqlDatabase::contains(connection);
  const bool add = !registered && request == kAddDataSource;
  const bool remove = registered && request == kRemoveDataSource;
  if (!add && !remove) {
    return;
  }
  if (!FileExists(databasePath)) {
    messages().Show({.title = "Halvorne",
                     .text = "Database file doesn't exist!",
                     .icon = MessageIcon::kCritical});
    return;
  }
  if (remove) {
    QSqlDatabase::removeDatabase(connection);
    return;
  }
  QSqlDatabase source = QSqlDatabase::addDatabase(ToQString(driver), connection);
  source.setDatabaseName(QFile::decodeName(QByteArray::fromStdString(databasePath)));
} catch (...) {
  ReportFailure("MakeDSN", "FILES");
}

}  // namespace halvorne
