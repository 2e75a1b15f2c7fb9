#pragma once

#include <QPushButton>
#include <QRadioButton>
#include <string>

#include "platform/qt/file_dialogs.h"
#include "platform/qt/modal_dialog.h"

class QGroupBox;
class QLabel;

namespace halvorne {

/// "Acoustic Terminations": the real load of each side and, from a file, its course over the
/// frequencies. The real values count on OK; switches and files go to the design at once and stay
/// there after Cancel.
class frmAcoustLoad final : public ModalDialog {
 public:
  explicit frmAcoustLoad(QWidget* parent = nullptr);

  /// Gives the focus to the value of the front medium; without it the rear one has it.
  void ShowFront() { front.value->setFocus(); }

 private:
  /// The controls of a side.
  struct Side {
    QLineEdit* value;
    QLabel* unit;
    QRadioButton* option[2];
    QPushButton* select;
    QLabel *fileName, *comment;
  };

  QGroupBox* MakeSide(QGroupBox* frame, const Side& side);
  static void LoadSide(const Side& side, bool isComplex, const std::string& fileName,
                       const std::string& comment);
  static void ShowFile(const Side& side, const std::string& fileName, const std::string& comment);
  static void ShowLabels(const Side& side, bool visible);
  /// Lets the user choose a load file; empty when the dialog is closed without a choice.
  std::string ChooseFile();

  // Event procedures.
  void Form_Load();
  void OptBackLoad_Click(int index);
  void OptFrontLoad_Click(int index);
  void CmdLoadBackComplex_Click();
  void CmdLoadFrontComplex_Click();
  void cmdAcoustTermOK_Click();
  void cmdAcoustTermCancel_Click();

  bool loading = false;  ///< options that Form_Load chooses run no logic
  Side back{}, front{};
  CommonDialog CmDialogX{"CmDialogX"};
  QPushButton *cmdAcoustTermOK, *cmdAcoustTermCancel;
};

}  // namespace halvorne
