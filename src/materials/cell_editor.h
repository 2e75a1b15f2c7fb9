#pragma once

#include <QPersistentModelIndex>
#include <QStyledItemDelegate>
#include <functional>

namespace halvorne {

/// Edits the cells of a material grid as plain text, numbers to their last bit, and refuses at the
/// keystroke what cannot become a number in a column of numbers.
class CellEditor final : public QStyledItemDelegate {
 public:
  /// @param holdsNumbers  of a column of the grid
  /// @param enter         takes what was typed into a cell of the grid
  CellEditor(std::function<bool(int)> holdsNumbers,
             std::function<void(const QModelIndex&, const QString&)> enter);

  QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                        const QModelIndex& cell) const override;
  void setEditorData(QWidget* editor, const QModelIndex& cell) const override;
  void setModelData(QWidget* editor, QAbstractItemModel* model,
                    const QModelIndex& cell) const override;
  /// Gives away a half number that is being left, too, so that it is told of and not just dropped.
  bool eventFilter(QObject* editor, QEvent* event) override;

 private:
  std::function<bool(int)> holdsNumbers_;
  std::function<void(const QModelIndex&, const QString&)> enter_;
  mutable QPersistentModelIndex edited_;  ///< cell of the last editor
};

}  // namespace halvorne
