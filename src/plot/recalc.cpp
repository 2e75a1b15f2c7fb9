#include "engine/frequency_sweep.h"
#include "platform/failure.h"
#include "platform/main_window.h"
#include "plot/cursor.h"
#include "plot/plot_select.h"
#include "plot/plot_state.h"

namespace halvorne {
namespace {

constexpr std::int32_t kNeverSaved = 65535;

}  // namespace

void Recalc() try {
  mainWindow().SetMousePointer(kBusyPointer);
  PrelimCalc();
  MainCalc();
  mainWindow().SetMousePointer(kNormalPointer);
  design.DesignNew = kNeverSaved;
  ClearCursor();
  PlotSelect(view.CurrentPlot);
} catch (...) {
  ReportFailure("Recalc", "CALCS");
}

void RecalcOnShow() try {
  PrelimCalc();
  MainCalc();
  design.DesignNew = kNeverSaved;
  PlotAgain();
} catch (...) {
  ReportFailure("RecalcOnShow", "CALCS");
}

}  // namespace halvorne
