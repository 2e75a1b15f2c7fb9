#include "plot/plot_after_open.h"

#include <cstdint>

#include "engine/design_model.h"
#include "platform/main_window.h"
#include "plot/plot_select.h"
#include "timedomain/view.h"

namespace halvorne {
namespace {

void UpdateDispersionView(Item command, int plates, std::int16_t plotNumber) {
  constexpr std::int16_t piezoelectricLayer = 52;
  mainWindow().SetEnabled(command, plates >= 1);
  if (plates < 1 && view.CurrentPlot == plotNumber) {
    view.CurrentPlot = piezoelectricLayer;
  }
}

}  // namespace

void ShowPlotAfterOpen() {
  PlotSelect(view.CurrentPlot);
}

void UpdateFaceDispersionView() {
  UpdateDispersionView(Item::kViewDispFP, design.NoFace, 51);
}

void UpdateBackDispersionView() {
  UpdateDispersionView(Item::kViewDispBP, design.NoBack, 53);
}

}  // namespace halvorne
