#pragma once

#include <QLabel>

namespace halvorne {

/// A label in a column that shows the user's own words: as much of them as there is room for, the
/// rest as an ellipsis, all of them in its tool tip.
class ElidedLabel final : public QLabel {
 public:
  ElidedLabel();

  void ShowWords(const QString& words);

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace halvorne
