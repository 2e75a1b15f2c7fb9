#pragma once

#include <QPushButton>
#include <QRadioButton>
#include <string>

#include "platform/qt/file_dialogs.h"
#include "platform/qt/modal_dialog.h"

class QGroupBox;
class QLabel;

namespace halvorne {

class PictureBox;

/// "Excitation Waveforms": no excitation, a calculated tone burst or a data file, with a preview.
/// It works on the draft's excitation; OK commits what the boxes show, normalised by the preview.
class frmExcite final : public ModalDialog {
 public:
  explicit frmExcite(QWidget* parent = nullptr);

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  QGroupBox* MakeSources();
  QGroupBox* MakeToneBurst();
  void MakeFileParameters();
  QWidget* MakePreview();
  void ConnectEvents();

  // Event procedures.
  void Form_Load();
  void Form_Activate();
  void optXwfmSource_Click(int index);
  void optSineSquare_Click(int index);
  void txtExciteFreq_Change();
  void txtExciteCycles_Change();
  void txtExciteDelay_Change();
  void txtExcitePhase_Change();
  void txtExcitePoints_Change();
  void LeaveBoxes();
  void cmdOpenExciteFile_Click();
  void cmdExciteOK_Click();
  void cmdExciteCancel_Click();

  void FillBoxes();
  void FillFile();
  void ShowFileLabels();
  void ShowControlsOf(int source);
  void TakePoints();
  /// Samples the burst anew and shows it.
  void CalcAndPreview();

  std::string fileName, comment;  ///< of the draft's data file
  bool loading = true;            ///< nothing is drawn before the dialog shows
  QRadioButton *optXwfmSource[3], *optSineSquare[2];
  QLineEdit *txtExciteFreq, *txtExciteCycles, *txtExciteDelay, *txtExcitePhase, *txtExcitePoints;
  QLabel *lblSampleRate, *lblXPreview, *lblExciteTimeUnit;
  QLabel *lblExciteFileName, *lblExciteLength, *lblExciteFileHeader;
  QGroupBox *fraToneBurst, *fraExciteFileParas;
  QWidget* filePage;  ///< holds what belongs to a data file; lies where the tone burst lies
  PictureBox* picExcite;
  CommonDialog CmDialogX{"CmDialogX"};
  QPushButton *cmdOpenExciteFile, *cmdExciteOK, *cmdExciteCancel;
};

}  // namespace halvorne
