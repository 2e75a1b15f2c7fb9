#pragma once

#include <QLabel>

namespace halvorne {

/// One line of plain text that may be longer than its place: what does not fit is left out and
/// shown as a tool tip. text() is always the whole text.
class ElidingLabel final : public QLabel {
 public:
  /// @param mode        where an ellipsis stands for what is left out
  /// @param characters  how many the label would like to have room for
  explicit ElidingLabel(Qt::TextElideMode mode, int characters = 44);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  /// As much of the text as may be laid out at all: a comment may have megabytes.
  QString Readable() const;

  Qt::TextElideMode mode_;
  int characters_;
};

}  // namespace halvorne
