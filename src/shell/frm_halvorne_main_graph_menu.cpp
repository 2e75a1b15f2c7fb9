#include "platform/failure.h"
#include "platform/qt/forms.h"
#include "shell/frm_halvorne_main.h"
#include "shell/frm_tune.h"
#include "shell/graph_menu.h"
#include "shell/hold_items.h"
#include "shell/take_along_items.h"

// The menu of the graph: which unit adds its entries to it, and how it is opened by keys.

namespace halvorne {

void frmHalvorneMain::MakeGraphMenu() {
  mnuGraph = new GraphMenu(this, [this] { LeaveTitleBox(); });
  // Within a group the entries stand in the order in which they are added here.
  AddHoldItems(*mnuGraph);
  mnuGraph->Add({.group = GraphGroup::kTune,
                 .name = "mnuGraphTune",
                 .caption = QStringLiteral("&Tune..."),
                 .procedure = [this] { mnuGraphTune_Click(); }});
  AddTakeAlongItems(*mnuGraph, Picture);
  AddReadOffEntries();
  AddScaleEntries();
}

void frmHalvorneMain::mnuGraphTune_Click() try {
  auto* window = findChild<QDialog*>(QStringLiteral("frmTune"));
  if (window == nullptr || !window->isVisible()) {
    window = new frmTune(this);
    window->show();
  }
  window->raise();
  window->activateWindow();
} catch (...) {
  ReportFailure("mnuGraphTune_Click", "frmHalvorneMain");
}

void frmHalvorneMain::EndTuning() {
  UnloadForm("frmTune");
}

void frmHalvorneMain::OpenGraphMenu() {
  mnuGraph->Open(Picture->mapToGlobal(Picture->rect().center()));
}

}  // namespace halvorne
