#include "dialogs/enter_layers.h"

#include "dialogs/entry_state.h"
#include "dialogs/frm_face_entry.h"
#include "dialogs/frm_piezo_entry.h"
#include "dialogs/plate_side.h"
#include "platform/main_window.h"
#include "platform/qt/forms.h"
#include "plot/plot_select.h"

namespace halvorne {

void EnterPiezoLayers(QWidget* owner, int layer) {
  draft.TmpPZMatl = design.PZMatl;
  draft.TmpPZThick = design.PZThick;
  draft.TmpPZPolarity = design.PZPolarity;
  draft.TmpNoPiezo = design.NoPiezo;
  draft.TmpPZConnect = design.PZConnect;
  draft.TmpPZConnectName = design.PZConnectName;
  draft.TmpPZVelDispOn = design.PZVelDispOn;
  if (layer != 0) {
    entry.PZDBReturn = false;  // who names a layer sees its thickness first
  }
  // Kept: else entry.PZDBReturn stays, so that after a browser left by its Cancel the dialog opens
  // on the Material page.
  mainWindow().SetMousePointer(kBusyPointer);
  frmPiezoEntry dialog(owner);
  if (layer != 0) {
    dialog.ShowLayer(layer);
  }
  dialog.exec();
  mainWindow().SetMousePointer(kNormalPointer);
}

void EnterPlates(const char* side, QWidget* owner, int plate) {
  entry.AcDBReturn = false;
  entry.PlateSide = side;
  TakePlatesIntoDraft();
  if (entry.CurAcLayer > draft.TmpNoPlates) {
    entry.CurAcLayer = 1;  // of the other side, or of a plate that is no more
  }
  mainWindow().SetMousePointer(kBusyPointer);
  if (FormCount("frmFaceEntry") > 0) {
    UnloadForm("frmFaceEntry");
  }
  if (plate != 0) {
    frmFaceEntry::Loaded(owner).ShowPlate(plate);
  }
  frmFaceEntry::ShowModal(owner);
  mainWindow().SetMousePointer(kNormalPointer);
  if (entry.PlatesAccepted) {
    TakePlatesFromDraft();
    // Before the recalculation draws: a dispersion plot without plates has an empty list of forms.
    PlateSideInForce().updateView();
    Recalc();
  }
  PlateSideInForce().updateView();
}

}  // namespace halvorne
