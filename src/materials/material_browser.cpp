#include "materials/material_browser.h"

#include <algorithm>
#include <utility>

#include "platform/messages.h"

namespace halvorne {
namespace {

constexpr const char* kNone = "None";

}  // namespace

MaterialBrowser::MaterialBrowser(const BrowserNames& names, const MaterialStore& store,
                                 QWidget* parent)
    : ModalDialog(names.window, QString::fromLatin1(names.title), parent),
      names_(names),
      connection_(StoreConnection(store)),
      rows_(std::make_unique<MaterialRows>(store, connection_)),
      order_(std::make_unique<RowOrder>(*rows_)) {
  rows_->setObjectName(QString::fromLatin1(names.data));
  rows_->setParent(this);  // it is found by its name; the pointer deletes it first
  LayOut();
  connect(grid_->selectionModel(), &QItemSelectionModel::currentChanged, this,
          &MaterialBrowser::Grid_RowColChange);
  idle_.setSingleShot(true);
  connect(&idle_, &QTimer::timeout, this, &MaterialBrowser::WhenIdle);
  connect(txtSearch, &QLineEdit::textChanged, this, &MaterialBrowser::Search);
  connect(copy_, &QPushButton::clicked, this, &MaterialBrowser::Copy_Click);
  connect(ok_, &QPushButton::clicked, this, [this] { OK(); });
  connect(cancel_, &QPushButton::clicked, this, [this] { Cancel(); });
}

MaterialBrowser::~MaterialBrowser() {
  moving_ = true;
  grid_->setModel(nullptr);
}

void MaterialBrowser::Form_Load() try {
  Centre();
  OpenStore(connection_);
  tables_->addItems(MaterialTables(connection_));
  if (tables_->count() == 0) {
    throw Failure(failure_number::kInvalidCall);
  }
  tables_->setCurrentIndex(0);
  Table_Click();
  connect(tables_, &QComboBox::currentIndexChanged, this, &MaterialBrowser::Table_Click);
} catch (...) {
  Report("Form", "_Load");
}

void MaterialBrowser::Report(const char* control, const char* event) {
  ReportFailure((std::string(control) + event).c_str(), names_.window);
}

void MaterialBrowser::Table_Click() try {
  if (tables_->currentText() == rows_->Table()) {
    return;
  }
  if (!LeaveRow((std::string(names_.tables) + "_Click").c_str()) && rows_->ChangedRow() >= 0) {
    tables_->setCurrentText(rows_->Table());
    return;
  }
  // Else OK could copy a material of this table under the name of one of the table before.
  bookmark_ = QModelIndex();
  SetBoxText(txtCopyMaterial, kNone);
  moving_ = true;
  txtSearch->clear();
  moving_ = false;
  KeepPlace([this] { rows_->Open(tables_->currentText()); });
  MoveTo(order_->index(0, 0));
  FitColumns();
} catch (...) {
  Report(names_.tables, "_Click");
  ShowCount();
}

void MaterialBrowser::KeepPlace(const std::function<void()>& change) {
  const int row = std::max(grid_->currentIndex().row(), 0);
  const int column = std::max(grid_->currentIndex().column(), 0);
  const bool marked = bookmark_.isValid();
  const qint64 number = marked ? rows_->NumberOf(bookmark_.row()) : -1;
  const QString name = marked ? rows_->NameOf(bookmark_.row()) : QString();
  const auto restore = [&] {
    // Kept: the mark of a row that is gone stays without its row, so that OK fails on it. A row
    // that got its number meanwhile is another one.
    const int place = marked ? rows_->PlaceOf(number) : -1;
    bookmark_ = place >= 0 && rows_->NameOf(place) == name ? rows_->index(place, 0) : QModelIndex();
    MoveTo(order_->index(std::min(row, order_->rowCount() - 1), column));
    ShowCount();
    moving_ = false;
  };
  moving_ = true;
  try {
    change();
  } catch (...) {
    restore();
    throw;
  }
  restore();
}

void MaterialBrowser::MoveTo(const QModelIndex& cell) {
  const bool before = moving_;
  moving_ = true;
  if (cell.isValid()) {
    grid_->setCurrentIndex(cell);
    grid_->scrollTo(cell);
  }
  moving_ = before;
}

void MaterialBrowser::Grid_RowColChange(const QModelIndex& current, const QModelIndex& previous) {
  if (moving_ || returning_) {
    return;
  }
  try {
    if (previous.isValid() && previous.row() != current.row()) {
      WillMove(order_->RowAt(previous));
    }
    const int changed = rows_->ChangedRow();
    if (changed >= 0 && changed != order_->RowAt(current)) {
      LeaveRow((std::string(names_.grid) + "_RowColChange").c_str());
      if (rows_->ChangedRow() >= 0) {
        returning_ = true;
        idle_.start();
        return;
      }
    }
    MarkCurrent();
  } catch (...) {
    Report(names_.grid, "_RowColChange");
  }
}

/// What waits for the end of the key or click at hand, which still holds places of the rows as they
/// are: the grid goes back on the row that could not be written, a stale table is read again.
void MaterialBrowser::WhenIdle() try {
  refused_ = false;
  if (returning_) {
    const int row = rows_->ChangedRow();
    if (row >= 0) {
      MoveTo(order_->CellOf(row, std::max(grid_->currentIndex().column(), 0)));
    }
    returning_ = false;
  }
  if (rows_->IsStale()) {
    KeepPlace([this] { rows_->Refresh(); });
  }
} catch (...) {
  Report(names_.data, "_Refresh");
}

void MaterialBrowser::MarkCurrent() {
  if (!moving_ && !returning_ && grid_->currentIndex().isValid()) {
    Mark(CurrentRow());
  }
}

void MaterialBrowser::Mark(int row) {
  bookmark_ = rows_->index(row, 0);
  txtCopyMaterial->setText(rows_->NameOf(row));
  txtCopyMaterial->setCursorPosition(0);
}

std::vector<MaterialCell> MaterialBrowser::MarkedCells() const {
  if (!bookmark_.isValid()) {
    throw Failure(failure_number::kInvalidCall, "The marked row is no longer in the table");
  }
  return rows_->CellsOf(bookmark_.row());
}

void MaterialBrowser::Copy_Click() try {
  if (!grid_->currentIndex().isValid()) {
    throw Failure(failure_number::kInvalidCall);
  }
  Mark(CurrentRow());
} catch (...) {
  Report(names_.copy, "_Click");
}

void MaterialBrowser::Enter(const QModelIndex& cell, const QString& typed) try {
  rows_->Enter(order_->mapToSource(cell), typed);
} catch (...) {
  Report(names_.grid, "_BeforeColUpdate");
  refused_ = true;  // for the click or key at hand, which may be that on OK
  idle_.start();
}

bool MaterialBrowser::LeaveRow(const char* procedure) try {
  if (grid_->isAncestorOf(focusWidget())) {
    grid_->setFocus();  // an open editor gives away what it holds
  }
  if (refused_) {
    return false;
  }
  const bool before = std::exchange(moving_, true);  // a row that is dropped moves the grid
  try {
    rows_->Write();
  } catch (...) {
    moving_ = before;
    throw;
  }
  moving_ = before;
  ShowCount();
  return true;
} catch (...) {
  ReportFailure(procedure, names_.window);
  if (rows_->IsStale()) {
    idle_.start();
  }
  return false;
}

bool MaterialBrowser::LeaveForGood(const char* procedure) {
  if (LeaveRow(procedure)) {
    return true;
  }
  if (rows_->ChangedRow() < 0) {
    return !refused_;
  }
  const std::string name = FromQString(rows_->NameOf(rows_->ChangedRow()));
  const MessageAnswer answer = messages().Show(
      {.title = names_.title,
       .text = "The row of \"" + name + "\" is not written.\r\n\r\nClose without its changes?",
       .icon = MessageIcon::kQuestion,
       .buttons = MessageButtons::kYesNo,
       .defaultAnswer = MessageAnswer::kNo});
  if (answer != MessageAnswer::kYes) {
    return false;
  }
  moving_ = true;
  rows_->TakeBack();
  moving_ = false;
  return true;
}

void MaterialBrowser::Release() {
  moving_ = true;
  rows_->Close();
  connection_.close();
  Unload();
}

void MaterialBrowser::Search() {
  moving_ = true;
  order_->SetSearch(txtSearch->text());
  if (!grid_->currentIndex().isValid()) {
    MoveTo(order_->index(0, 0));
  } else {
    grid_->scrollTo(grid_->currentIndex());
  }
  ShowCount();
  moving_ = false;
}

void MaterialBrowser::ShowCount() {
  const int all = rows_->rowCount();
  const int shown = order_->rowCount();
  const QString text =
      shown == all ? QString::number(all) : QStringLiteral("%1 of %2").arg(shown).arg(all);
  lblCount->setText(text + (all == 1 ? QStringLiteral(" material") : QStringLiteral(" materials")));
}

}  // namespace halvorne
