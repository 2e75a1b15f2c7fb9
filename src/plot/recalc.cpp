#include "engine/frequency_sweep.h"
#include "platform/failure.h"
#include "platform/main_window.h"
#include "plot/cursor.h"
#include "plot/plot_select.h"
#include "plot/plot_state.h"

namespace halvorne {

void Recalc() try {
  mainWindow().SetMousePointer(kBusyPointer);
  PrelimCalc();
  MainCalc();
  mainWindow().SetMousePointer(kNormalPointer);
  design.DesignNew = 65535;
  ClearCursor();
  PlotSelect(view.CurrentPlot);
} catch (...) {
  ReportFailure("Recalc", "CALCS");
}

}  // namespace halvorne
