#include "persistence/setup_state.h"

#include "timedomain/view.h"

namespace halvorne {

Setup setup;

void StartSession() {
  setup.PreviousPlot = view.CurrentPlot;
  setup.CursorBlank.assign(102, ' ');
  setup.LastPlotListIndex = -1;
}

}  // namespace halvorne
