#pragma once

#include <QPushButton>
#include <QRadioButton>
#include <string>

#include "platform/qt/modal_dialog.h"

class QGridLayout;
class QLabel;

namespace halvorne {

/// "Frequency Scale": frequency unit, limits and points of the sweep, design centre frequency.
class frmFreqEntry final : public ModalDialog {
 public:
  explicit frmFreqEntry(QWidget* parent = nullptr);

 private:
  void MakeBoxes(QGridLayout* grid);

  // Event procedures.
  void Form_Load();
  void optUnit_Click(int index);
  void txtStartFreq_LostFocus();
  void txtStopFreq_LostFocus();
  void txtDesFreq_LostFocus();
  void txtNoPts_LostFocus();
  void cmdFreqOK_Click();
  void cmdFreqCancel_Click();

  /// Shows the design's three frequencies in its own unit.
  void FreqLoad();
  /// Shows the boxes' three frequencies in the unit just chosen.
  void FreqLabel();
  void ShowUnits();
  void ApplyTextRules();
  void StoreLimits();
  /// Widens the time record to what the sweep needs, as far as that goes.
  void FitTimePoints();
  /// Raises the stop frequency until a time record of the largest size is enough.
  void AvoidAliasing();
  void StoreDesignFrequency();

  float scale = 0;     ///< of the boxes, Hz
  float oldScale = 0;  ///< before the last change of the unit
  std::string unit;
  QRadioButton* options[3];
  QLineEdit *txtStartFreq, *txtStopFreq, *txtNoPts, *txtDesFreq;
  QLabel *lblStartFreqUnit, *lblStopFreqUnit, *lblDesFreqUnit;
  QPushButton *cmdFreqOK, *cmdFreqCancel;
};

}  // namespace halvorne
