#include "platform/failure.h"
#include "plot/cursor.h"
#include "plot/manual_scales.h"
#include "plot/plot_state.h"
#include "plot/reference_mark.h"
#include "plot/windows/frm_go_to.h"
#include "shell/frm_halvorne_main.h"

// The entries of the graph's menu that help to read it: what is laid over it, where the cursor
// goes, and which part of it is shown.

namespace halvorne {

void frmHalvorneMain::AddReadOffEntries() {
  mnuGraph->Add({.group = GraphGroup::kReadOff,
                 .name = "mnuGraphGrid",
                 .caption = QStringLiteral("&Grid"),
                 .procedure = [this] { mnuGraphGrid_Click(); },
                 .checked = [] { return reading.GridOn; }});
  mnuGraph->Add({.group = GraphGroup::kReadOff,
                 .name = "mnuGraphBand",
                 .caption = QStringLiteral("Show &Band"),
                 .procedure = [this] { mnuGraphBand_Click(); },
                 .checked = [] { return reading.BandOn; }});
  mnuGraph->Add({.group = GraphGroup::kReadOff,
                 .name = "mnuGraphMark",
                 .caption = QStringLiteral("&Mark Here"),
                 .procedure = [] { ToggleMark(); },
                 .shortcut = "Ctrl+M",
                 .checked = [] { return MarkSet(); }});
  mnuGraph->Add({.group = GraphGroup::kReadOff,
                 .name = "mnuGraphGoTo",
                 .caption = QStringLiteral("G&o To..."),
                 .procedure = [this] { mnuGraphGoTo_Click(); },
                 .shortcut = "Ctrl+G"});
}

void frmHalvorneMain::AddScaleEntries() {
  mnuGraph->Add({.group = GraphGroup::kScales,
                 .name = "mnuGraphZoom",
                 .caption = QStringLiteral("&Zoom with Keys"),
                 .procedure = [this] { pointer_->ZoomByKeys(); }});
  mnuGraph->Add({.group = GraphGroup::kScales,
                 .name = "mnuGraphAutomatic",
                 .caption = QStringLiteral("&Automatic Scales"),
                 .procedure = [] { AutomaticScales(); },
                 .shortcut = "Ctrl+0",
                 .available = [] { return DesignIsOpen() && ScaledByHand(); }});
}

void frmHalvorneMain::mnuGraphGrid_Click() try {
  reading.GridOn = !reading.GridOn;
  RedrawKeepingCursor();
} catch (...) {
  ReportFailure("mnuGraphGrid_Click", "frmHalvorneMain");
}

void frmHalvorneMain::mnuGraphBand_Click() try {
  reading.BandOn = !reading.BandOn;
  RedrawKeepingCursor();
} catch (...) {
  ReportFailure("mnuGraphBand_Click", "frmHalvorneMain");
}

void frmHalvorneMain::mnuGraphGoTo_Click() try { frmGoTo(this).exec(); } catch (...) {
  ReportFailure("mnuGraphGoTo_Click", "frmHalvorneMain");
}

}  // namespace halvorne
