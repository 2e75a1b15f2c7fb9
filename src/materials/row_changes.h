#pragma once

#include <QSqlDatabase>
#include <QSqlRecord>
#include <QString>
#include <QStringList>
#include <vector>

namespace halvorne {

/// A row of a table, by its number.
struct RowPlace {
  QSqlDatabase connection;
  QString table;
  QString numberName;  ///< by which the table's rows are numbered
  qint64 number = 0;
};

// Each of these is one transaction, so that another program, or one that is killed in between, sees
// all of it or nothing. They raise what the database says and have then changed nothing.

/// What became of a row that was to be changed.
struct RowChange {
  bool gone = false;    ///< it had been deleted by another program and stays so
  QStringList foreign;  ///< columns that another program had changed: they keep its values
};

/// Writes the cells of `after` that differ from `before`; both are records of the whole row. A
/// cell that does not hold what `before` says any more is left alone.
RowChange ChangeRow(const RowPlace& row, const QSqlRecord& before, const QSqlRecord& after);

/// Adds rows at the end of the table and returns their numbers. Fields that are not named in a
/// row's values take the table's own defaults.
std::vector<qint64> AddRows(const RowPlace& table, const std::vector<QSqlRecord>& rows);

/// Deletes a row that still holds `before`. Returns false, and deletes nothing, when another
/// program has changed it; a row that is gone already is fine.
bool DeleteRow(const RowPlace& row, const QSqlRecord& before);

}  // namespace halvorne
