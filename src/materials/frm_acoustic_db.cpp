#include "materials/frm_acoustic_db.h"

#include "dialogs/entry_state.h"
#include "dialogs/frm_face_entry.h"
#include "engine/design_model.h"
#include "platform/failure.h"

namespace halvorne {
namespace {

constexpr BrowserNames kNames{.window = "frmAcousticDB",
                              .title = "Acoustic Materials Database",
                              .grid = "AcDBGrid",
                              .data = "AcousticData1",
                              .tables = "AcousticTable",
                              .tablesLabel = "lblAcousticDataTable",
                              .copy = "cmdCopyAcoustMatl",
                              .ok = "cmdAcousticDBOK",
                              .cancel = "cmdAcousticDBCancel",
                              .heightMargin = 3120,
                              .widthMargin = 420};

}  // namespace

frmAcousticDB::frmAcousticDB(QWidget* parent) : MaterialBrowser(kNames, kAcousticStore, parent) {
  Form_Load();
}

void frmAcousticDB::cmdAcousticDBOK_Click() try {
  if (!LeaveRow("cmdAcousticDBOK_Click")) {
    return;
  }
  constexpr int thicknessPage = 0;
  constexpr int materialPage = 1;
  if (IsMarked()) {
    TakeAcousticRecord(MarkedCells(), draft.TmpAcMatl(entry.CurAcLayer));
    entry.AcDBReturn = false;
    frmFaceEntry::Loaded(parentWidget()).CmdView_Click(materialPage);
  } else {
    entry.AcDBReturn = true;
    // Kept: the dialog goes to its Material page as it is loaded, and is moved on from there.
    frmFaceEntry::Loaded(parentWidget()).CmdView_Click(thicknessPage);
  }
  Release();
  frmFaceEntry::Loaded(parentWidget()).AcTextFormat(entry.CurAcLayer);
  frmFaceEntry::ShowModal(parentWidget());
} catch (...) {
  ReportFailure("cmdAcousticDBOK_Click", "frmAcousticDB");
}

void frmAcousticDB::cmdAcousticDBCancel_Click() try {
  if (!LeaveForGood("cmdAcousticDBCancel_Click")) {
    return;
  }
  entry.AcDBReturn = true;
  Release();
  frmFaceEntry::ShowModal(parentWidget());
} catch (...) {
  ReportFailure("cmdAcousticDBCancel_Click", "frmAcousticDB");
}

}  // namespace halvorne
