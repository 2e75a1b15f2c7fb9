#pragma once

#include <QLabel>
#include <QPushButton>
#include <QRadioButton>

#include "platform/qt/modal_dialog.h"

namespace halvorne {

/// "Plot Scale Entry": switches the scales of the plot on show between automatic and manual and
/// sets their limits. Options act at once; numbers count on OK only. There is no Cancel.
class frmPlotScaleEntry final : public ModalDialog {
 public:
  explicit frmPlotScaleEntry(QWidget* parent = nullptr);

 private:
  // Pages, in frm_plot_scale_pages.cpp.
  QFrame* MakeAmplitudePage();
  QFrame* MakeFrequencyPage();
  QFrame* MakeTimePage();
  void ConnectEvents();

  // Event procedures.
  void Form_Load();
  void CmdShow_Click(int index);
  void optAmplAuto_Click();
  void optAmplManual_Click();
  void optFreqAuto_Click();
  void optFreqManual_Click();
  void optTimeAuto_Click();
  void optTimeManual_Click();
  void cmdPlotScaleOK_Click();

  void EnableAmplitudeBoxes(bool enabled);
  void EnableFrequencyBoxes(bool enabled);
  void EnableTimeBoxes(bool enabled);
  void FillAmplitudePage();
  void FillFrequencyPage();
  void FillTimePage();

  FramePages pages;
  QPushButton *cmdPlotScaleOK, *CmdShow[3];

  QRadioButton *optAmplAuto, *optAmplManual;
  QLabel *lblLeftAxis, *lblRightAxis, *strLeftUnit, *strRightUnit, *lblLogRng1, *lblLogRng2;
  QLineEdit *txtLeftMax, *txtLeftMin, *txtRightMax, *txtRightMin, *txtLogRng, *txtAmplWindow;

  QRadioButton *optFreqAuto, *optFreqManual;
  QLineEdit *txtFreqLower, *txtFreqUpper;
  QLabel *lblFreqUnit, *lblFreqUnit2, *lblStartFreqLimit, *lblStopFreqLimit;

  QRadioButton *optTimeAuto, *optTimeManual;
  QLineEdit *txtTimeLower, *txtTimeUpper, *txtTWindow;
  QLabel *lblTimeUnit, *lblTimeUnit2, *lblStartTimeLimit, *lblStopTimeLimit;
};

}  // namespace halvorne
