#pragma once

#include <QSortFilterProxyModel>

#include "materials/material_rows.h"

namespace halvorne {

/// The rows as the grid shows them: in the order of a column, only those whose material's name
/// holds what is searched for, without their number. A row with changes that are not written is
/// always shown, and a new one stands last; neither moves while it is being typed.
class RowOrder final : public QSortFilterProxyModel {
 public:
  explicit RowOrder(MaterialRows& rows);

  /// Shows only rows whose name holds the text, case ignored; all when it is empty.
  void SetSearch(const QString& text);
  const QString& Search() const { return search_; }

  /// Place among the rows of the table of a row of the grid, -1 for none.
  int RowAt(const QModelIndex& cell) const { return mapToSource(cell).row(); }
  /// Cell of the grid for a row of the table, invalid when the search hides it.
  QModelIndex CellOf(int row, int column) const { return mapFromSource(rows_.index(row, column)); }

 protected:
  bool filterAcceptsRow(int row, const QModelIndex& parent) const override;
  bool filterAcceptsColumn(int column, const QModelIndex& parent) const override;
  bool lessThan(const QModelIndex& left, const QModelIndex& right) const override;

 private:
  MaterialRows& rows_;
  QString search_;
};

}  // namespace halvorne
