#include "materials/material_store.h"

#include <QFile>
#include <QSqlQuery>
#include <array>
#include <charconv>
#include <cmath>

#include "materials/data_sources.h"
#include "persistence/file_names.h"
#include "platform/paths.h"
#include "platform/qt/text.h"

namespace halvorne {
namespace {

constexpr std::array<MaterialColumn, kPiezoCells> kPiezoColumns{{
    {"Material", false},
    {"Longit vel m/sec", true},
    {"Shear vel m/sec", true},
    {"Density kg/m^3", true},
    {"Clamped diel const", true},
    {"Coupling coef kt", true},
    {"Elec loss tan de", true},
    {"Mech loss tan dm", true},
    {"Vendor", false},
    {"Data source", false},
}};

constexpr std::array<MaterialColumn, kAcousticCells> kAcousticColumns{{
    {"Material", false},
    {"Longit vel m/sec", true},
    {"Shear vel m/sec", true},
    {"Density kg/m^3", true},
    {"Loss in dB/cm", true},
    {"Loss freq MHz", true},
    {"Loss exponent", true},
    {"Vendor", false},
    {"Formula", false},
    {"Comments", false},
    {"Data source", false},
}};

/// How long a statement waits for another program, ms: short enough that nobody takes the window
/// for dead.
constexpr const char* kConnectOptions = "QSQLITE_BUSY_TIMEOUT=300";

QSqlQuery Executed(const QSqlDatabase& connection, const QString& statement) {
  QSqlQuery query(connection);
  query.setForwardOnly(true);
  if (!query.exec(statement)) {
    throw StoreFailure(query.lastError());
  }
  return query;
}

void CheckWasReadToTheEnd(const QSqlQuery& query) {
  if (query.lastError().isValid()) {
    throw StoreFailure(query.lastError());
  }
}

MaterialCell CellOf(const QVariant& value) {
  if (value.isNull()) {
    return std::monostate();
  }
  switch (value.userType()) {
    case QMetaType::Double:
    case QMetaType::LongLong:
    case QMetaType::Int:
      return value.toDouble();
    case QMetaType::QByteArray:
      return value.toByteArray().toStdString();
    default:
      return FromQString(value.toString());
  }
}

}  // namespace

const MaterialStore kPiezoStore{"pzmatls", "\\Database\\pzmatls.mdb", kPiezoColumns};
const MaterialStore kAcousticStore{"acoustic", "\\Database\\Acoustic.mdb", kAcousticColumns};

Failure StoreFailure(const QSqlError& error) {
  const int number = error.nativeErrorCode().toInt();
  const QString words = error.databaseText().isEmpty() ? error.text() : error.databaseText();
  return {number != 0 ? number : failure_number::kInvalidCall, FromQString(words)};
}

QString Quoted(const QString& name) {
  QString inside = name;
  return u'"' + inside.replace(u'"', QStringLiteral("\"\"")) + u'"';
}

QSqlDatabase StoreConnection(const MaterialStore& store) {
  const QString name = QString::fromLatin1(store.connection);
  QSqlDatabase connection = QSqlDatabase::contains(name)
                                ? QSqlDatabase::database(name, false)
                                : QSqlDatabase::addDatabase(kDatabaseDriver, name);
  connection.setDatabaseName(
      QFile::decodeName(QByteArray::fromStdString(ProgramPath(store.file).string())));
  return connection;
}

void OpenStore(QSqlDatabase& connection) {
  if (!FileExists(QFile::encodeName(connection.databaseName()).toStdString())) {
    throw Failure(failure_number::kFileNotFound);
  }
  connection.setConnectOptions(QString::fromLatin1(kConnectOptions));
  if (!connection.open()) {
    throw StoreFailure(connection.lastError());
  }
}

QStringList MaterialTables(const QSqlDatabase& connection) {
  QSqlQuery query = Executed(
      connection,
      QStringLiteral("SELECT name FROM sqlite_master WHERE type = 'table' ORDER BY rowid"));
  QStringList tables;
  while (query.next()) {
    const QString name = query.value(0).toString();
    // Kept: whatever begins so is hidden, a table of the user too.
    if (!name.startsWith(QStringLiteral("MSys")) && !name.startsWith(QStringLiteral("sqlite_"))) {
      tables.append(name);
    }
  }
  CheckWasReadToTheEnd(query);
  return tables;
}

QString RowNumberName(const QSqlDatabase& connection, const MaterialStore& store,
                      const QString& table) {
  QSqlQuery query =
      Executed(connection, QStringLiteral("PRAGMA table_info(%1)").arg(Quoted(table)));
  QStringList names;
  while (query.next()) {
    names.append(query.value(1).toString());
  }
  CheckWasReadToTheEnd(query);
  if (names.isEmpty()) {
    throw Failure(failure_number::kInvalidCall, "There is no table " + FromQString(table));
  }
  // A missing column in double quotes would be taken for a text, so nothing is left to the
  // statement.
  for (const MaterialColumn& column : store.columns) {
    if (!names.contains(QLatin1String(column.name))) {
      throw Failure(failure_number::kInvalidCall,
                    "The table " + FromQString(table) + " has no column " + column.name);
    }
  }
  for (const char* name : {"rowid", "_rowid_", "oid"}) {
    if (!names.contains(QLatin1String(name), Qt::CaseInsensitive)) {
      return QString::fromLatin1(name);
    }
  }
  throw Failure(failure_number::kInvalidCall,
                "The rows of the table " + FromQString(table) + " have no number");
}

QString ColumnList(const MaterialStore& store, const QString& table) {
  // A quoted name that stands alone is a text to the database where there is no such column.
  const QString before = Quoted(table) + u'.';
  QStringList names;
  for (const MaterialColumn& column : store.columns) {
    names.append(before + Quoted(QString::fromLatin1(column.name)));
  }
  return names.join(QStringLiteral(", "));
}

std::vector<MaterialCell> CellsOf(const MaterialStore& store, const QSqlRecord& record) {
  std::vector<MaterialCell> cells;
  for (std::size_t column = 0; column < store.columns.size(); ++column) {
    cells.push_back(CellOf(record.value(static_cast<int>(column))));
  }
  return cells;
}

std::vector<std::vector<MaterialCell>> ReadMaterials(const QSqlDatabase& connection,
                                                     const MaterialStore& store,
                                                     const QString& table) {
  const QString number = RowNumberName(connection, store, table);
  QSqlQuery query = Executed(connection, QStringLiteral("SELECT ") + ColumnList(store, table) +
                                             QStringLiteral(" FROM ") + Quoted(table) +
                                             QStringLiteral(" ORDER BY ") + number);
  std::vector<std::vector<MaterialCell>> records;
  while (query.next()) {
    records.push_back(CellsOf(store, query.record()));
  }
  CheckWasReadToTheEnd(query);
  return records;
}

QString ExactNumberText(double value) {
  char digits[32];
  const double size = std::fabs(value);
  const bool plain = size == 0 || (size >= 1e-4 && size < 1e15);
  char* const end = std::to_chars(std::begin(digits), std::end(digits), value,
                                  plain ? std::chars_format::fixed : std::chars_format::scientific)
                        .ptr;
  return QString::fromLatin1(digits, end - digits);
}

}  // namespace halvorne
