#include "shell/frm_halvorne_main.h"
#include "shell/graph_menu.h"
#include "shell/hold_items.h"

// The menu of the graph: which unit adds its entries to it, and how it is opened by keys.

namespace halvorne {

void frmHalvorneMain::MakeGraphMenu() {
  mnuGraph = new GraphMenu(this, [this] { LeaveTitleBox(); });
  // Within a group the entries stand in the order in which they are added here.
  AddHoldItems(*mnuGraph);
}

void frmHalvorneMain::OpenGraphMenu() {
  mnuGraph->Open(Picture->mapToGlobal(Picture->rect().center()));
}

}  // namespace halvorne
