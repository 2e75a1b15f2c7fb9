#include "materials/row_order.h"

namespace halvorne {
namespace {

bool IsNumber(const QVariant& value) {
  const int type = value.userType();
  return type == QMetaType::Double || type == QMetaType::LongLong || type == QMetaType::Int;
}

}  // namespace

RowOrder::RowOrder(MaterialRows& rows) : rows_(rows) {
  setDynamicSortFilter(false);
  setSourceModel(&rows);
}

void RowOrder::SetSearch(const QString& text) {
  search_ = text.trimmed();
  invalidate();
}

bool RowOrder::filterAcceptsRow(int row, const QModelIndex& /*parent*/) const {
  return search_.isEmpty() || row == rows_.ChangedRow() ||
         rows_.NameOf(row).contains(search_, Qt::CaseInsensitive);
}

bool RowOrder::filterAcceptsColumn(int column, const QModelIndex& /*parent*/) const {
  return column < rows_.ColumnCount();
}

bool RowOrder::lessThan(const QModelIndex& left, const QModelIndex& right) const {
  if (rows_.IsNew(left.row()) != rows_.IsNew(right.row())) {
    return (sortOrder() == Qt::AscendingOrder) == rows_.IsNew(right.row());
  }
  const QVariant a = rows_.data(left, Qt::EditRole);
  const QVariant b = rows_.data(right, Qt::EditRole);
  if (a.isNull() || b.isNull()) {
    return a.isNull() && !b.isNull();
  }
  // Numbers stand before words: were they compared as texts with each other, 100, "20 or so" and 30
  // would follow one another in a circle.
  if (IsNumber(a) != IsNumber(b)) {
    return IsNumber(a);
  }
  if (IsNumber(a)) {
    return a.toDouble() < b.toDouble();
  }
  return QString::localeAwareCompare(a.toString().toCaseFolded(), b.toString().toCaseFolded()) < 0;
}

}  // namespace halvorne
