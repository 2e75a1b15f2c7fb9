#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QScreen>
#include <QVBoxLayout>
#include <algorithm>
#include <initializer_list>

#include "materials/cell_editor.h"
#include "materials/material_browser.h"

namespace halvorne {
namespace {

constexpr int kTwipsPerPixel = 15;
constexpr int kGap = 8;
constexpr int kSmallestGridHeight = 120;
/// A column takes no more of the window than this; its longer texts show in their tool tips.
constexpr int kWidestColumn = 320;

}  // namespace

void MaterialBrowser::LayOut() {
  top_ = new QWidget(this);
  auto* const above = new QHBoxLayout(top_);
  above->setContentsMargins(0, 0, 0, 0);
  auto* const lblTables = Named(new QLabel(QStringLiteral("Database Table:")), names_.tablesLabel);
  tables_ = Named(new QComboBox, names_.tables);
  tables_->setSizeAdjustPolicy(QComboBox::AdjustToContents);
  tables_->setMinimumContentsLength(20);
  tables_->setAccessibleName(lblTables->text());
  lblTables->setBuddy(tables_);
  auto* const lblSearch = Named(new QLabel(QStringLiteral("Search:")), "lblSearch");
  txtSearch = Named(new QLineEdit, "txtSearch");
  txtSearch->setPlaceholderText(QStringLiteral("Name of a material"));
  txtSearch->setAccessibleName(QStringLiteral("Search in the names of the materials"));
  txtSearch->setClearButtonEnabled(true);
  txtSearch->setMinimumWidth(180);
  txtSearch->installEventFilter(this);
  lblSearch->setBuddy(txtSearch);
  above->addWidget(lblTables);
  above->addWidget(tables_);
  above->addStretch();
  above->addWidget(lblSearch);
  above->addWidget(txtSearch);

  grid_ = Named(new MaterialGrid(EventsOfGrid()), names_.grid);
  grid_->setParent(this);
  grid_->setAccessibleName(QStringLiteral("Materials"));
  grid_->setModel(order_.get());
  auto* const editor =
      new CellEditor([this](int column) { return rows_->HoldsNumbers(column); },
                     [this](const QModelIndex& cell, const QString& typed) { Enter(cell, typed); });
  editor->setParent(grid_);
  grid_->setItemDelegate(editor);

  bottom_ = new QWidget(this);
  auto* const below = new QVBoxLayout(bottom_);
  below->setContentsMargins(0, 0, 0, 0);
  auto* const hints = new QHBoxLayout;
  auto* const lblHint = Named(
      new QLabel(QStringLiteral("F2 edits a cell, Insert adds a material, Delete removes one")),
      "lblHint");
  lblHint->setForegroundRole(QPalette::PlaceholderText);
  lblCount = Named(new QLabel, "lblCount");
  hints->addWidget(lblHint);
  hints->addStretch();
  hints->addWidget(lblCount);
  below->addLayout(hints);

  auto* const frame = Named(new QGroupBox(QStringLiteral("Copy record to Halvorne")), "Frame1");
  auto* const inFrame = new QHBoxLayout(frame);
  auto* const lblMaterial = Named(new QLabel(QStringLiteral("Material:")), "Label1");
  txtCopyMaterial = Named(new QLineEdit(QStringLiteral("None")), "txtCopyMaterial");
  txtCopyMaterial->setReadOnly(true);
  txtCopyMaterial->setFocusPolicy(Qt::ClickFocus);
  txtCopyMaterial->setAccessibleName(QStringLiteral("Material to be copied"));
  copy_ = Named(new QPushButton(QStringLiteral("Copy")), names_.copy);
  inFrame->addWidget(lblMaterial);
  inFrame->addWidget(txtCopyMaterial);
  inFrame->addWidget(copy_);
  ok_ = Named(new QPushButton(QStringLiteral("OK")), names_.ok);
  cancel_ = Named(new QPushButton(QStringLiteral("Cancel")), names_.cancel);
  ok_->setDefault(true);
  auto* const closing = new QHBoxLayout;
  closing->addStretch();
  closing->addWidget(ok_);
  closing->addWidget(cancel_);
  below->addWidget(frame);
  below->addStretch();
  below->addLayout(closing);

  QWidget* before = tables_;
  for (QWidget* next : std::initializer_list<QWidget*>{txtSearch, grid_, copy_, ok_, cancel_}) {
    setTabOrder(before, next);
    before = next;
  }
  setWindowFlag(Qt::WindowMaximizeButtonHint);
  setMinimumSize(std::max(top_->minimumSizeHint().width(), bottom_->minimumSizeHint().width()) +
                     names_.widthMargin / kTwipsPerPixel,
                 names_.heightMargin / kTwipsPerPixel + kSmallestGridHeight);
  grid_->setFocus();
}

QSize MaterialBrowser::sizeHint() const {
  const QSize room = screen()->availableSize() * 0.9;
  return QSize(1080, 620).boundedTo(room).expandedTo(minimumSize());
}

void MaterialBrowser::resizeEvent(QResizeEvent* event) {
  ModalDialog::resizeEvent(event);
  Form_Resize();
}

void MaterialBrowser::Form_Resize() try {
  const int left = names_.widthMargin / kTwipsPerPixel / 2;
  const int wide = width() - names_.widthMargin / kTwipsPerPixel;
  top_->setGeometry(left, kGap, wide, top_->sizeHint().height());
  const int gridTop = top_->geometry().bottom() + 1 + kGap;
  grid_->setGeometry(left, gridTop, wide, height() - names_.heightMargin / kTwipsPerPixel);
  const int bottomTop = grid_->geometry().bottom() + 1 + kGap;
  bottom_->setGeometry(left, bottomTop, wide, height() - bottomTop - kGap);
} catch (...) {
  Report("Form", "_Resize");
}

void MaterialBrowser::FitColumns() {
  grid_->resizeColumnsToContents();
  for (int column = 0; column < order_->columnCount(); ++column) {
    grid_->setColumnWidth(column, std::min(grid_->columnWidth(column), kWidestColumn));
  }
}

bool MaterialBrowser::eventFilter(QObject* watched, QEvent* event) {
  if (watched == txtSearch && event->type() == QEvent::KeyPress) {
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key == Qt::Key_Down || key == Qt::Key_Return || key == Qt::Key_Enter) {
      grid_->setFocus();  // into what was found; Return there marks it
      return true;
    }
  }
  return ModalDialog::eventFilter(watched, event);
}

}  // namespace halvorne
