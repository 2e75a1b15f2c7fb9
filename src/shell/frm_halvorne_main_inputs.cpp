#include "dialogs/enter_layers.h"
#include "dialogs/frm_acoust_load.h"
#include "dialogs/frm_el_net_entry.h"
#include "dialogs/frm_elec_term_entry.h"
#include "dialogs/frm_freq_entry.h"
#include "dialogs/frm_size_entry.h"
#include "dialogs/frm_time_entry.h"
#include "engine/design_model.h"
#include "platform/failure.h"
#include "shell/frm_halvorne_main.h"

// The commands of the menu Input: each opens a dialog over the design or over a draft of it.

namespace halvorne {

void frmHalvorneMain::mnuInputPiezo_Click() try { EnterPiezoLayers(this); } catch (...) {
  ReportFailure("mnuInputPiezo_Click", "frmHalvorneMain");
}

void frmHalvorneMain::mnuInputFP_Click() try { EnterPlates("Face", this); } catch (...) {
  ReportFailure("mnuInputFP_Click", "frmHalvorneMain");
}

void frmHalvorneMain::mnuInputBP_Click() try { EnterPlates("Back", this); } catch (...) {
  ReportFailure("mnuInputBP_Click", "frmHalvorneMain");
}

void frmHalvorneMain::mnuInputSz_Click() try { frmSizeEntry(this).exec(); } catch (...) {
  ReportFailure("mnuInputSz_Click", "frmHalvorneMain");
}

void frmHalvorneMain::mnuInputLoad_Click() try { frmAcoustLoad(this).exec(); } catch (...) {
  ReportFailure("mnuInputLoad_Click", "frmHalvorneMain");
}

void frmHalvorneMain::mnuInputElTerm_Click() try { frmElecTermEntry(this).exec(); } catch (...) {
  ReportFailure("mnuInputElTerm_Click", "frmHalvorneMain");
}

void frmHalvorneMain::mnuInputElNet_Click() try {
  draft.TmpElNet = design.ElNet;
  frmElNetEntry(this).exec();
} catch (...) {
  ReportFailure("mnuInputElNet_Click", "frmHalvorneMain");
}

void frmHalvorneMain::mnuInputFreqPts_Click() try { frmFreqEntry(this).exec(); } catch (...) {
  ReportFailure("mnuInputFreqPts_Click", "frmHalvorneMain");
}

void frmHalvorneMain::mnuInputTimePts_Click() try { frmTimeEntry(this).exec(); } catch (...) {
  ReportFailure("mnuInputTimePts_Click", "frmHalvorneMain");
}

}  // namespace halvorne
