#include "materials/row_changes.h"

#include <QSqlError>
#include <QSqlField>
#include <QSqlQuery>
#include <QVariantList>
#include <optional>

#include "materials/material_store.h"

namespace halvorne {
namespace {

QSqlQuery Execute(const QSqlDatabase& connection, const QString& statement,
                  const QVariantList& values = {}) {
  QSqlQuery query(connection);
  query.setForwardOnly(true);
  if (!query.prepare(statement)) {
    throw StoreFailure(query.lastError());
  }
  for (const QVariant& value : values) {
    query.addBindValue(value);
  }
  if (!query.exec()) {
    throw StoreFailure(query.lastError());
  }
  return query;
}

/// Keeps other writers away from its first statement on, so that what it looks at stays true until
/// it has written. Rolls back unless it was committed.
class Transaction {
 public:
  explicit Transaction(const QSqlDatabase& connection) : connection_(connection) {
    Execute(connection_, QStringLiteral("BEGIN IMMEDIATE"));
  }
  ~Transaction() {
    if (open_) {
      QSqlQuery(connection_).exec(QStringLiteral("ROLLBACK"));
    }
  }
  Transaction(const Transaction&) = delete;
  Transaction& operator=(const Transaction&) = delete;

  void Commit() {
    Execute(connection_, QStringLiteral("COMMIT"));
    open_ = false;
  }

 private:
  QSqlDatabase connection_;
  bool open_ = true;
};

bool SameValue(const QVariant& a, const QVariant& b) {
  return a.isNull() == b.isNull() && (a.isNull() || (a.userType() == b.userType() && a == b));
}

/// @param before  stands in front of each name
QStringList QuotedNames(const QSqlRecord& record, const QString& before = {}) {
  QStringList names;
  for (int i = 0; i < record.count(); ++i) {
    names.append(before + Quoted(record.fieldName(i)));
  }
  return names;
}

QString WhereRow(const RowPlace& row) {
  return QStringLiteral(" WHERE ") + row.numberName + QStringLiteral(" = ?");
}

/// The row as it is now in the fields of `fields`. Raises what the database says of a column that
/// is no more: a quoted name that stands alone would be a text to it and yield itself.
std::optional<QSqlRecord> Present(const RowPlace& row, const QSqlRecord& fields) {
  const QString table = Quoted(row.table);
  QSqlQuery query = Execute(row.connection,
                            QStringLiteral("SELECT ") +
                                QuotedNames(fields, table + u'.').join(QStringLiteral(", ")) +
                                QStringLiteral(" FROM ") + table + WhereRow(row),
                            {row.number});
  if (query.next()) {
    return query.record();
  }
  if (query.lastError().isValid()) {
    throw StoreFailure(query.lastError());
  }
  return std::nullopt;
}

}  // namespace

RowChange ChangeRow(const RowPlace& row, const QSqlRecord& before, const QSqlRecord& after) {
  Transaction transaction(row.connection);
  RowChange change;
  const std::optional<QSqlRecord> present = Present(row, before);
  if (!present) {
    change.gone = true;
    return change;
  }
  QStringList assignments;
  QVariantList values;
  for (int i = 0; i < before.count(); ++i) {
    if (SameValue(before.value(i), after.value(i))) {
      continue;
    }
    if (!SameValue(before.value(i), present->value(i))) {
      change.foreign.append(before.fieldName(i));
      continue;
    }
    assignments.append(Quoted(before.fieldName(i)) + QStringLiteral(" = ?"));
    values.append(after.value(i));
  }
  if (!assignments.isEmpty()) {
    values.append(row.number);
    Execute(row.connection,
            QStringLiteral("UPDATE ") + Quoted(row.table) + QStringLiteral(" SET ") +
                assignments.join(QStringLiteral(", ")) + WhereRow(row),
            values);
  }
  transaction.Commit();
  return change;
}

std::vector<qint64> AddRows(const RowPlace& table, const std::vector<QSqlRecord>& rows) {
  Transaction transaction(table.connection);
  std::vector<qint64> numbers;
  for (const QSqlRecord& values : rows) {
    QStringList places;
    QVariantList bound;
    for (int i = 0; i < values.count(); ++i) {
      places.append(QStringLiteral("?"));
      bound.append(values.value(i));
    }
    const QSqlQuery query =
        Execute(table.connection,
                QStringLiteral("INSERT INTO ") + Quoted(table.table) + QStringLiteral(" (") +
                    QuotedNames(values).join(QStringLiteral(", ")) + QStringLiteral(") VALUES (") +
                    places.join(QStringLiteral(", ")) + QStringLiteral(")"),
                bound);
    numbers.push_back(query.lastInsertId().toLongLong());
  }
  transaction.Commit();
  return numbers;
}

bool DeleteRow(const RowPlace& row, const QSqlRecord& before) {
  Transaction transaction(row.connection);
  const std::optional<QSqlRecord> present = Present(row, before);
  if (!present) {
    return true;
  }
  for (int i = 0; i < before.count(); ++i) {
    if (!SameValue(before.value(i), present->value(i))) {
      return false;
    }
  }
  Execute(row.connection, QStringLiteral("DELETE FROM ") + Quoted(row.table) + WhereRow(row),
          {row.number});
  transaction.Commit();
  return true;
}

}  // namespace halvorne
