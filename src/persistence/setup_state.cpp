#include "persistence/setup_state.h"

#include "timedomain/view.h"

namespace halvorne {

Setup setup;

void TakeShippedSettings() {
  setup = {};
  view.CurrentPlot = 11;
  auto& form = setup.PlotFormMemory;
  // Magnitudes of transfer functions and efficiencies open in decibels where that is the habit.
  for (const int logarithmic : {12, 14, 15, 22, 24, 25, 31, 32}) {
    form(logarithmic) = 1;
  }
  setup.DispFaceLayer = 1;
  setup.DispBackLayer = 12;
  setup.ReportDetails = 1;
  setup.DisplayFontSize = 1;
  setup.LogRange = 60;
  view.TimeWindowPercent = 50;
  setup.AmplWindowPercent = 100;
}

void StartSession() {
  setup.PreviousPlot = view.CurrentPlot;
  setup.CursorBlank.assign(102, ' ');
  setup.LastPlotListIndex = -1;
}

}  // namespace halvorne
