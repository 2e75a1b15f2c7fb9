#include "materials/frm_piezo_db.h"

#include "dialogs/entry_state.h"
#include "dialogs/frm_face_entry.h"
#include "dialogs/frm_piezo_entry.h"
#include "engine/design_model.h"
#include "platform/failure.h"

namespace halvorne {
namespace {

constexpr BrowserNames kNames{.window = "frmPiezoDB",
                              .title = "Piezoelectric Material Database",
                              .grid = "DBGrid1",
                              .data = "Data1",
                              .tables = "PiezoTable",
                              .tablesLabel = "lblPZDataTable",
                              .copy = "cmdCopyPiezoMatl",
                              .ok = "cmdPiezoDBOK",
                              .cancel = "cmdPiezoDBCancel",
                              .heightMargin = 2760,
                              .widthMargin = 405};

}  // namespace

frmPiezoDB::frmPiezoDB(QWidget* parent) : MaterialBrowser(kNames, kPiezoStore, parent) {
  Form_Load();
}

void frmPiezoDB::Data1_WillMove(int row) try {
  // Kept: a row without a name leaves the mark as it is. The other browser marks only where the
  // grid arrives.
  if (isVisible() && row >= 0 && !Rows().NameOf(row).isEmpty()) {
    Mark(row);
  }
} catch (...) {
  ReportFailure("Data1_WillMove", "frmPiezoDB");
}

void frmPiezoDB::cmdPiezoDBOK_Click() try {
  if (!LeaveRow("cmdPiezoDBOK_Click")) {
    return;
  }
  constexpr int thicknessPage = 0;
  constexpr int materialPage = 1;
  if (IsMarked()) {
    TakePiezoRecord(MarkedCells(), draft.TmpPZMatl(entry.CurPZLayer));
    entry.PZDBReturn = false;
    // Kept: it is the plates dialog that is spoken to, which loads it, hidden, on whatever plates
    // stand in the draft.
    frmFaceEntry::Loaded(parentWidget()).CmdView_Click(thicknessPage);
  } else {
    entry.PZDBReturn = true;
    frmFaceEntry::Loaded(parentWidget()).CmdView_Click(materialPage);
  }
  Release();
  frmPiezoEntry(parentWidget()).exec();
} catch (...) {
  ReportFailure("cmdPiezoDBOK_Click", "frmPiezoDB");
}

void frmPiezoDB::cmdPiezoDBCancel_Click() try {
  if (!LeaveForGood("cmdPiezoDBCancel_Click")) {
    return;
  }
  // Kept: the layers dialog does not come back, and the flag waits for its next opening.
  entry.PZDBReturn = true;
  Release();
} catch (...) {
  ReportFailure("cmdPiezoDBCancel_Click", "frmPiezoDB");
}

}  // namespace halvorne
