#pragma once

#include <QHelpContentWidget>
#include <QHelpIndexWidget>
#include <QHelpSearchEngine>
#include <QLineEdit>
#include <QListWidget>
#include <QTabWidget>
#include <QToolButton>
#include <QWidget>

#include "platform/qt/help_browser.h"
#include "platform/qt/help_collection.h"

namespace halvorne {

/// The help window: contents, index and search on its left, the page on its right.
///
/// It stands beside the program's windows and answers while a modal one is open, so that a topic
/// can be read where it is needed.
class HelpWindow final : public QWidget {
 public:
  /// @param file  the help file; a missing one gives a window that says so
  explicit HelpWindow(const QString& file);
  ~HelpWindow() override;
  HelpWindow(const HelpWindow&) = delete;
  HelpWindow& operator=(const HelpWindow&) = delete;

  /// Shows the list of contents.
  void ShowContents();
  /// Shows the search.
  /// @param key  words to search for at once; empty waits for the user
  void ShowSearch(const QString& key);
  /// Shows the topic of a window, a plot or a command; without one, the list of contents.
  void ShowTopic(const QString& name);

 protected:
  bool event(QEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;
  void showEvent(QShowEvent* event) override;

 private:
  QWidget* MakeTools();
  QWidget* MakeIndexPage();
  QWidget* MakeSearchPage();
  void ConnectContents();
  void ShowPage(const QUrl& page);
  void ShowDocuments(const QList<QHelpLink>& documents);
  void SelectInContents(const QUrl& page);
  void Search();
  void ShowFound();
  void StandBesideModalWindow();

  HelpCollection collection_;
  QUrl shown_;  ///< page on show, without the place on it
  QTabWidget* pages_ = new QTabWidget;
  QToolButton *back_ = nullptr, *forward_ = nullptr, *home_ = nullptr;
  QHelpContentWidget* contents_;
  QLineEdit* indexKey_ = new QLineEdit;
  QHelpIndexWidget* index_;
  QLineEdit* key_ = new QLineEdit;
  QListWidget* found_ = new QListWidget;
  HelpBrowser* text_ = new HelpBrowser(collection_);
};

}  // namespace halvorne
