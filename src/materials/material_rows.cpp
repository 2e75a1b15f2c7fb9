#include "materials/material_rows.h"

#include <QLocale>
#include <QSqlField>
#include <QSqlIndex>
#include <QSqlQuery>
#include <QTextDocument>
#include <charconv>
#include <cmath>

#include "platform/qt/text.h"

namespace halvorne {
namespace {

/// Reads a number with a point, or with the decimal sign of the user's locale. Raises 13 and 6.
double TypedNumber(const QString& typed) {
  QString plain = typed.trimmed();
  plain.replace(QLocale().decimalPoint(), QStringLiteral("."));
  if (plain.startsWith(u'+')) {
    plain.remove(0, 1);
  }
  const std::string text = plain.toStdString();
  double value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error == std::errc::invalid_argument || end != text.data() + text.size()) {
    RaiseTypeMismatch();
  }
  if (error != std::errc()) {
    RaiseOverflow();
  }
  return Finite(value);
}

std::string Listed(const QStringList& columns) {
  return FromQString(columns.join(QStringLiteral(", ")));
}

}  // namespace

MaterialRows::MaterialRows(const MaterialStore& store, const QSqlDatabase& connection)
    : QSqlTableModel(nullptr, connection), store_(store) {
  setEditStrategy(OnRowChange);
}

void MaterialRows::Close() {
  table_.clear();
  changedRow_ = -1;
  isNew_ = stale_ = false;
  clear();
}

void MaterialRows::Open(const QString& table) {
  Close();
  try {
    numberName_ = RowNumberName(database(), store_, table);
    table_ = table;
    // The toolkit reads a point in a bare name as one between a database and its table.
    setTable(table.contains(u'.') || table.contains(u'"') ? Quoted(table) : table);
    Refresh();
  } catch (...) {
    Close();
    throw;
  }
}

void MaterialRows::Refresh() {
  changedRow_ = -1;
  isNew_ = stale_ = false;
  QSqlIndex key;
  key.append(QSqlField(numberName_));
  setPrimaryKey(key);
  if (!select()) {
    throw StoreFailure(lastError());
  }
  while (canFetchMore()) {  // a table that is not read to its end stays locked
    fetchMore();
  }
  if (query().lastError().isValid()) {
    throw StoreFailure(query().lastError());
  }
}

QString MaterialRows::selectStatement() const {
  QString statement = QStringLiteral("SELECT ") + ColumnList(store_, table_) +
                      QStringLiteral(", ") + numberName_ + QStringLiteral(" AS ") +
                      Quoted(numberName_) + QStringLiteral(" FROM ") + Quoted(table_);
  if (!filter().isEmpty()) {
    statement += QStringLiteral(" WHERE ") + filter();
  }
  return statement + QStringLiteral(" ORDER BY ") + numberName_;
}

