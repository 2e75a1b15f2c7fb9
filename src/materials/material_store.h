#pragma once

#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlRecord>
#include <QString>
#include <QStringList>
#include <span>
#include <vector>

#include "persistence/material_records.h"
#include "platform/failure.h"

namespace halvorne {

/// Column that each table of a store has: its name is at once its caption and how it is found.
struct MaterialColumn {
  const char* name;
  bool number;  ///< else text
};

/// A material database: any number of tables of one set of columns.
struct MaterialStore {
  const char* connection;  ///< name of its connection
  const char* file;        ///< below the program's folder
  std::span<const MaterialColumn> columns;
};

extern const MaterialStore kPiezoStore;
extern const MaterialStore kAcousticStore;

/// The failure that a database's error stands for: its own number and words.
Failure StoreFailure(const QSqlError& error);

/// A name as it stands in a statement, whatever characters it holds.
QString Quoted(const QString& name);

/// The connection of a store to its file, registered when it is not yet; not opened.
QSqlDatabase StoreConnection(const MaterialStore& store);

/// Opens a connection. A file that is not there is not made: raises 53. Raises what the database
/// says when it cannot be opened.
void OpenStore(QSqlDatabase& connection);

/// Names of the tables that hold materials, in the order in which they were made; those of the
/// system are left out. Raises what the database says.
QStringList MaterialTables(const QSqlDatabase& connection);

/// Name by which a table's rows are numbered, one that none of its columns has. Raises 5, with
/// words, when there is no such table or it lacks a column of the store.
QString RowNumberName(const QSqlDatabase& connection, const MaterialStore& store,
                      const QString& table);

/// The columns of a store in one of its tables, as a statement lists them.
QString ColumnList(const MaterialStore& store, const QString& table);

/// The cells of a record whose first fields are the store's columns.
std::vector<MaterialCell> CellsOf(const MaterialStore& store, const QSqlRecord& record);

/// All records of a table, in the order of their rows. Raises as the above do.
std::vector<std::vector<MaterialCell>> ReadMaterials(const QSqlDatabase& connection,
                                                     const MaterialStore& store,
                                                     const QString& table);

/// The shortest decimal text that reads back as the same number, "0.00147"; with an exponent only
/// below 0.0001 and from 1e15 on.
QString ExactNumberText(double value);

}  // namespace halvorne
