#include "materials/data_sources.h"

#include <QSqlDatabase>

#include "persistence/file_names.h"
#include "platform/failure.h"
#include "platform/messages.h"
#include "platform/qt/text.h"

namespace halvorne {

DataSources dataSources;

void MakeDSN(const std::string& name, const std::string& /*driver*/,
             const std::string& databasePath, int request) try {
  const bool registered = dataSources.Files.contains(name);
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
  if (add) {
    dataSources.Files[name] = databasePath;
    return;
  }
  dataSources.Files.erase(name);
  QSqlDatabase::removeDatabase(ToQString(name));  // where a store has been looked into
} catch (...) {
  ReportFailure("MakeDSN", "FILES");
}

}  // namespace halvorne
