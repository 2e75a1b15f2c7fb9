#pragma once

#include <QPushButton>
#include <QRadioButton>
#include <cstdint>

#include "platform/qt/modal_dialog.h"

class QLabel;

namespace halvorne {

/// "Time Window Points": size of the inverse transform. Sizes that would alias can't be chosen.
class frmTimeEntry final : public ModalDialog {
 public:
  explicit frmTimeEntry(QWidget* parent = nullptr);

 private:
  static constexpr int kSizes = 9;

  void Form_Load();
  void optPoints_Click(int index);
  void CmdTimeOK_Click();
  void CmdTimeCancel_Click();

  void SelectSize();
  void DisableAliasingSizes();
  /// Shows what the chosen size would make of the sample rate and the time window.
  void PrintParameters();

  std::int32_t points = 0;  ///< chosen size
  QRadioButton* optPoints[kSizes];
  QLabel *lblStartFreq, *lblStopFreq, *lblSampleRate, *lblTMax;
  QPushButton *CmdTimeOK, *CmdTimeCancel;
};

}  // namespace halvorne
