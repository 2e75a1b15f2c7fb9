#pragma once

#include <QLabel>
#include <QPushButton>

#include "platform/qt/modal_dialog.h"

namespace halvorne {

/// "Electrical Terminatons": transmitter output and receiver input impedance, ohms.
class frmElecTermEntry final : public ModalDialog {
 public:
  explicit frmElecTermEntry(QWidget* parent = nullptr);

 private:
  void Form_Load();
  void cmdElecOK_Click();
  void cmdElecCancel_Click();

  QLineEdit *txtXmtrZ, *txtRcvrZ;
  QPushButton *cmdElecOK, *cmdElecCancel;
};

}  // namespace halvorne
