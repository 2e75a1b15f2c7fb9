#include "shell/layout_check.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QTableWidget>
#include <sstream>

#include "platform/qt/eliding_label.h"

namespace halvorne::testing {
namespace {

template <class... Parts>
std::string Sentence(const Parts&... parts) {
  std::ostringstream words;
  (words << ... << parts);
  return words.str();
}

std::string NameOf(const QWidget& widget) {
  const QString name = widget.objectName();
  return name.isEmpty() ? widget.metaObject()->className() : name.toStdString();
}

/// Toolkit-made parts of a control are the toolkit's matter.
bool IsOurs(const QWidget& widget) {
  return widget.isVisible() && !widget.isWindow() && !widget.objectName().startsWith("qt_") &&
         !widget.inherits("QMenuBar") && !widget.inherits("QHeaderView") &&
         !widget.inherits("QSizeGrip");
}

std::vector<const QWidget*> ChildrenOf(const QWidget& widget) {
  std::vector<const QWidget*> children;
  if (qobject_cast<const QTableWidget*>(&widget) != nullptr ||
      qobject_cast<const QComboBox*>(&widget) != nullptr ||
      qobject_cast<const QLineEdit*>(&widget) != nullptr) {
    return children;
  }
  for (const QObject* child : widget.children()) {
    const auto* const control = qobject_cast<const QWidget*>(child);
    if (control != nullptr && IsOurs(*control)) {
      children.push_back(control);
    }
  }
  return children;
}

/// Width that the text of a control needs; 0 for controls without one.
int TextWidth(const QWidget& widget) {
  if (dynamic_cast<const ElidingLabel*>(&widget) != nullptr) {
    return 0;  // shows what fits and the rest as a tool tip
  }
  if (const auto* const label = qobject_cast<const QLabel*>(&widget)) {
    int widest = 0;
    for (const QString& line : label->text().split(u'\n')) {
      widest = std::max(widest, label->fontMetrics().horizontalAdvance(line));
    }
    return label->wordWrap() ? 0 : widest;
  }
  if (const auto* const button = qobject_cast<const QAbstractButton*>(&widget)) {
    return button->text().isEmpty() ? 0 : button->minimumSizeHint().width();
  }
  if (const auto* const frame = qobject_cast<const QGroupBox*>(&widget)) {
    return frame->fontMetrics().horizontalAdvance(frame->title());
  }
  if (const auto* const list = qobject_cast<const QComboBox*>(&widget)) {
    return list->minimumSizeHint().width();
  }
  return 0;
}

void CollectFaults(const QWidget& widget, std::vector<std::string>& faults) {
  if (TextWidth(widget) > widget.width()) {
    faults.push_back(Sentence("the text of ", NameOf(widget), " needs ", TextWidth(widget), " of ",
                              widget.width()));
  }
  if (const auto* const grid = qobject_cast<const QTableWidget*>(&widget)) {
    for (int row = 0; row < grid->rowCount(); ++row) {
      for (int column = 0; column < grid->columnCount(); ++column) {
        const QString text = grid->item(row, column)->text();
        if (grid->fontMetrics().horizontalAdvance(text) > grid->columnWidth(column)) {
          faults.push_back(Sentence('"', text.toStdString(), "\" is too wide for its cell"));
        }
      }
    }
  }
  const std::vector<const QWidget*> children = ChildrenOf(widget);
  for (std::size_t i = 0; i < children.size(); ++i) {
    if (!widget.rect().contains(children[i]->geometry())) {
      faults.push_back(Sentence(NameOf(*children[i]), " leaves ", NameOf(widget)));
    }
    for (std::size_t k = i + 1; k < children.size(); ++k) {
      if (children[i]->geometry().intersects(children[k]->geometry())) {
        faults.push_back(Sentence(NameOf(*children[i]), " lies over ", NameOf(*children[k])));
      }
    }
    CollectFaults(*children[i], faults);
  }
}

}  // namespace

std::vector<std::string> LayoutFaults(const QWidget& window) {
  std::vector<std::string> faults;
  CollectFaults(window, faults);
  return faults;
}

}  // namespace halvorne::testing
