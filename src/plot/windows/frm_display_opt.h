#pragma once

#include <QCheckBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>

#include "platform/qt/modal_dialog.h"

namespace halvorne {

/// "Display Options": phase or delay, attenuation of the load medium, font size of the title box.
/// Options act at once; the attenuation's values count on OK only. There is no Cancel.
class frmDisplayOpt final : public ModalDialog {
 public:
  explicit frmDisplayOpt(QWidget* parent = nullptr);

 private:
  QFrame* MakePhasePage();
  QFrame* MakeAttenuationPage();
  QFrame* MakeFontsPage();

  void Form_Load();
  void CmdView_Click(int index);
  void optPhase_Click(int index);
  void optFontSize_Click(int index);
  void cmdDisplayOptOK_Click();

  FramePages pages;
  QPushButton *CmdView[3], *cmdDisplayOptOK;
  QRadioButton *optPhase[3], *optFontSize[3];
  QCheckBox* chkAttenEnable;
  QLineEdit *txtAttenLength, *txtAttenRate, *txtAttenFreq, *txtAttenExp;
  QLabel* lblAttenFreq;
};

}  // namespace halvorne
