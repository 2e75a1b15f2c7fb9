#pragma once

#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QPersistentModelIndex>
#include <QPushButton>
#include <QTimer>
#include <functional>
#include <memory>

#include "materials/material_grid.h"
#include "materials/material_rows.h"
#include "materials/row_order.h"
#include "platform/qt/modal_dialog.h"

namespace halvorne {

/// What each of the two browsers calls its own, and its measures.
struct BrowserNames {
  const char* window;
  const char* title;
  const char* grid;
  const char* data;
  const char* tables;  ///< the list of tables
  const char* tablesLabel;
  const char* copy;
  const char* ok;
  const char* cancel;
  int heightMargin;  ///< by which the window is higher than its grid, twips
  int widthMargin;   ///< the same of the width
};

/// A window over a material store: its list of tables, the grid of the chosen one, in which rows
/// are edited in place, and the material that is marked to be copied into a layer.
///
/// A row is written when it is left: by another row, another table, OK, Cancel or the close box.
/// What cannot be written is told of and stays as it was typed.
class MaterialBrowser : public ModalDialog {
 public:
  void reject() override { Cancel(); }

 protected:
  MaterialBrowser(const BrowserNames& names, const MaterialStore& store, QWidget* parent);
  ~MaterialBrowser() override;

  void Form_Load();
  /// What the buttons do; the close box and the Escape key act as Cancel.
  virtual void OK() = 0;
  virtual void Cancel() = 0;
  /// Runs before the grid moves on from a row.
  virtual void WillMove(int /*row*/) {}

  /// Writes the row that was being edited. False when a box told of something that the user
  /// should look at first.
  bool LeaveRow(const char* procedure);
  /// The same for a window that is to be closed: true also when the user gives up a row that
  /// cannot be written.
  bool LeaveForGood(const char* procedure);
  /// Lets go of the store and closes the window.
  void Release();

  /// Marks a row of the table and shows its name, but for an empty one where that is told.
  void Mark(int row);
  const MaterialRows& Rows() const { return *rows_; }
  /// True when a material is named to be copied.
  bool IsMarked() const { return txtCopyMaterial->text() != QLatin1String("None"); }
  /// The cells of the marked row. Raises 5, with words, when it is no longer there.
  std::vector<MaterialCell> MarkedCells() const;

  void resizeEvent(QResizeEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;
  QSize sizeHint() const override;

 private:
  void LayOut();
  void Form_Resize();
  void Table_Click();
  void Grid_RowColChange(const QModelIndex& current, const QModelIndex& previous);
  void Copy_Click();
  void Enter(const QModelIndex& cell, const QString& typed);
  void Search();
  void AddMaterial();
  void DeleteMaterial();
  void CopyRows();
  void PasteRows();
  void TakeBack();

  GridEvents EventsOfGrid();
  /// Reports the failure that is being handled as one of the window's, "DBGrid1" + "_AfterDelete".
  void Report(const char* control, const char* event);
  /// Puts a new row list in force by `change`, and the mark and the grid's place in it back.
  void KeepPlace(const std::function<void()>& change);
  void MoveTo(const QModelIndex& cell);
  void MarkCurrent();
  void WhenIdle();
  void FitColumns();
  void ShowCount();
  int CurrentRow() const { return order_->RowAt(grid_->currentIndex()); }

  const BrowserNames& names_;
  QSqlDatabase connection_;
  std::unique_ptr<MaterialRows> rows_;
  std::unique_ptr<RowOrder> order_;
  QPersistentModelIndex bookmark_;  ///< the marked row, in rows_
  QTimer idle_;                     ///< runs WhenIdle once what goes on is over
  bool moving_ = false;             ///< the program moves in the grid, not the user
  bool returning_ = false;          ///< the grid is on its way back to a row that is not written
  bool refused_ = false;            ///< what stood in the editor was not taken

  QWidget *top_, *bottom_;
  QComboBox* tables_;
  QLineEdit *txtSearch, *txtCopyMaterial;
  MaterialGrid* grid_;
  QLabel* lblCount;
  QPushButton *copy_, *ok_, *cancel_;
};

}  // namespace halvorne
