#pragma once

#include <QLineEdit>
#include <functional>

namespace halvorne {

/// A text box that cannot be typed in and only reacts to a click or the space bar.
class ClickBox final : public QLineEdit {
 public:
  explicit ClickBox(const QString& accessibleName);

  /// Sets what a click does.
  void OnClick(std::function<void()> click) { click_ = std::move(click); }

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;

 private:
  std::function<void()> click_;
};

}  // namespace halvorne
