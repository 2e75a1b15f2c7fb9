#include "shell/graph_menu.h"

#include <QAction>
#include <QKeySequence>
#include <algorithm>
#include <utility>

#include "platform/qt/message_boxes.h"
#include "plot/plot_state.h"

namespace halvorne {

bool DesignIsOpen() {
  return plot.DesignOpen;
}

GraphMenu::GraphMenu(QWidget* window, Procedure before)
    : QMenu(window), before_(std::move(before)) {
  setObjectName(QStringLiteral("mnuGraph"));
  setTitle(QStringLiteral("Graph"));
  setToolTipsVisible(true);
  for (QAction*& end : ends_) {
    end = addSeparator();  // lines that part nothing are not shown
  }
  connect(this, &QMenu::aboutToShow, this, [this] { FindOutStates(); });
  connect(this, &QMenu::aboutToHide, this, [this] {
    // A shortcut asks by itself whether its entry is available.
    for (const Entry& entry : entries_) {
      entry.action->setEnabled(true);
    }
  });
}

QAction* GraphMenu::Add(const GraphMenuRow& row) {
  auto* const action = new QAction(row.caption, this);
  action->setObjectName(QLatin1String(row.name));
  action->setCheckable(row.checked != nullptr);
  if (const QKeySequence keys(QLatin1String(row.shortcut)); !keys.isEmpty()) {
    action->setShortcut(keys);
    parentWidget()->addAction(action);
  }
  connect(action, &QAction::triggered, this,
          [this, procedure = row.procedure, available = row.available] {
            const Command command;
            if (available()) {
              before_();
              procedure();
            }
          });
  insertAction(ends_.at(static_cast<std::size_t>(row.group)), action);
  entries_.push_back({action, row.checked, row.available});
  return action;
}

void GraphMenu::Remove(QAction* entry) {
  std::erase_if(entries_, [entry](const Entry& each) { return each.action == entry; });
  removeAction(entry);
  entry->deleteLater();  // it may be the one that is being done
}

void GraphMenu::Open(QPoint place) {
  if (!isVisible() && !entries_.empty()) {
    popup(place);
  }
}

void GraphMenu::FindOutStates() {
  for (const Procedure& refresh : refreshers_) {
    refresh();
  }
  for (const Entry& entry : entries_) {
    entry.action->setEnabled(entry.available());
    if (entry.checked != nullptr) {
      entry.action->setChecked(entry.checked());
    }
  }
}

}  // namespace halvorne
