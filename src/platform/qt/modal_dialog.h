#pragma once

#include <QAbstractButton>
#include <QButtonGroup>
#include <QDialog>
#include <QFrame>
#include <QHash>
#include <QLineEdit>
#include <functional>
#include <string>
#include <vector>

#include "platform/failure.h"
#include "platform/qt/text.h"

namespace halvorne {

/// What every modal dialog of the program has in common.
///
/// A dialog lives from its opening to its closing: the menu command makes it, shows it with exec()
/// and drops it. Its controls carry their names as objectName. Their change logic is connected
/// directly and runs whenever a text, option or check box really changes, by the user or by the
/// program, at once; nothing ever blocks signals.
class ModalDialog : public QDialog {
 protected:
  /// @param name   class name of the window, also its objectName and the module of its failures
  /// @param title  caption
  ModalDialog(const char* name, const QString& title, QWidget* parent);

  /// Gives the dialog its size and puts it in the middle of its screen: the first step of every
  /// Form_Load.
  virtual void Centre();
  /// Closes the dialog; its object goes with its owner's scope.
  void Unload() { accept(); }

  /// Gives a new control its name, and an array's element its index in parentheses.
  template <class Control>
  Control* Named(Control* control, const char* name) {
    control->setObjectName(QString::fromLatin1(name));
    return control;
  }
  template <class Control>
  Control* Named(Control* control, const char* name, int index) {
    control->setObjectName(QStringLiteral("%1(%2)").arg(QLatin1String(name)).arg(index));
    return control;
  }

  /// Runs an event procedure, a member function of the dialog, on each real change of a text.
  template <class Dialog>
  void OnChange(QLineEdit* box, void (Dialog::*procedure)()) {
    connect(box, &QLineEdit::textChanged, static_cast<Dialog*>(this), procedure);
  }
  /// The same for element `index` of an array of text boxes.
  template <class Dialog>
  void OnChange(QLineEdit* box, void (Dialog::*procedure)(int), int index) {
    connect(box, &QLineEdit::textChanged, static_cast<Dialog*>(this), Bound(procedure, index));
  }
  /// Runs an event procedure when a control gets the focus.
  template <class Dialog>
  void OnReach(QWidget* control, void (Dialog::*procedure)()) {
    WatchFocus(control).reached = Bound(procedure);
  }
  /// Runs an event procedure when the focus leaves a control. A menu or a window in front of the
  /// dialog takes the focus without leaving.
  template <class Dialog>
  void OnLeave(QWidget* control, void (Dialog::*procedure)()) {
    WatchFocus(control).left = Bound(procedure);
  }
  /// Runs an event procedure on each press of a button: by the mouse, a key, or as the button that
  /// Return or Escape presses. The button takes the focus before it acts, so that the box that had
  /// it is left in every case.
  template <class Dialog>
  void OnClick(QAbstractButton* button, void (Dialog::*procedure)()) {
    OnPress(button, Bound(procedure));
  }
  template <class Dialog>
  void OnClick(QAbstractButton* button, void (Dialog::*procedure)(int), int index) {
    OnPress(button, Bound(procedure, index));
  }
  /// The button that Escape presses. Without one Escape closes the window.
  void SetCancelButton(QAbstractButton* button) { cancel_ = button; }
  /// The same on the choice of an option button; leaving it runs nothing.
  template <class Dialog>
  void OnChoice(QAbstractButton* option, void (Dialog::*procedure)()) {
    auto* const dialog = static_cast<Dialog*>(this);
    connect(option, &QAbstractButton::toggled, dialog, [dialog, procedure](bool chosen) {
      if (chosen) {
        (dialog->*procedure)();
      }
    });
  }
  /// The same on the choice of element `index` of an array of option buttons.
  template <class Dialog>
  void OnChoice(QAbstractButton* option, void (Dialog::*procedure)(int), int index) {
    auto* const dialog = static_cast<Dialog*>(this);
    connect(option, &QAbstractButton::toggled, dialog, [dialog, procedure, index](bool chosen) {
      if (chosen) {
        (dialog->*procedure)(index);
      }
    });
  }

  bool eventFilter(QObject* watched, QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void showEvent(QShowEvent* event) override;

 private:
  using Procedure = std::function<void()>;
  struct FocusProcedures {
    Procedure reached, left;
  };

  template <class Dialog>
  auto Bound(void (Dialog::*procedure)()) {
    return [dialog = static_cast<Dialog*>(this), procedure] { (dialog->*procedure)(); };
  }
  template <class Dialog>
  auto Bound(void (Dialog::*procedure)(int), int index) {
    return [dialog = static_cast<Dialog*>(this), procedure, index] { (dialog->*procedure)(index); };
  }
  void OnPress(QAbstractButton* button, const Procedure& procedure);
  FocusProcedures& WatchFocus(QWidget* control);
  void StopAtChosenOptions();

  QHash<QObject*, FocusProcedures> focus_;
  QAbstractButton* cancel_ = nullptr;
};

/// A row of buttons that shows one of several frames in the same place and hides the others.
class FramePages {
 public:
  /// Adds a page; the dialog keeps the size of its largest one.
  void Add(QAbstractButton* button, QFrame* frame);
  void Show(int index);
  QAbstractButton* Button(int index) const {
    return pages_.at(static_cast<std::size_t>(index)).button;
  }

 private:
  struct Page {
    QAbstractButton* button;
    QFrame* frame;
  };
  std::vector<Page> pages_;
  /// Keeps the buttons apart from the options on the pages, which lie in the same window.
  QButtonGroup group_;
};

/// Number in a text box; what is no number counts as 0.
double BoxValue(const QLineEdit* box);
/// Puts a text of the core into a text box.
void SetBoxText(QLineEdit* box, const std::string& text);

}  // namespace halvorne
