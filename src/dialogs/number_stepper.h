#pragma once

#include <QLineEdit>
#include <QToolButton>
#include <QWidget>

namespace halvorne {

/// A button that shows an arrow, drawn by the style whatever fonts there are.
class ArrowButton final : public QToolButton {
 public:
  ArrowButton(Qt::ArrowType arrow, const QString& accessibleName);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
};

/// A number that cannot be typed in, with an up and a down button right beside it. While one of the
/// buttons has the focus the arrow keys press them too.
class NumberStepper final : public QWidget {
 public:
  NumberStepper(QLineEdit* box, ArrowButton* up, ArrowButton* down);

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  ArrowButton *up_, *down_;
};

/// A stepper behind its caption, which is named `labelName` unless that is null.
QWidget* CaptionedStepper(const QString& caption, const char* labelName, QLineEdit* box,
                          ArrowButton* up, ArrowButton* down);

}  // namespace halvorne
