#pragma once

#include <QSqlTableModel>
#include <optional>
#include <vector>

#include "materials/material_store.h"
#include "materials/row_changes.h"

namespace halvorne {

/// The data control of a browser: the rows of one table, held in memory, of which one at a time may
/// have changes that are not written yet.
///
/// Its columns are those of the store and, last, the number of the row, by which rows are addressed
/// whatever they hold. Numbers stand there with all their bits; DisplayRole has their exact text.
class MaterialRows final : public QSqlTableModel {
 public:
  MaterialRows(const MaterialStore& store, const QSqlDatabase& connection);

  /// Shows the rows of a table. Raises what stands in the way and then shows none.
  void Open(const QString& table);
  /// Reads the rows of the table again. Changes that were not written are lost. Raises as Open
  /// does.
  void Refresh();
  /// Lets go of the table and its file.
  void Close();

  /// Puts what was typed into a cell, a number where the column holds numbers, nothing for an empty
  /// number. Raises 13 for words in a number column, 6 for a number that is not finite.
  void Enter(const QModelIndex& cell, const QString& typed);
  /// Takes a value as Enter does, false for one that it would not take.
  bool setData(const QModelIndex& cell, const QVariant& value, int role) override;

  /// Adds an empty row at the end, to be written when it is left, and returns its place.
  int Add();
  /// The row with changes that are not written, -1 when there is none.
  int ChangedRow() const { return changedRow_; }
  /// True for a row that is not in the table yet.
  bool IsNew(int row) const { return isNew_ && row == changedRow_; }
  /// Takes back what was typed into the changed row; a new one is gone.
  void TakeBack();

  /// Writes the changed row, if there is one; a new row into which nothing was typed is dropped.
  /// Raises what the database says, and the row stays changed as it is. Cells that another program
  /// changed, and a row that it deleted, stay as that program left them: that is raised as 5, with
  /// words, when all else is done.
  void Write();
  /// True when the rows are no longer those of the table and wait for Refresh().
  bool IsStale() const { return stale_; }

  /// Adds rows of texts at the end, all or none, and reads the table again. Cells behind a row's
  /// last stay empty. Returns the number of the first. Raises 13 for words in a number column, 5,
  /// with words, for a row with more cells than columns, and what the database says.
  qint64 Append(const std::vector<QStringList>& rows);

  /// Deletes a row and reads the table again. Raises what the database says, and 5, with words,
  /// when another program has changed the row, which is then shown as it is; what was typed into
  /// the row and is not written stays then.
  void Delete(int row);

  /// Number of a row in its table; -1 for a new one.
  qint64 NumberOf(int row) const;
  /// Place of the row with that number, -1 when there is none.
  int PlaceOf(qint64 number) const;
  QString NameOf(int row) const;
  std::vector<MaterialCell> CellsOf(int row) const;
  bool HoldsNumbers(int column) const;
  int ColumnCount() const { return static_cast<int>(store_.columns.size()); }
  const QString& Table() const { return table_; }

  QVariant data(const QModelIndex& cell, int role) const override;
  /// Nothing: a row is written when it is left, not when an editor closes.
  bool submit() override { return true; }
  /// Nothing: leaving an editor with Escape takes back its cell only.
  void revert() override {}

 protected:
  QString selectStatement() const override;
  bool updateRowInTable(int row, const QSqlRecord& values) override;
  bool insertRowIntoTable(const QSqlRecord& values) override;

 private:
  RowPlace PlaceInTable(int row) const;
  QSqlRecord Cells(int row) const;
  bool IsEmpty(int row) const;
  /// The value that a cell takes of what it is given, none when it does not take it.
  std::optional<QVariant> Taken(int column, const QVariant& value) const;

  const MaterialStore& store_;
  QString table_;
  QString numberName_;
  int changedRow_ = -1;
  bool isNew_ = false;
  bool stale_ = false;
  QSqlRecord before_;  ///< the changed row as it was read
  std::optional<Failure> failure_;
  RowChange change_;
};

}  // namespace halvorne
