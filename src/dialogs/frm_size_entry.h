#pragma once

#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <cstdint>

#include "platform/qt/modal_dialog.h"

namespace halvorne {

/// "Element Size and Shape": shape and dimensions of the element, from which its area follows.
class frmSizeEntry final : public ModalDialog {
 public:
  explicit frmSizeEntry(QWidget* parent = nullptr);

 private:
  void Form_Load();
  void optCircle_Click();
  void optAnnulus_Click();
  void optRect_Click();
  void cmdSizeOK_Click();
  void cmdSizeCancel_Click();

  /// Sets the dialog's shape with its captions and the visibility of the second box.
  void ChooseShape(std::int16_t chosen);

  std::int16_t shape = 0;
  QRadioButton *optCircle, *optAnnulus, *optRect;
  QLabel *lblPiezoDim1, *lblPiezoDim2, *lblPiezoUnit1, *lblPiezoUnit2;
  QLineEdit *txtPiezoDim1, *txtPiezoDim2;
  QPushButton *cmdSizeOK, *cmdSizeCancel;
};

}  // namespace halvorne
