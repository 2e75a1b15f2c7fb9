#pragma once

#include <QHelpEngine>
#include <QString>
#include <QTemporaryDir>
#include <QUrl>
#include <memory>

namespace halvorne {

/// The pages of a help file with their contents, index and full-text index.
///
/// The help file itself is only read. What the help system writes beside a collection, its tables
/// and the full-text index, goes into a folder that is gone with this object, so that any number of
/// programs read one help file and none finds an index of older pages.
class HelpCollection {
 public:
  /// @param file  the help file, as the collection generator makes it
  explicit HelpCollection(const QString& file);
  HelpCollection(const HelpCollection&) = delete;
  HelpCollection& operator=(const HelpCollection&) = delete;

  /// False when the file is missing or no help file; there are no pages then.
  bool IsOpen() const { return open_; }

  /// The page with the list of contents.
  QUrl ContentsPage() const;
  /// The topic of a window, a plot or a command.
  /// @param name  its objectName
  /// @return place in the pages, empty when nothing is written about it
  QUrl TopicOf(const QString& name) const;
  /// A file of the collection, empty when there is none at that place.
  QByteArray FileAt(const QUrl& url) const { return engine_->fileData(url); }

  /// Waits until the search rests, at most a few seconds. To be called before the end: the help
  /// system stops a thread that runs, yet not one that is only about to.
  void Settle();

  /// Searches in the whole text; Engine().searchEngine() tells the end and what was found. Of the
  /// searches that come while one runs only the last is carried out.
  void Search(const QString& query);

  /// The help system: widgets of the contents and the index, search.
  QHelpEngine& Engine() const { return *engine_; }

 private:
  QTemporaryDir folder_;  // outlives the engine, which writes in it
  std::unique_ptr<QHelpEngine> engine_;
  bool open_ = false;
  bool indexing_ = false;
  bool searching_ = false;
  QString waiting_;  ///< the search that comes next
};

/// True when the file is there and is a help file.
bool IsHelpFile(const QString& file);

}  // namespace halvorne
