#include "batch/opened_store.h"

#include <QCoreApplication>
#include <QFile>
#include <algorithm>

#include "batch/stops.h"
#include "platform/paths.h"
#include "platform/program_folder.h"
#include "platform/qt/text.h"

namespace halvorne::batch {

OpenedStore::OpenedStore(const MaterialStore& store) : store_(store) {
  SetProgramFolder(FolderToRead(
      FindProgramPlace(QFile::encodeName(QCoreApplication::applicationDirPath()).toStdString())));
  connection_ = StoreConnection(store);
  try {
    OpenStore(connection_);
    for (const QString& table : MaterialTables(connection_)) {
      tables_.push_back(FromQString(table));
    }
  } catch (const Failure& failure) {
    Complain(failure);
  }
}

OpenedStore::~OpenedStore() {
  connection_.close();
}

bool OpenedStore::Has(const std::string& table) const {
  return std::ranges::count(tables_, table) > 0;
}

MaterialRecords OpenedStore::Read(const std::string& table) const {
  try {
    return ReadMaterials(connection_, store_, ToQString(table));
  } catch (const Failure& failure) {
    Complain(failure);
  }
}

void OpenedStore::Complain(const Failure& failure) const {
  throw CommandFailed(FromQString(connection_.databaseName()) +
                      " could not be read: " + failure.Description());
}

std::string CellText(const MaterialCell& cell) {
  if (const auto* const value = std::get_if<double>(&cell)) {
    return FromQString(ExactNumberText(*value));
  }
  const auto* const text = std::get_if<std::string>(&cell);
  return text != nullptr ? *text : std::string();
}

}  // namespace halvorne::batch
