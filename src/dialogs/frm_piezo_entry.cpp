#include "dialogs/frm_piezo_entry.h"

#include <QCloseEvent>
#include <algorithm>
#include <array>

#include "dialogs/entry_state.h"
#include "dialogs/material_browsers.h"
#include "dialogs/thickness_boxes.h"
#include "engine/piezo_section.h"
#include "persistence/dispersion_file.h"
#include "persistence/material_records.h"
#include "platform/number_text.h"
#include "plot/plot_select.h"

namespace halvorne {
namespace {

/// Dispersion slots of the two halves of the stack; they always hold the same table.
constexpr std::array kPiezoSlots = {0, kBackSlot};

std::string MegahertzText(double frequency) {
  return Format(Quotient(frequency, design.FreqScale), "0.000 ") + design.FreqUnit;
}

void ClearPiezoDispersion() {
  std::ranges::for_each(kPiezoSlots, ClearDispersion);
}

}  // namespace

void frmPiezoEntry::Form_Load() try {
  Centre();
  // First of all: what follows fails on a material without velocity, and Cancel then finds a
  // backup.
  BackUpDispersion(kPiezoSlots);
  // Layer 1's ratio, whichever layer will be shown.
  material.Velocities().StartFrom(draft.TmpPZMatl(1).Velocity, draft.TmpPZMatl(1).ShearVelocity);
  pageFilled = textFormatted = false;
  page = pageBefore = 0;
  entry.ThicknessFocus = kMillimetresLead;
  if (entry.PZDBReturn) {
    pages.Show(1);
    optPZLayer[entry.CurPZLayer == 2 ? 1 : 0]->setChecked(true);
  } else {
    pages.Show(0);
    entry.CurPZLayer = 1;
  }
  // Kept: a one-layer design opens on Parallel.
  optPZConnect[draft.TmpPZConnect == 1 ? 0 : 1]->setChecked(true);
  CmdView[2]->setEnabled(draft.TmpPZVelDispOn);
  chkPZVelDisp->setChecked(draft.TmpPZVelDispOn);
  FdFpLabels();
  const bool two = draft.TmpNoPiezo == 2;
  fraPZLayer->setVisible(two);
  fraConnection->setVisible(two);
  optPiezoNum[two ? 1 : 0]->setChecked(true);
  for (int layer = 1; layer <= draft.TmpNoPiezo; ++layer) {
    lblPZName[layer - 1]->setText(ToQString(draft.TmpPZMatl(layer).Name));
    SetBoxText(txtPZmm[layer - 1], MillimetreText(draft.TmpPZThick(layer)));
    ShowPolarity(layer);
  }
} catch (...) {
  ReportFailure("Form_Load", "frmPiezoEntry");
}

void frmPiezoEntry::ShowLayer(int layer) {
  entry.CurPZLayer = static_cast<std::int16_t>(layer);
  txtPZmm[layer - 1]->setFocus();
}

void frmPiezoEntry::CmdView_Click(int index) try {
  page = index;
  pages.Show(index);
  if (index == 2) {
    update_Vnames();
  }
  SSTabPiezoLayer();
  pageBefore = index;
} catch (...) {
  ReportFailure("CmdView_Click", "frmPiezoEntry");
}

void frmPiezoEntry::ShowSecondLayer(bool shown) {
  for (QWidget* control :
       std::initializer_list<QWidget*>{lblPiezoNum[0], lblPiezoNum[1], lblPZName[1], txtPZLambda[1],
                                       txtPZmm[1], txtPZpolar[1]}) {
    control->setVisible(shown);
  }
}

void frmPiezoEntry::optPiezoNum_Click(int index) try {
  if (index == 0) {
    fraConnection->hide();
    lblNoPzLayers->hide();
    ShowSecondLayer(false);
    draft.TmpNoPiezo = 1;
    entry.CurPZLayer = 1;
  } else {
    fraConnection->show();
    lblPZName[1]->setText(ToQString(draft.TmpPZMatl(2).Name));
    entry.ThicknessFocus = kMillimetresLead;
    SetBoxText(txtPZmm[1], MillimetreText(draft.TmpPZThick(2)));
    // Kept: the front layer starts at "+", whatever was stored.
    draft.TmpPZPolarity(2) = 1;
    ShowPolarity(2);
    ShowSecondLayer(true);
    // Kept: the heading lblNoPzLayers stays away until the dialog is opened again.
    draft.TmpNoPiezo = 2;
  }
  FdFpLabels();
} catch (...) {
  ReportFailure("optPiezoNum_Click", "frmPiezoEntry");
}

void frmPiezoEntry::optPZConnect_Click(int index) try {
  draft.TmpPZConnect = index == 0 ? 1 : 2;
  draft.TmpPZConnectName = index == 0 ? "Series" : "Parallel";
} catch (...) {
  ReportFailure("optPZConnect_Click", "frmPiezoEntry");
}

/// Shows a layer's polarity as the character of "- +" that it stands for.
void frmPiezoEntry::ShowPolarity(int layer) {
  const int place = draft.TmpPZPolarity(layer) + 1;
  if (place < 0) {
    throw Failure(failure_number::kInvalidCall);
  }
  txtPZpolar[layer - 1]->setText(QStringLiteral("- +").mid(place, 1));
}

void frmPiezoEntry::txtPZpolar_Click(int index) try {
  std::int16_t& polarity = draft.TmpPZPolarity(index + 1);
  polarity = static_cast<std::int16_t>(-polarity);
  ShowPolarity(index + 1);
} catch (...) {
  ReportFailure("txtPZpolar_Click", "frmPiezoEntry");
}

double frmPiezoEntry::ParallelFreq(int layer) const {
  const double millimetres = BoxValue(txtPZmm[layer - 1]);
  return millimetres > 0 ? draft.TmpPZMatl(layer).Velocity / (millimetres * 0.002) : 0;
}

void frmPiezoEntry::FdFpLabels() try {
  lblFd->setText(ToQString(DesignFreqCaption()));
  const std::string rear = MegahertzText(ParallelFreq(1));
  lblFp->setText(ToQString("Parallel resonant freq Fp" +
                           (draft.TmpNoPiezo == 1 ? " = " + rear
                                                  : "(rear) = " + rear + ", Fp(front) = " +
                                                        MegahertzText(ParallelFreq(2)))));
} catch (...) {
  ReportFailure("FdFpLabels", "frmPiezoEntry");
}

void frmPiezoEntry::txtPZLambda_GotFocus() {
  entry.ThicknessFocus = kLambdasLead;
}

void frmPiezoEntry::txtPZmm_GotFocus() {
  entry.ThicknessFocus = kMillimetresLead;
}

// Kept: there is no bound, a negative thickness passes.
void frmPiezoEntry::txtPZLambda_Change(int index) try {
  if (entry.ThicknessFocus == kLambdasLead) {
    const double millimetres =
        MillimetresOf(BoxValue(txtPZLambda[index]), draft.TmpPZMatl(index + 1).Velocity);
    SetBoxText(txtPZmm[index], Format(millimetres, kThicknessPattern));
    draft.TmpPZThick(index + 1) = BoxValue(txtPZmm[index]) / 1000;
  }
  FdFpLabels();
} catch (...) {
  ReportFailure("txtPZLambda_Change", "frmPiezoEntry");
}

// Kept: the thickness is not stored here but when the box is left.
void frmPiezoEntry::txtPZmm_Change(int index) try {
  if (entry.ThicknessFocus == kMillimetresLead) {
    const double lambdas = LambdasOf(BoxValue(txtPZmm[index]), draft.TmpPZMatl(index + 1).Velocity);
    SetBoxText(txtPZLambda[index], Format(lambdas, kThicknessPattern));
  }
  FdFpLabels();
} catch (...) {
  ReportFailure("txtPZmm_Change", "frmPiezoEntry");
}

void frmPiezoEntry::txtPZLambda_LostFocus() try {
  for (int index = 0; index < draft.TmpNoPiezo; ++index) {
    SetBoxText(txtPZLambda[index], Format(BoxValue(txtPZLambda[index]), kThicknessPattern));
  }
} catch (...) {
  ReportFailure("txtPZLambda_LostFocus", "frmPiezoEntry");
}

void frmPiezoEntry::txtPZmm_LostFocus() try {
  for (int index = 0; index < draft.TmpNoPiezo; ++index) {
    SetBoxText(txtPZmm[index], Format(BoxValue(txtPZmm[index]), kThicknessPattern));
    draft.TmpPZThick(index + 1) = BoxValue(txtPZmm[index]) / 1000;
  }
} catch (...) {
  ReportFailure("txtPZmm_LostFocus", "frmPiezoEntry");
}

void frmPiezoEntry::chkPZVelDisp_Click(bool checked) try {
  CmdView[2]->setEnabled(checked);
  draft.TmpPZVelDispOn = checked;
  if (!checked) {
    ClearPiezoDispersion();
  }
} catch (...) {
  ReportFailure("chkPZVelDisp_Click", "frmPiezoEntry");
}

void frmPiezoEntry::update_Vnames() try { dispersion.ShowNames(0); } catch (...) {
  ReportFailure("update_Vnames", "frmPiezoEntry");
}

void frmPiezoEntry::CmdLoadFile_Click() try {
  const std::string name = dispersion.ChooseFile(this);
  if (name.empty()) {
    ClearPiezoDispersion();
    dispersion.ShowEmpty();
  } else if (ReadDispersionFile(name, "Open Velocity Dispersion File", kPiezoSlots)) {
    update_Vnames();
  }
} catch (...) {
  ReportFailure("CmdLoadFile_Click", "frmPiezoEntry");
}

void frmPiezoEntry::cmdOpenPiezoDB_Click() try {
  CopyTextToTemp();
  Unload();
  materialBrowsers().ShowPiezoDB(parentWidget());
} catch (...) {
  ReportFailure("cmdOpenPiezoDB_Click", "frmPiezoEntry");
}

void frmPiezoEntry::cmdPiezoOK_Click() try {
  design.NoPiezo = draft.TmpNoPiezo;
  const bool two = design.NoPiezo == 2;
  design.PZConnect = two ? draft.TmpPZConnect : std::int16_t{0};
  design.PZConnectName = two ? draft.TmpPZConnectName : "None";
  for (int layer = 1; layer <= design.NoPiezo; ++layer) {
    design.PZThick(layer) = draft.TmpPZThick(layer);
    design.PZPolarity(layer) = draft.TmpPZPolarity(layer);
    StorePiezoMaterial(layer, draft.TmpPZMatl(layer));
  }
  PiezoConstants();
  PiezoLayers();
  Recalc();
  // Kept: after the recalculation.
  design.PZVelDispOn = draft.TmpPZVelDispOn;
  Unload();
} catch (...) {
  ReportFailure("cmdPiezoOK_Click", "frmPiezoEntry");
}

void frmPiezoEntry::cmdPiezoCancel_Click() try {
  RestoreDispersion(kPiezoSlots);
  Unload();
} catch (...) {
  ReportFailure("cmdPiezoCancel_Click", "frmPiezoEntry");
}

/// The window's own close button: the tables come back as by Cancel.
void frmPiezoEntry::closeEvent(QCloseEvent* event) {
  RestoreDispersion(kPiezoSlots);
  ModalDialog::closeEvent(event);
}

}  // namespace halvorne
