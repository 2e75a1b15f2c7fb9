#include "platform/qt/help_collection.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QHelpLink>
#include <QHelpSearchEngine>
#include <utility>

namespace halvorne {
namespace {

/// Makes a collection that holds one help file.
bool MakeCollection(const QString& collection, const QString& file) {
  QHelpEngineCore maker(collection);
  maker.setReadOnly(false);
  return IsHelpFile(file) && maker.setupData() && maker.registerDocumentation(file);
}

}  // namespace

HelpCollection::HelpCollection(const QString& file) {
  const QString collection = folder_.filePath(QStringLiteral("help.qhc"));
  open_ = MakeCollection(collection, file);
  engine_ = std::make_unique<QHelpEngine>(collection);
  if (!open_) {
    return;
  }
  engine_->setReadOnly(false);
  engine_->setUsesFilterEngine(true);
  const QHelpSearchEngine* const search = engine_->searchEngine();
  QObject::connect(search, &QHelpSearchEngine::indexingFinished, engine_.get(), [this] {
    indexing_ = false;
    Search(std::exchange(waiting_, QString()));
  });
  QObject::connect(search, &QHelpSearchEngine::searchingFinished, engine_.get(), [this] {
    searching_ = false;
    Search(std::exchange(waiting_, QString()));
  });
  open_ = engine_->setupData();
  indexing_ = open_;
}

void HelpCollection::Settle() {
  constexpr int patience = 5000;  // ms
  const QDeadlineTimer deadline(patience);
  waiting_.clear();
  while ((indexing_ || searching_) && !deadline.hasExpired()) {
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents, 10);
  }
}

void HelpCollection::Search(const QString& query) {
  if (!open_ || query.isEmpty()) {
    return;
  }
  if (indexing_ || searching_) {
    waiting_ = query;
    return;
  }
  searching_ = true;
  engine_->searchEngine()->search(query);
}

QUrl HelpCollection::ContentsPage() const {
  return TopicOf(QStringLiteral("mnuHelpItem(0)"));
}

QUrl HelpCollection::TopicOf(const QString& name) const {
  const QList<QHelpLink> found = engine_->documentsForIdentifier(name);
  return found.isEmpty() ? QUrl() : found.constFirst().url;
}

bool IsHelpFile(const QString& file) {
  return !QHelpEngineCore::namespaceName(file).isEmpty();
}

}  // namespace halvorne
