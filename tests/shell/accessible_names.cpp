#include "shell/accessible_names.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractSlider>
#include <QAbstractSpinBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTextEdit>
#include <map>

#include "platform/qt/picture_box.h"

namespace halvorne::testing {
namespace {

/// One of the kinds that hold a value of their own, told from others by the name alone.
bool HoldsAValue(const QWidget& widget) {
  return qobject_cast<const QLineEdit*>(&widget) != nullptr ||
         qobject_cast<const QComboBox*>(&widget) != nullptr ||
         qobject_cast<const QAbstractItemView*>(&widget) != nullptr ||
         qobject_cast<const QAbstractSlider*>(&widget) != nullptr ||
         qobject_cast<const QAbstractSpinBox*>(&widget) != nullptr ||
         qobject_cast<const QTextEdit*>(&widget) != nullptr ||
         qobject_cast<const QPlainTextEdit*>(&widget) != nullptr ||
         dynamic_cast<const PictureBox*>(&widget) != nullptr;
}

bool IsControl(const QWidget& widget) {
  return HoldsAValue(widget) || qobject_cast<const QAbstractButton*>(&widget) != nullptr;
}

/// What a label says whose buddy the control is.
QString BuddyText(const QWidget& widget) {
  for (const QLabel* label : widget.window()->findChildren<QLabel*>()) {
    if (label->buddy() == &widget) {
      return label->text();
    }
  }
  return {};
}

QString SpokenName(const QWidget& widget) {
  if (!widget.accessibleName().isEmpty()) {
    return widget.accessibleName();
  }
  if (const auto* const button = qobject_cast<const QAbstractButton*>(&widget)) {
    return button->text();
  }
  return BuddyText(widget);
}

/// Controls below a widget, hidden pages included. What the toolkit puts into a control is its own
/// matter, and so is a control that its window hides.
void CollectControls(const QWidget& widget, std::vector<const QWidget*>& controls) {
  for (const QObject* child : widget.children()) {
    const auto* const inner = qobject_cast<const QWidget*>(child);
    if (inner == nullptr || inner->isWindow() || child->objectName().startsWith("qt_")) {
      continue;
    }
    if (!IsControl(*inner)) {
      CollectControls(*inner, controls);
    } else if (!inner->isHidden()) {
      controls.push_back(inner);
    }
  }
}

std::string Who(const QWidget& control) {
  const QString name = control.objectName();
  return (name.isEmpty() ? control.metaObject()->className() : name).toStdString();
}

}  // namespace

std::vector<std::string> NamingFaults(const QWidget& window) {
  std::vector<const QWidget*> controls;
  CollectControls(window, controls);
  std::vector<std::string> faults;
  std::map<QString, const QWidget*> named;
  for (const QWidget* control : controls) {
    if (control->objectName().isEmpty()) {
      faults.push_back(Who(*control) + " has no objectName");
    }
    const QString name = SpokenName(*control).trimmed();
    if (name.isEmpty()) {
      faults.push_back(Who(*control) + " has no accessible name");
    } else if (HoldsAValue(*control)) {
      const auto [same, isNew] = named.emplace(name, control);
      if (!isNew) {
        faults.push_back(Who(*control) + " and " + Who(*same->second) + " are both called " +
                         name.toStdString());
      }
    }
  }
  return faults;
}

}  // namespace halvorne::testing
