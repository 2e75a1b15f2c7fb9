#include "platform/qt/help_viewer.h"

#include <QAction>
#include <QApplication>
#include <QFile>
#include <QKeyEvent>
#include <QMenu>
#include <QPointer>
#include <QtEndian>

#include "platform/failure.h"
#include "platform/paths.h"
#include "platform/qt/help_window.h"
#include "platform/qt/text.h"

namespace halvorne {
namespace {

QPointer<HelpWindow>& Window() {
  static QPointer<HelpWindow> window;
  return window;
}

QString FromPath(const std::string& path) {
  return QFile::decodeName(QByteArray::fromStdString(path));
}

/// True for a file of the kind that help files are of, as long as it says it is: a look at its
/// first bytes, which loads nothing of the help system. Whether it holds help is found out when it
/// is shown.
bool LooksLikeHelpFile(const QString& path) {
  constexpr qsizetype header = 100;  // of a database: kind, size of a page, count of pages
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) {
    return false;
  }
  const QByteArray start = file.read(header);
  if (start.size() < header || !start.startsWith("SQLite format 3")) {
    return false;
  }
  const qint64 pageSize = qFromBigEndian<quint16>(start.constData() + 16);
  const qint64 pages = qFromBigEndian<quint32>(start.constData() + 28);
  return file.size() == (pageSize == 1 ? 65536 : pageSize) * pages;
}

std::string HelpFile() {
  return ProgramPath("\\HALVORNE.HLP").string();
}

HelpWindow& ShownWindow(const std::string& file) {
  QPointer<HelpWindow>& window = Window();
  if (window == nullptr) {
    window = new HelpWindow(FromPath(file));
  }
  if (window->isMinimized()) {
    window->showNormal();
  }
  window->show();
  window->raise();
  window->activateWindow();
  return *window;
}

/// What the user asks about: the command under the bar of a menu, else the window.
QString AskedAbout(const QWidget& widget) {
  const auto* const menu = qobject_cast<const QMenu*>(&widget);
  if (menu != nullptr && menu->activeAction() != nullptr) {
    return menu->activeAction()->objectName();
  }
  const QWidget* window = widget.window();
  while (window->windowType() == Qt::Popup && window->parentWidget() != nullptr) {
    window = window->parentWidget()->window();  // the window that an open list belongs to
  }
  return window->objectName();
}

}  // namespace

bool HelpViewerInstalled() {
  return LooksLikeHelpFile(FromPath(HelpFile()));
}

void ShowHelpWindow(const std::string& file, bool search, const std::string& key) {
  HelpWindow& window = ShownWindow(file);
  if (search) {
    window.ShowSearch(ToQString(key));
  } else {
    window.ShowContents();
  }
}

void ShowHelpTopic(const std::string& file, const QString& name) {
  ShownWindow(file).ShowTopic(name);
}

void EndHelp() {
  delete Window();
}

HelpKey::HelpKey() {
  QCoreApplication::instance()->installEventFilter(this);
}

bool HelpKey::eventFilter(QObject* watched, QEvent* event) try {
  if (event->type() != QEvent::KeyPress || !watched->isWidgetType()) {
    return false;
  }
  const auto* const pressed = static_cast<const QKeyEvent*>(event);
  if (pressed->key() != Qt::Key_F1 || pressed->modifiers() != Qt::NoModifier) {
    return false;
  }
  const QString name = AskedAbout(*static_cast<const QWidget*>(watched));
  while (QWidget* const popup = QApplication::activePopupWidget()) {
    popup->close();  // an open menu would keep the keys
  }
  ShowHelpTopic(HelpFile(), name);
  return true;
} catch (...) {
  ReportFailure("eventFilter", "HelpKey");
  return true;
}

}  // namespace halvorne
