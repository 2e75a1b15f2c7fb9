#pragma once

#include <QGroupBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>

#include "platform/qt/modal_dialog.h"

namespace halvorne {

/// "Halvorne Input Parameters": all inputs of the design as text to read and to copy from.
class frmInputList final : public ModalDialog {
 public:
  explicit frmInputList(QWidget* parent = nullptr);

 protected:
  void Centre() override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void SetTabStops();

  void Form_Load();
  void Form_Resize();
  void optDetails_Click(int index);
  void cmdInputListOK_Click();

  QPlainTextEdit* txtInputList;
  QGroupBox* fraDetails;
  QRadioButton* optDetails[2];
  QPushButton* cmdInputListOK;
};

}  // namespace halvorne