QVariant MaterialRows::data(const QModelIndex& cell, int role) const {
  if (role == Qt::TextAlignmentRole) {
    return QVariant::fromValue(Qt::Alignment(
        (HoldsNumbers(cell.column()) ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter));
  }
  if (role == Qt::ToolTipRole) {
    const QString text = data(cell, Qt::DisplayRole).toString();
    return text.isEmpty() ? QVariant() : Qt::convertFromPlainText(text);
  }
  const QVariant value = QSqlTableModel::data(cell, role);
  const bool number = value.userType() == QMetaType::Double && !value.isNull();
  return role == Qt::DisplayRole && number ? ExactNumberText(value.toDouble()) : value;
}

std::optional<QVariant> MaterialRows::Taken(int column, const QVariant& value) const {
  if (!HoldsNumbers(column)) {
    return value.isNull() ? value : QVariant(value.toString());
  }
  if (value.isNull() || value.toString().trimmed().isEmpty()) {
    return QVariant();
  }
  try {
    const bool isNumber = value.userType() == QMetaType::Double;
    return isNumber ? Finite(value.toDouble()) : TypedNumber(value.toString());
  } catch (const Failure&) {
    return std::nullopt;
  }
}

void MaterialRows::Enter(const QModelIndex& cell, const QString& typed) {
  if (typed == data(cell, Qt::DisplayRole).toString()) {
    return;  // opening and closing an editor changes nothing
  }
  if (HoldsNumbers(cell.column()) && !typed.trimmed().isEmpty()) {
    setData(cell, TypedNumber(typed), Qt::EditRole);
  } else {
    setData(cell, typed, Qt::EditRole);
  }
}

bool MaterialRows::setData(const QModelIndex& cell, const QVariant& value, int role) {
  if (role != Qt::EditRole || !cell.isValid() || cell.column() >= ColumnCount() ||
      (changedRow_ >= 0 && changedRow_ != cell.row())) {
    return false;
  }
  const std::optional<QVariant> taken = Taken(cell.column(), value);
  if (!taken) {
    return false;
  }
  const QSqlRecord before = Cells(cell.row());
  if (!QSqlTableModel::setData(cell, *taken, role)) {
    return false;
  }
  if (changedRow_ < 0 && isDirty(cell)) {
    changedRow_ = cell.row();
    before_ = before;
  }
  return true;
}

int MaterialRows::Add() {
  const int row = rowCount();
  changedRow_ = row;  // before the row comes: the grid's order asks for it
  isNew_ = true;
  if (!insertRow(row)) {
    changedRow_ = -1;
    isNew_ = false;
    throw Failure(failure_number::kInvalidCall);
  }
  return row;
}

void MaterialRows::TakeBack() {
  const int row = changedRow_;
  if (row >= 0) {
    changedRow_ = -1;
    isNew_ = false;
    revertRow(row);
  }
}

void MaterialRows::Write() {
  if (changedRow_ < 0) {
    return;
  }
  if (isNew_ && IsEmpty(changedRow_)) {
    TakeBack();
    return;
  }
  failure_.reset();
  change_ = {};
  if (!submitAll()) {
    throw failure_ ? *failure_ : StoreFailure(lastError());
  }
  changedRow_ = -1;
  isNew_ = false;
  stale_ = change_.gone;
  if (change_.gone) {
    throw Failure(failure_number::kInvalidCall,
                  "Another program has deleted this row; it stays deleted");
  }
  if (!change_.foreign.isEmpty()) {
    throw Failure(
        failure_number::kInvalidCall,
        "Another program has changed this row; what it wrote stays in: " + Listed(change_.foreign));
  }
}

// No exception may pass through the toolkit, which calls these two: the failure is kept for Write.

bool MaterialRows::updateRowInTable(int row, const QSqlRecord& /*values*/) try {
  change_ = ChangeRow(PlaceInTable(row), before_, Cells(row));
  return true;
} catch (...) {
  failure_ = CurrentFailure();
  return false;
}

bool MaterialRows::insertRowIntoTable(const QSqlRecord& values) try {
  QSqlRecord typed;
  for (int column = 0; column < ColumnCount(); ++column) {
    if (!values.isNull(column)) {
      typed.append(values.field(column));
    }
  }
  const qint64 number = AddRows(PlaceInTable(changedRow_), {typed}).front();
  // The row is read again by its number when it is written.
  return QSqlTableModel::setData(index(changedRow_, ColumnCount()), number, Qt::EditRole);
} catch (...) {
  failure_ = CurrentFailure();
  return false;
}

qint64 MaterialRows::Append(const std::vector<QStringList>& rows) {
  std::vector<QSqlRecord> records;
  for (const QStringList& row : rows) {
    if (row.size() > ColumnCount()) {
      throw Failure(failure_number::kInvalidCall, "A row has " + std::to_string(row.size()) +
                                                      " cells, the table " +
                                                      std::to_string(ColumnCount()) + " columns");
    }
    QSqlRecord record;
    for (int column = 0; column < row.size(); ++column) {
      const QString& cell = row[column];
      QSqlField field(QString::fromLatin1(store_.columns[static_cast<std::size_t>(column)].name));
      if (!HoldsNumbers(column)) {
        field.setValue(cell);
      } else if (!cell.trimmed().isEmpty()) {
        field.setValue(TypedNumber(cell));
      }
      record.append(field);
    }
    records.push_back(record);
  }
  const qint64 first = AddRows({database(), table_, numberName_}, records).front();
  Refresh();
  return first;
}

void MaterialRows::Delete(int row) {
  const bool typedInto = row == changedRow_;
  const bool done = DeleteRow(PlaceInTable(row), typedInto ? before_ : Cells(row));
  if (done || !typedInto) {
    Refresh();
  }
  if (!done) {
    throw Failure(failure_number::kInvalidCall,
                  "Another program has changed this row; it is not deleted");
  }
}

RowPlace MaterialRows::PlaceInTable(int row) const {
  return {database(), table_, numberName_, NumberOf(row)};
}

QSqlRecord MaterialRows::Cells(int row) const {
  QSqlRecord cells = record(row);
  cells.remove(ColumnCount());
  return cells;
}

qint64 MaterialRows::NumberOf(int row) const {
  const QVariant number = data(index(row, ColumnCount()), Qt::EditRole);
  return number.isNull() ? -1 : number.toLongLong();
}

int MaterialRows::PlaceOf(qint64 number) const {
  for (int row = 0; row < rowCount(); ++row) {
    if (NumberOf(row) == number && !IsNew(row)) {
      return row;
    }
  }
  return -1;
}

bool MaterialRows::IsEmpty(int row) const {
  const QSqlRecord cells = Cells(row);
  for (int column = 0; column < cells.count(); ++column) {
    if (!cells.isNull(column) && !cells.value(column).toString().isEmpty()) {
      return false;
    }
  }
  return true;
}

QString MaterialRows::NameOf(int row) const {
  return data(index(row, 0), Qt::DisplayRole).toString();
}

std::vector<MaterialCell> MaterialRows::CellsOf(int row) const {
  return halvorne::CellsOf(store_, Cells(row));
}

bool MaterialRows::HoldsNumbers(int column) const {
  return column >= 0 && column < ColumnCount() &&
         store_.columns[static_cast<std::size_t>(column)].number;
}

}  // namespace halvorne
