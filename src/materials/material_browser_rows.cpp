// Whole rows in a browser: added, deleted, copied, pasted, taken back.

#include <algorithm>

#include "materials/material_browser.h"
#include "materials/row_exchange.h"
#include "platform/messages.h"
#include "platform/qt/clipboard.h"

namespace halvorne {

GridEvents MaterialBrowser::EventsOfGrid() {
  return {.touched = [this] { MarkCurrent(); },
          .entered =
              [this] {
                MarkCurrent();
                ok_->setFocus();
              },
          .add = [this] { AddMaterial(); },
          .remove = [this] { DeleteMaterial(); },
          .copy = [this] { CopyRows(); },
          .paste = [this] { PasteRows(); },
          .takeBack = [this] { TakeBack(); }};
}

void MaterialBrowser::AddMaterial() try {
  if (rows_->Table().isEmpty() || !LeaveRow((std::string(names_.data) + "_AddNew").c_str())) {
    return;
  }
  const QModelIndex cell = order_->CellOf(rows_->Add(), 0);
  ShowCount();
  grid_->setCurrentIndex(cell);
  grid_->edit(cell);
} catch (...) {
  Report(names_.data, "_AddNew");
}

void MaterialBrowser::TakeBack() try {
  const bool added = rows_->IsNew(rows_->ChangedRow());
  const int row = grid_->currentIndex().row();
  const int column = grid_->currentIndex().column();
  moving_ = true;
  rows_->TakeBack();
  if (added) {
    MoveTo(order_->index(std::min(row, order_->rowCount() - 1), column));
  }
  moving_ = false;
  ShowCount();
  MarkCurrent();
} catch (...) {
  Report(names_.data, "_Undo");
}

void MaterialBrowser::DeleteMaterial() try {
  const QModelIndex current = grid_->currentIndex();
  if (!current.isValid()) {
    return;
  }
  const int row = CurrentRow();
  if (rows_->IsNew(row)) {
    TakeBack();
    return;
  }
  grid_->selectRow(current.row());  // the one row that is asked about
  MarkCurrent();
  const MessageAnswer answer =
      messages().Show({.title = names_.title,
                       .text = "Delete the material \"" + FromQString(rows_->NameOf(row)) +
                               "\" from the table \"" + FromQString(rows_->Table()) + "\"?",
                       .icon = MessageIcon::kQuestion,
                       .buttons = MessageButtons::kYesNo,
                       .defaultAnswer = MessageAnswer::kNo});
  if (answer == MessageAnswer::kYes) {
    KeepPlace([this, row] { rows_->Delete(row); });
  }
} catch (...) {
  Report(names_.grid, "_AfterDelete");
}

void MaterialBrowser::CopyRows() try {
  std::vector<int> shown;
  for (const QModelIndex& index : grid_->selectionModel()->selectedRows()) {
    shown.push_back(index.row());
  }
  std::sort(shown.begin(), shown.end());
  std::vector<QStringList> rows;
  for (const int row : shown) {
    QStringList cells;
    for (int column = 0; column < order_->columnCount(); ++column) {
      cells.append(order_->index(row, column).data().toString());
    }
    rows.push_back(cells);
  }
  if (!rows.empty()) {
    Clipboard::SetText(FromQString(RowsText(rows)));
  }
  MarkCurrent();
} catch (...) {
  Report(names_.grid, "_Copy");
}

void MaterialBrowser::PasteRows() try {
  std::vector<QStringList> rows = RowsOfText(ToQString(Clipboard::GetText()));
  if (!rows.empty() && rows.front().front() == order_->headerData(0, Qt::Horizontal).toString()) {
    rows.erase(rows.begin());  // the headings came along
  }
  if (rows.empty() || rows_->Table().isEmpty()) {
    return;
  }
  if (rows.size() == 1 && rows.front().size() == 1) {
    if (!grid_->currentIndex().isValid()) {
      return;
    }
    Enter(grid_->currentIndex(), rows.front().front());
    MarkCurrent();
    return;
  }
  if (!LeaveRow((std::string(names_.grid) + "_Paste").c_str())) {
    return;
  }
  qint64 first = -1;
  KeepPlace([&] { first = rows_->Append(rows); });
  if (!order_->CellOf(rows_->PlaceOf(first), 0).isValid()) {
    txtSearch->clear();  // it would hide what has just come
  }
  MoveTo(order_->CellOf(rows_->PlaceOf(first), 0));
  MarkCurrent();
} catch (...) {
  Report(names_.grid, "_Paste");
}

}  // namespace halvorne
