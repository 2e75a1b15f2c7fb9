#pragma once

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "platform/qt/modal_dialog.h"

namespace halvorne {

/// "Go To": asks for a frequency, or a time, within the window shown and puts the cursor on the
/// nearest point. One outside is told and stays to be mended.
class frmGoTo final : public ModalDialog {
 public:
  explicit frmGoTo(QWidget* parent = nullptr);

 private:
  void Form_Load();
  void cmdGoToOK_Click();
  void cmdGoToCancel_Click();

  QLineEdit* txtGoTo;
  QLabel *lblGoTo, *lblGoToUnit, *lblGoToLimits;
  QPushButton *cmdGoToOK, *cmdGoToCancel;
};

}  // namespace halvorne
