#include "dialogs/entry_state.h"
#include "dialogs/frm_piezo_entry.h"
#include "dialogs/thickness_boxes.h"

// The Material page of the piezoelectric layers; the rest stands in frm_piezo_entry.cpp.

namespace halvorne {

void frmPiezoEntry::Field_Change(const MaterialField<PiezoMaterial>& field) try {
  material.Change(field, draft.TmpPZMatl(entry.CurPZLayer));
} catch (...) {
  ReportFailure((std::string(field.name) + "_Change").c_str(), "frmPiezoEntry");
}

void frmPiezoEntry::PZTextFormat(int layer) try {
  material.Show(draft.TmpPZMatl(layer));
  textFormatted = true;
} catch (...) {
  ReportFailure("PZTextFormat", "frmPiezoEntry");
}

void frmPiezoEntry::optPZLayer_Click(int index) try {
  if (textFormatted) {
    CopyTextToTemp();
  }
  entry.CurPZLayer = static_cast<std::int16_t>(index + 1);
  PZTextFormat(entry.CurPZLayer);
} catch (...) {
  ReportFailure("optPZLayer_Click", "frmPiezoEntry");
}

void frmPiezoEntry::CopyTextToTemp() try {
  material.Store(draft.TmpPZMatl(entry.CurPZLayer));
  entry.ThicknessFocus = kMillimetresLead;
  // Both layers, in use or not: a changed velocity keeps the millimetres.
  for (int layer = 1; layer <= kMaxPiezo; ++layer) {
    const double lambdas = LambdasOf(BoxValue(txtPZmm[layer - 1]), draft.TmpPZMatl(layer).Velocity);
    SetBoxText(txtPZLambda[layer - 1], Format(lambdas, kThicknessPattern));
    lblPZName[layer - 1]->setText(ToQString(draft.TmpPZMatl(layer).Name));
  }
} catch (...) {
  ReportFailure("CopyTextToTemp", "frmPiezoEntry");
}

void frmPiezoEntry::SSTabPiezoLayer() try {
  if (page == 1) {
    fraPZLayer->setVisible(draft.TmpNoPiezo == 2);
    optPZLayer[entry.CurPZLayer == 2 ? 1 : 0]->setChecked(true);
    PZTextFormat(entry.CurPZLayer);
    pageFilled = true;
    return;
  }
  if (pageFilled && pageBefore == 1) {
    CopyTextToTemp();
    pageFilled = false;
  }
  textFormatted = false;
} catch (...) {
  ReportFailure("SSTabPiezoLayer", "frmPiezoEntry");
}

}  // namespace halvorne
