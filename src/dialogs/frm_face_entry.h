#pragma once

#include <QCheckBox>
#include <QLabel>
#include <QPushButton>

#include "dialogs/dispersion_page.h"
#include "dialogs/material_page.h"
#include "dialogs/number_stepper.h"
#include "engine/design_model.h"
#include "platform/qt/eliding_label.h"
#include "platform/qt/modal_dialog.h"

namespace halvorne {

/// "Faceplate Entry" or "Backplate Entry", by entry.PlateSide: number, thickness, area, material
/// and velocity dispersion of the plates on one side. Works on the draft, which the menu command
/// moves into the design when the dialog was accepted; only the dispersion tables are changed in
/// place.
///
/// Control arrays count from 0: element n - 1 belongs to plate n.
class frmFaceEntry final : public ModalDialog {
 public:
  /// The loaded dialog; loads it, hidden, when there is none.
  static frmFaceEntry& Loaded(QWidget* owner);
  /// Shows the loaded dialog modally, loading it when there is none. It is gone when this returns.
  static void ShowModal(QWidget* owner);

  ~frmFaceEntry() override;
  frmFaceEntry(const frmFaceEntry&) = delete;
  frmFaceEntry& operator=(const frmFaceEntry&) = delete;

  /// Leads to a plate, from 1: its thickness has the focus, and the Material page shows it.
  void ShowPlate(int plate);
  /// Shows page 0 "Thickness", 1 "Material" or 2 "Dispersion".
  void CmdView_Click(int index);
  /// Fills the Material page from the draft's plate (1 to 10).
  void AcTextFormat(int layer);

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  explicit frmFaceEntry(QWidget* parent);

  // Pages, in frm_face_entry_pages.cpp.
  QFrame* MakeThicknessPage();
  QWidget* MakeCountRow();
  QGridLayout* MakePlateRows();
  void MakePlateRow(QGridLayout* grid, int index);
  QFrame* MakeMaterialPage();
  QWidget* MakeDispersionLayers();
  void ConnectEvents();
  void ConnectPlateRow(int index);
  void SetKeyboardOrder();

  // Event procedures, in frm_face_entry.cpp.
  void Form_Load();
  void CmdFaceNumberUP_Click();
  void CmdFaceNumberDown_Click();
  void txtFaceArea_Change(int index);
  void txtFaceArea_LostFocus();
  void txtFaceLambda_GotFocus();
  void txtFaceLambda_Change(int index);
  void txtFaceLambda_LostFocus();
  void txtFaceMM_GotFocus();
  void txtFaceMM_Change(int index);
  void txtFaceMM_LostFocus();
  void cmdFaceOK_Click();
  void cmdFaceCancel_Click();

  // Material page, in frm_face_entry_material.cpp.
  void Field_Change(const MaterialField<AcousticMaterial>& field);
  void CopyAcTextToTemp();
  void CmdMatlLayerUp_Click();
  void CmdMatlLayerDown_Click();
  void MoveToLayer(int layer);
  void tabFaceEntry();
  void cmdOpenAcousticDB_Click();

  // Dispersion page, in frm_face_entry_dispersion.cpp.
  void chkAcVelDisp_Click(bool checked);
  void CmdLayerUp_Click();
  void CmdLayerDown_Click();
  void CmdLoadFile_Click();
  void Update_Names();
  int SlotOnShow() const;

  void MatlTabEnable();
  void FillRow(int index);
  void ShowMaterialOf(int index);
  void ShowRow(int index, bool shown);
  void RewriteColumn(const std::array<QLineEdit*, kMaxPlates>& boxes, const char* pattern);

  FramePages pages;
  int page = 0, pageBefore = 0;
  bool pageFilled = false;     ///< the Material page was filled since it was entered
  bool textFormatted = false;  ///< set by AcTextFormat

  QPushButton* CmdView[3];
  QPushButton *cmdFaceOK, *cmdFaceCancel;

  QLabel *lblFdes, *lblNumAcLayers;
  QLineEdit* txtNFace;
  ArrowButton *CmdFaceNumberUP, *CmdFaceNumberDown;
  QCheckBox* chkAcVelDisp;
  std::array<QLabel*, kMaxPlates> lblFaceNum, lblZ;
  std::array<ElidingLabel*, kMaxPlates> lblFaceMatl;
  std::array<QLineEdit*, kMaxPlates> txtFaceArea, txtFaceLambda, txtFaceMM;

  QLineEdit* txtMatlLayer;
  ArrowButton *CmdMatlLayerUp, *CmdMatlLayerDown;
  MaterialPage<AcousticMaterial> material;
  QPushButton* cmdOpenAcousticDB;

  QLineEdit* TxtCurrentLayer;
  ArrowButton *CmdLayerUp, *CmdLayerDown;
  DispersionPage dispersion;
};

}  // namespace halvorne
