#include <algorithm>

#include "dialogs/entry_state.h"
#include "dialogs/frm_face_entry.h"
#include "dialogs/material_browsers.h"
#include "dialogs/thickness_boxes.h"
#include "platform/number_text.h"

// The Material page of the plates; the rest stands in frm_face_entry.cpp.

namespace halvorne {

void frmFaceEntry::Field_Change(const MaterialField<AcousticMaterial>& field) try {
  material.Change(field, draft.TmpAcMatl(entry.CurAcLayer));
} catch (...) {
  ReportFailure((std::string(field.name) + "_Change").c_str(), "frmFaceEntry");
}

/// Kept: Poisson's ratio starts at 0, so that the first visit takes the shear velocity to 0.707
/// times the longitudinal one, whatever was stored.
void frmFaceEntry::AcTextFormat(int layer) try {
  material.Show(draft.TmpAcMatl(layer));
  textFormatted = true;
} catch (...) {
  ReportFailure("AcTextFormat", "frmFaceEntry");
}

void frmFaceEntry::CopyAcTextToTemp() try {
  AcousticMaterial& plate = draft.TmpAcMatl(entry.CurAcLayer);
  material.Store(plate);
  entry.ThicknessFocus = kMillimetresLead;
  const auto i = static_cast<std::size_t>(entry.CurAcLayer - 1);
  const double lambdas = LambdasOf(BoxValue(txtFaceMM.at(i)), plate.Velocity);
  // Kept: four decimals here, five wherever else the column is written.
  SetBoxText(txtFaceLambda.at(i), Format(lambdas, "#0.0000"));
  ShowMaterialOf(entry.CurAcLayer - 1);
} catch (...) {
  ReportFailure("CopyAcTextToTemp", "frmFaceEntry");
}

void frmFaceEntry::MoveToLayer(int layer) {
  if (textFormatted) {
    CopyAcTextToTemp();
  }
  entry.CurAcLayer = static_cast<std::int16_t>(layer);
  SetBoxText(txtMatlLayer, std::to_string(entry.CurAcLayer));
  AcTextFormat(entry.CurAcLayer);
}

void frmFaceEntry::CmdMatlLayerUp_Click() try {
  MoveToLayer(std::min<int>(entry.CurAcLayer + 1, draft.TmpNoPlates));
} catch (...) {
  ReportFailure("CmdMatlLayerUp_Click", "frmFaceEntry");
}

void frmFaceEntry::CmdMatlLayerDown_Click() try {
  MoveToLayer(std::max(entry.CurAcLayer - 1, 1));
} catch (...) {
  ReportFailure("CmdMatlLayerDown_Click", "frmFaceEntry");
}

void frmFaceEntry::tabFaceEntry() try {
  if (page == 1) {
    if (entry.CurAcLayer == 0) {
      entry.CurAcLayer = 1;
    }
    SetBoxText(txtMatlLayer, std::to_string(entry.CurAcLayer));
    AcTextFormat(entry.CurAcLayer);
    pageFilled = true;
    return;
  }
  if (pageFilled && pageBefore == 1) {
    CopyAcTextToTemp();
    pageFilled = false;
  }
  textFormatted = false;
} catch (...) {
  ReportFailure("tabFaceEntry", "frmFaceEntry");
}

void frmFaceEntry::cmdOpenAcousticDB_Click() try {
  CopyAcTextToTemp();
  Unload();
  materialBrowsers().ShowAcousticDB(parentWidget());
} catch (...) {
  ReportFailure("cmdOpenAcousticDB_Click", "frmFaceEntry");
}

}  // namespace halvorne
