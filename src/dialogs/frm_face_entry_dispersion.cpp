#include <algorithm>
#include <array>

#include "dialogs/frm_face_entry.h"
#include "dialogs/plate_side.h"
#include "persistence/dispersion_file.h"
#include "platform/number_text.h"
#include "platform/numbers.h"

// The Dispersion page of the plates; the rest stands in frm_face_entry.cpp.

namespace halvorne {

void frmFaceEntry::chkAcVelDisp_Click(bool checked) try {
  CmdView[2]->setEnabled(checked);
  draft.TmpPlateVelDispOn = checked;
  if (!checked) {
    std::ranges::for_each(PlateSlots(), ClearDispersion);
  }
} catch (...) {
  ReportFailure("chkAcVelDisp_Click", "frmFaceEntry");
}

int frmFaceEntry::SlotOnShow() const {
  return ToInt32(BoxValue(TxtCurrentLayer)) + PlateSideInForce().slotOffset;
}

void frmFaceEntry::Update_Names() try { dispersion.ShowNames(SlotOnShow()); } catch (...) {
  ReportFailure("Update_Names", "frmFaceEntry");
}

void frmFaceEntry::CmdLayerUp_Click() try {
  SetBoxText(TxtCurrentLayer,
             NumberText(std::min<double>(BoxValue(TxtCurrentLayer) + 1, draft.TmpNoPlates)));
  Update_Names();
} catch (...) {
  ReportFailure("CmdLayerUp_Click", "frmFaceEntry");
}

void frmFaceEntry::CmdLayerDown_Click() try {
  SetBoxText(TxtCurrentLayer, NumberText(std::max<double>(BoxValue(TxtCurrentLayer) - 1, 1)));
  Update_Names();
} catch (...) {
  ReportFailure("CmdLayerDown_Click", "frmFaceEntry");
}

void frmFaceEntry::CmdLoadFile_Click() try {
  const std::string name = dispersion.ChooseFile(this);
  const int slot = SlotOnShow();
  if (name.empty()) {
    ClearDispersion(slot);
    dispersion.ShowEmpty();
    return;
  }
  // Kept: a small letter at its begin.
  ReadDispersionFile(name, "open velocity dispersion file", std::array{slot});
  // Kept: unlike the piezoelectric layers' the names are shown of a table that failed too, and of a
  // file without a comment.
  if (!design.VelDispNames(slot, 0).empty()) {
    dispersion.ShowFile(slot);
  }
} catch (...) {
  ReportFailure("CmdLoadFile_Click", "frmFaceEntry");
}

}  // namespace halvorne
