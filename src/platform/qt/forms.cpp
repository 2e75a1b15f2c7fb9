#include "platform/qt/forms.h"

#include <QApplication>
#include <QWidget>

#include "platform/failure.h"
#include "platform/qt/text.h"

namespace halvorne {
namespace {

template <class Action>
void ForEachForm(std::string_view name, const Action& act) {
  const QString wanted = ToQString(name);
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (window->objectName().compare(wanted, Qt::CaseInsensitive) == 0) {
      act(window);
    }
  }
}

}  // namespace

std::int32_t FormCount(std::string_view name) noexcept try {
  std::int32_t count = 0;
  ForEachForm(name, [&](QWidget*) { ++count; });
  return count;
} catch (...) {
  ReportFailure("FormCount", "FILES");
  return 0;
}

void UnloadForm(std::string_view name) {
  ForEachForm(name, [](QWidget* window) { window->close(); });
}

}  // namespace halvorne
