#include "materials/material_grid.h"

#include <QAction>
#include <QHeaderView>
#include <QKeyEvent>
#include <algorithm>
#include <array>
#include <utility>

namespace halvorne {
namespace {

/// Keys that do something else than work in the grid.
bool PassesThrough(int key) {
  constexpr std::array keys = {Qt::Key_Tab,     Qt::Key_Backtab, Qt::Key_Escape, Qt::Key_Shift,
                               Qt::Key_Control, Qt::Key_Alt,     Qt::Key_AltGr,  Qt::Key_Meta};
  return std::find(keys.begin(), keys.end(), key) != keys.end();
}

}  // namespace

MaterialGrid::MaterialGrid(GridEvents events) : events_(std::move(events)) {
  setSelectionBehavior(SelectRows);
  setSelectionMode(ExtendedSelection);
  setEditTriggers(DoubleClicked | EditKeyPressed);
  setTabKeyNavigation(false);
  setAlternatingRowColors(true);
  setWordWrap(false);
  setHorizontalScrollMode(ScrollPerPixel);
  verticalHeader()->hide();
  verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 8);
  horizontalHeader()->setHighlightSections(false);
  horizontalHeader()->setSortIndicatorClearable(true);
  horizontalHeader()->setSortIndicator(-1, Qt::AscendingOrder);
  setSortingEnabled(true);
  setContextMenuPolicy(Qt::ActionsContextMenu);
  // The keys stand in the texts only: while a cell is being edited they belong to its editor.
  AddCommand("mnuAdd", QStringLiteral("Add Material\tIns"), events_.add);
  AddCommand("mnuDelete", QStringLiteral("Delete Material\tDel"), events_.remove);
  AddCommand("mnuCopyRows", QStringLiteral("Copy Rows\tCtrl+C"), events_.copy);
  AddCommand("mnuPasteRows", QStringLiteral("Paste Rows\tCtrl+V"), events_.paste);
  AddCommand("mnuTakeBack", QStringLiteral("Take Back Changes of the Row\tCtrl+Z"),
             events_.takeBack);
}

void MaterialGrid::AddCommand(const char* name, const QString& text,
                              const std::function<void()>& run) {
  auto* const action = new QAction(text, this);
  action->setObjectName(QString::fromLatin1(name));
  connect(action, &QAction::triggered, this, run);
  addAction(action);
}

bool MaterialGrid::RunCommand(QKeyEvent* event) {
  const bool plain = (event->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
  if (plain && (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)) {
    events_.entered();
  } else if (plain && event->key() == Qt::Key_Insert) {
    events_.add();
  } else if (plain && event->key() == Qt::Key_Delete) {
    events_.remove();
  } else if (event->matches(QKeySequence::Copy)) {
    events_.copy();
  } else if (event->matches(QKeySequence::Paste)) {
    events_.paste();
  } else if (event->matches(QKeySequence::Undo)) {
    events_.takeBack();
  } else {
    return false;
  }
  event->accept();
  return true;
}

void MaterialGrid::keyPressEvent(QKeyEvent* event) {
  const bool inEditor = state() == EditingState && !hasFocus();
  if (inEditor || event->key() == Qt::Key_Escape) {
    inEditor ? QTableView::keyPressEvent(event) : event->ignore();
    return;
  }
  if (RunCommand(event)) {
    return;
  }
  const bool passes = PassesThrough(event->key());
  QTableView::keyPressEvent(event);
  if (!passes) {
    events_.touched();
  }
}

void MaterialGrid::mousePressEvent(QMouseEvent* event) {
  const bool onRow = indexAt(event->position().toPoint()).isValid();
  QTableView::mousePressEvent(event);
  if (onRow) {
    events_.touched();
  }
}

}  // namespace halvorne
