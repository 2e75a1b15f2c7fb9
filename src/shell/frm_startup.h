#pragma once

#include <QWidget>
#include <functional>
#include <string>

namespace halvorne {

/// The start-up window: stands for a second, then opens the main window, which unloads it.
class frmStartup final : public QWidget {
 public:
  /// @param showMain  makes and shows the main window
  explicit frmStartup(std::function<void()> showMain);

  /// Returns when the main window is up, or could not be made. Closing the window meanwhile hides
  /// it and changes nothing else.
  void Form_Load();

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  std::function<void()> showMain_;
  float PauseTime = 0;  ///< s
  float Start = 0;      ///< clock at the beginning of the pause
  std::string ConnectString;
};

/// Seconds since midnight.
float Timer();

/// True once `pause` seconds have passed since `start`.
/// Kept: no guard for midnight, so a pause that begins in the last second of a day lasts a day.
bool PauseIsOver(float start, float pause, float now);

}  // namespace halvorne
