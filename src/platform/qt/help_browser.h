#pragma once

#include <QTextBrowser>

#include "platform/qt/help_collection.h"

namespace halvorne {

/// Shows the pages of a help collection, with a history. Links lead from page to page and never out
/// of the collection.
class HelpBrowser final : public QTextBrowser {
 public:
  explicit HelpBrowser(const HelpCollection& collection);

  /// Marks where the words stand on the page and shows the first of them.
  void Mark(const QStringList& words);

  QVariant loadResource(int type, const QUrl& name) override;

 protected:
  void changeEvent(QEvent* event) override;

 private:
  void SetStyle();

  const HelpCollection& collection_;
};

}  // namespace halvorne
