#include "dialogs/frm_face_entry.h"

#include <QCloseEvent>
#include <QPointer>
#include <algorithm>
#include <memory>

#include "dialogs/entry_state.h"
#include "dialogs/plate_side.h"
#include "dialogs/thickness_boxes.h"
#include "platform/number_text.h"

namespace halvorne {
namespace {

constexpr const char* kAreaPattern = "#0.0000";

/// The dialog that was loaded and is still to be shown.
QPointer<frmFaceEntry> loaded;

/// The plate that a new row starts with.
AcousticMaterial BlankPlate() {
  AcousticMaterial plate;
  plate.Name = "Blank";
  plate.Velocity = 2000;
  plate.ShearVelocity = 1000;
  plate.Density = 1000;
  plate.Loss = 0;
  plate.LossFreq = 1;
  plate.LossExp = 1;
  plate.Vendor = "Blank";
  plate.Formula = "Blank";
  plate.Comments = "None";
  plate.DataSource = "Blank";
  return plate;
}

}  // namespace

frmFaceEntry& frmFaceEntry::Loaded(QWidget* owner) {
  if (loaded == nullptr) {
    loaded = new frmFaceEntry(owner);
  }
  return *loaded;
}

void frmFaceEntry::ShowModal(QWidget* owner) {
  const std::unique_ptr<frmFaceEntry> shown(&Loaded(owner));
  loaded = nullptr;
  shown->exec();
}

frmFaceEntry::~frmFaceEntry() = default;

/// Unloading by the window's own close button, which leaves tables and entry.PlatesAccepted as they
/// stand; or of a dialog that was loaded and never shown.
void frmFaceEntry::closeEvent(QCloseEvent* event) {
  if (loaded == this) {
    loaded = nullptr;
    deleteLater();
  }
  ModalDialog::closeEvent(event);
}

void frmFaceEntry::Form_Load() try {
  page = pageBefore = 0;
  pageFilled = textFormatted = false;
  // Before anything can fail, so that Cancel finds a backup in any case.
  BackUpDispersion(PlateSlots());
  Centre();
  setWindowTitle(ToQString(entry.PlateSide + "plate Entry"));
  entry.ThicknessFocus = kMillimetresLead;
  if (entry.AcDBReturn) {
    entry.AcDBReturn = false;
    CmdView_Click(1);
    SetBoxText(txtMatlLayer, std::to_string(entry.CurAcLayer));
    AcTextFormat(entry.CurAcLayer);
  } else {
    CmdView_Click(0);
  }
  MatlTabEnable();
  CmdView[2]->setEnabled(draft.TmpPlateVelDispOn);
  chkAcVelDisp->setChecked(draft.TmpPlateVelDispOn);
  lblNumAcLayers->setText(ToQString("Number of " + entry.PlateSide + "plates"));
  SetBoxText(txtNFace, SpacedNumberText(draft.TmpNoPlates));
  lblFdes->setText(ToQString(DesignFreqCaption()));
  for (int index = 0; index < draft.TmpNoPlates; ++index) {
    FillRow(index);
  }
  dispersion.SetLayerCaption("Current " + entry.PlateSide + "plate");
  if (draft.TmpNoPlates == 0) {
    chkAcVelDisp->setEnabled(false);
  }
} catch (...) {
  ReportFailure("Form_Load", "frmFaceEntry");
}

void frmFaceEntry::ShowRow(int index, bool shown) {
  const auto i = static_cast<std::size_t>(index);
  for (QWidget* control :
       std::initializer_list<QWidget*>{lblFaceNum.at(i), lblFaceMatl.at(i), lblZ.at(i),
                                       txtFaceArea.at(i), txtFaceLambda.at(i), txtFaceMM.at(i)}) {
    control->setVisible(shown);
  }
}

void frmFaceEntry::FillRow(int index) {
  const auto i = static_cast<std::size_t>(index);
  ShowRow(index, true);
  SetBoxText(txtFaceMM.at(i), MillimetreText(draft.TmpPlateThick(index)));
  SetBoxText(txtFaceArea.at(i), Format(draft.TmpPlateArea(index), kAreaPattern));
  ShowMaterialOf(index);
}

void frmFaceEntry::ShowMaterialOf(int index) {
  const auto i = static_cast<std::size_t>(index);
  const AcousticMaterial& plate = draft.TmpAcMatl(index + 1);
  lblFaceMatl.at(i)->setText(ToQString(plate.Name));
  lblZ.at(i)->setText(ToQString(Format(plate.Density * plate.Velocity / 1000000, "#0.00")));
}

void frmFaceEntry::ShowPlate(int plate) {
  entry.CurAcLayer = static_cast<std::int16_t>(plate);
  txtFaceMM.at(static_cast<std::size_t>(plate - 1))->setFocus();
}

void frmFaceEntry::MatlTabEnable() try {
  CmdView[1]->setVisible(draft.TmpNoPlates >= 1);
} catch (...) {
  ReportFailure("MatlTabEnable", "frmFaceEntry");
}

void frmFaceEntry::CmdView_Click(int index) try {
  page = index;
  pages.Show(index);
  if (index == 1) {
    SetBoxText(txtMatlLayer, "1");
  } else if (index == 2) {
    SetBoxText(TxtCurrentLayer, "1");
    Update_Names();
  }
  tabFaceEntry();
  pageBefore = index;
} catch (...) {
  ReportFailure("CmdView_Click", "frmFaceEntry");
}

void frmFaceEntry::CmdFaceNumberUP_Click() try {
  if (++draft.TmpNoPlates > kMaxPlates) {
    draft.TmpNoPlates = kMaxPlates;
  } else {
    const int index = draft.TmpNoPlates - 1;
    const auto i = static_cast<std::size_t>(index);
    draft.TmpAcMatl(index + 1) = BlankPlate();
    ShowRow(index, true);
    ShowMaterialOf(index);
    SetBoxText(txtFaceArea.at(i), Format(1, kAreaPattern));
    SetBoxText(txtFaceLambda.at(i), Format(0, kThicknessPattern));
    SetBoxText(txtFaceMM.at(i), Format(0, kThicknessPattern));
    SetBoxText(txtNFace, SpacedNumberText(draft.TmpNoPlates));
    SetBoxText(TxtCurrentLayer, "1");
  }
  chkAcVelDisp->setEnabled(true);
  MatlTabEnable();
} catch (...) {
  ReportFailure("CmdFaceNumberUP_Click", "frmFaceEntry");
}

// Kept: the record of the plate that goes stays, and so does CurAcLayer.
void frmFaceEntry::CmdFaceNumberDown_Click() try {
  if (draft.TmpNoPlates > 0) {
    ShowRow(draft.TmpNoPlates - 1, false);
    --draft.TmpNoPlates;
  }
  if (draft.TmpNoPlates < 1) {
    draft.TmpNoPlates = 0;
    TxtCurrentLayer->clear();
    chkAcVelDisp->setEnabled(false);
    chkAcVelDisp->setChecked(false);
  }
  SetBoxText(txtNFace, SpacedNumberText(draft.TmpNoPlates));
  MatlTabEnable();
} catch (...) {
  ReportFailure("CmdFaceNumberDown_Click", "frmFaceEntry");
}

void frmFaceEntry::txtFaceArea_Change(int index) try {
  QLineEdit* const box = txtFaceArea.at(static_cast<std::size_t>(index));
  draft.TmpPlateArea(index) = BoxValue(box);
  if (draft.TmpPlateArea(index) < 0) {
    draft.TmpPlateArea(index) = 1;
    CorrectToLowest(box, Format(1, kAreaPattern));
  }
} catch (...) {
  ReportFailure("txtFaceArea_Change", "frmFaceEntry");
}

void frmFaceEntry::txtFaceLambda_GotFocus() {
  entry.ThicknessFocus = kLambdasLead;
}

void frmFaceEntry::txtFaceMM_GotFocus() {
  entry.ThicknessFocus = kMillimetresLead;
}

void frmFaceEntry::txtFaceLambda_Change(int index) try {
  if (entry.ThicknessFocus != kLambdasLead) {
    return;
  }
  const auto i = static_cast<std::size_t>(index);
  const double lambdas = CorrectedValue(txtFaceLambda.at(i), {0, "0.00000"});
  const double millimetres = MillimetresOf(lambdas, draft.TmpAcMatl(index + 1).Velocity);
  SetBoxText(txtFaceMM.at(i), Format(millimetres, kThicknessPattern));
  draft.TmpPlateThick(index) = BoxValue(txtFaceMM.at(i)) / 1000;
} catch (...) {
  ReportFailure("txtFaceLambda_Change", "frmFaceEntry");
}

// Kept: unlike a piezoelectric layer's, a plate's thickness is stored at every change.
void frmFaceEntry::txtFaceMM_Change(int index) try {
  if (entry.ThicknessFocus != kMillimetresLead) {
    return;
  }
  const auto i = static_cast<std::size_t>(index);
  const double millimetres = CorrectedValue(txtFaceMM.at(i), {0, "0.00000"});
  draft.TmpPlateThick(index) = millimetres / 1000;
  const double lambdas = LambdasOf(millimetres, draft.TmpAcMatl(index + 1).Velocity);
  SetBoxText(txtFaceLambda.at(i), Format(lambdas, kThicknessPattern));
} catch (...) {
  ReportFailure("txtFaceMM_Change", "frmFaceEntry");
}

/// Rewrites the boxes of a column that are shown in the column's pattern.
void frmFaceEntry::RewriteColumn(const std::array<QLineEdit*, kMaxPlates>& boxes,
                                 const char* pattern) {
  for (int index = 0; index < draft.TmpNoPlates; ++index) {
    QLineEdit* const box = boxes.at(static_cast<std::size_t>(index));
    SetBoxText(box, Format(BoxValue(box), pattern));
  }
}

void frmFaceEntry::txtFaceArea_LostFocus() try {
  RewriteColumn(txtFaceArea, kAreaPattern);
} catch (...) {
  ReportFailure("txtFaceArea_LostFocus", "frmFaceEntry");
}

void frmFaceEntry::txtFaceLambda_LostFocus() try {
  RewriteColumn(txtFaceLambda, kThicknessPattern);
} catch (...) {
  ReportFailure("txtFaceLambda_LostFocus", "frmFaceEntry");
}

void frmFaceEntry::txtFaceMM_LostFocus() try {
  RewriteColumn(txtFaceMM, kThicknessPattern);
} catch (...) {
  ReportFailure("txtFaceMM_LostFocus", "frmFaceEntry");
}

void frmFaceEntry::cmdFaceOK_Click() try {
  entry.PlatesAccepted = true;
  PlateSideInForce().velDispOn = draft.TmpPlateVelDispOn;
  Unload();
} catch (...) {
  ReportFailure("cmdFaceOK_Click", "frmFaceEntry");
}

void frmFaceEntry::cmdFaceCancel_Click() try {
  RestoreDispersion(PlateSlots());
  entry.PlatesAccepted = false;
  Unload();
} catch (...) {
  ReportFailure("cmdFaceCancel_Click", "frmFaceEntry");
}

}  // namespace halvorne
