#pragma once

#include <QLineEdit>
#include <QPushButton>

#include "platform/qt/modal_dialog.h"

namespace halvorne {

/// "Save Impedance": asks for the reference of the reflection coefficient before its file is named.
class frmTouchstone final : public ModalDialog {
 public:
  /// @param reference  what is offered, ohms
  frmTouchstone(double reference, QWidget* parent);

  /// The reference that was chosen, ohms; 0 when the dialog was cancelled.
  double Reference() const { return reference_; }

 private:
  void cmdTouchstoneOK_Click();
  void cmdTouchstoneCancel_Click();

  double reference_ = 0;
  QLineEdit* txtReference;
  QPushButton *cmdTouchstoneOK, *cmdTouchstoneCancel;
};

}  // namespace halvorne
