#pragma once

#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>

#include "dialogs/click_box.h"
#include "dialogs/dispersion_page.h"
#include "dialogs/material_page.h"
#include "engine/design_model.h"
#include "platform/qt/eliding_label.h"
#include "platform/qt/modal_dialog.h"

namespace halvorne {

/// "Piezoelectric Layers": number, connection, polarity, thickness, material and velocity
/// dispersion of the piezoelectric layers. Works on the draft, which its OK moves into the design;
/// only the dispersion tables are changed in place.
///
/// Control arrays count from 0: element 0 belongs to layer 1, the rear one, element 1 to layer 2.
class frmPiezoEntry final : public ModalDialog {
 public:
  explicit frmPiezoEntry(QWidget* parent = nullptr);

  /// Leads to a layer, 1 or 2: its thickness, on the page that the dialog opens on, has the
  /// focus, and the Material page shows it.
  void ShowLayer(int layer);

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  // Pages, in frm_piezo_entry_pages.cpp.
  QFrame* MakeThicknessPage();
  QGroupBox* MakeCountFrame();
  QGroupBox* MakeConnectionFrame();
  void MakeLayerRow(QGridLayout* grid, int index);
  QFrame* MakeMaterialPage();
  void ConnectEvents();
  void SetKeyboardOrder();

  // Event procedures, in frm_piezo_entry.cpp.
  void Form_Load();
  void CmdView_Click(int index);
  void optPiezoNum_Click(int index);
  void optPZConnect_Click(int index);
  void txtPZpolar_Click(int index);
  void txtPZLambda_GotFocus();
  void txtPZLambda_Change(int index);
  void txtPZLambda_LostFocus();
  void txtPZmm_GotFocus();
  void txtPZmm_Change(int index);
  void txtPZmm_LostFocus();
  void chkPZVelDisp_Click(bool checked);
  void CmdLoadFile_Click();
  void cmdOpenPiezoDB_Click();
  void cmdPiezoOK_Click();
  void cmdPiezoCancel_Click();

  // Material page, in frm_piezo_entry_material.cpp.
  void optPZLayer_Click(int index);
  void Field_Change(const MaterialField<PiezoMaterial>& field);
  void PZTextFormat(int layer);
  void CopyTextToTemp();
  void SSTabPiezoLayer();

  void FdFpLabels();
  double ParallelFreq(int layer) const;
  void update_Vnames();
  void ShowPolarity(int layer);
  void ShowSecondLayer(bool shown);

  FramePages pages;
  int page = 0, pageBefore = 0;
  bool pageFilled = false;     ///< the Material page was filled since it was entered
  bool textFormatted = false;  ///< set by PZTextFormat

  QPushButton* CmdView[3];
  QPushButton *cmdPiezoOK, *cmdPiezoCancel;

  QLabel *lblFd, *lblFp;
  QCheckBox* chkPZVelDisp;
  QGroupBox *fraNumPiezoLyr, *fraConnection;
  QRadioButton *optPiezoNum[2], *optPZConnect[2];
  QLabel *lblNoPzLayers, *lblPiezoNum[2];
  ElidingLabel* lblPZName[2];
  QLineEdit *txtPZLambda[2], *txtPZmm[2];
  ClickBox* txtPZpolar[2];

  QGroupBox* fraPZLayer;
  QRadioButton* optPZLayer[2];
  MaterialPage<PiezoMaterial> material;
  QPushButton* cmdOpenPiezoDB;

  DispersionPage dispersion;
};

}  // namespace halvorne
