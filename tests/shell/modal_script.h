#pragma once

#include <QFileDialog>
#include <QMessageBox>
#include <QPointer>
#include <QTimer>
#include <deque>
#include <functional>
#include <string>
#include <vector>

namespace halvorne::testing {

/// What a message box must look like, and the button that answers it.
struct ExpectedBox {
  std::string title;
  std::string text;
  QMessageBox::Icon icon = QMessageBox::NoIcon;
  QMessageBox::StandardButtons buttons = QMessageBox::Ok;
  QMessageBox::StandardButton defaultButton = QMessageBox::Ok;
  QMessageBox::StandardButton press = QMessageBox::Ok;
  bool offersSilence = false;  ///< has the check box of a repeated box
};

/// The common failure box.
ExpectedBox FailureBox(const std::string& title, const std::string& text);
/// A question with Yes and No, No the default.
ExpectedBox Question(const std::string& title, const std::string& text,
                     QMessageBox::StandardButton press);
/// The box of the file commands.
ExpectedBox FileBox(const std::string& title, int number, const std::string& description);

/// Puts a name into a file dialog in place of the one offered and presses Enter.
void EnterName(QFileDialog& dialog, const std::string& name);

/// Clicks a button of a box. A box without that button is a failure and is dismissed.
void Press(QMessageBox& box, QMessageBox::StandardButton button);

/// Stands in for the person in front of modal windows: each that opens is met with the next step.
/// A window that no step expects is a failure and is dismissed.
class ModalScript : public QObject {
 public:
  ModalScript();

  void Expect(const ExpectedBox& box);
  /// The next window is a file dialog of that title.
  void ExpectFileDialog(const std::string& title, std::function<void(QFileDialog&)> act);
  /// The same, answered with a name.
  void ExpectFileDialog(const std::string& title, const std::string& name);
  void ExpectCancelledFileDialog(const std::string& title);
  /// The next window is of another kind.
  void ExpectWindow(const std::string& what, std::function<void(QWidget&)> act);
  /// The next window has that objectName.
  void ExpectForm(const std::string& name, std::function<void(QWidget&)> act);

  /// True when every expected window came.
  bool Finished() const { return steps_.empty(); }

 private:
  struct Step {
    std::string what;
    std::function<void(QWidget&)> act;
  };

  void Look();
  void LookAgainSoon();

  std::deque<Step> steps_;
  std::vector<QPointer<QWidget>> met_;
};

}  // namespace halvorne::testing
