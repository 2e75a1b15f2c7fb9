#include "batch/design_session.h"

#include <cstdio>

#include "batch/input_source.h"
#include "batch/stops.h"
#include "engine/design_model.h"
#include "persistence/design_file.h"
#include "plot/enable_items.h"
#include "plot/plot_after_open.h"
#include "plot/plot_select.h"
#include "plot/plot_state.h"

namespace halvorne::batch {
namespace {

constexpr std::int16_t kFirstPlot = 11;

void StartDisplay(const Request& request) {
  view.CurrentPlot = kFirstPlot;
  view.TimeWindowPercent = static_cast<float>(request.timeWindow);
  setup.DispFaceLayer = 1;
  setup.DispBackLayer = kBackSlot + 1;
  setup.ReportDetails = static_cast<std::int16_t>(request.detail);
  setup.PhaseDisplayOption = static_cast<std::int16_t>(request.phase);
  setup.LogRange = request.logRange;
  setup.AmplWindowPercent = static_cast<float>(request.amplWindow);
  StartSession();
}

/// The window has these commands disabled; a script gets the plot of no excitation, and is told.
void TellMissingExcitation(int plotNumber) {
  if (IsExcitationPlot(plotNumber) && design.ExciteType < 1) {
    std::fprintf(stderr,
                 "halvorne-batch: note: the design has no excitation, so plot %d shows the "
                 "response to none\n",
                 plotNumber);
  }
}

void ChooseForm(Session& session) {
  const int form = *session.request.form;
  const int count = session.window.PlotTypeCount();
  if (form >= count) {
    throw WrongCommandLine("--form: plot " + std::to_string(session.request.plot) + " has " +
                           std::to_string(count) + " forms, from 0 to " +
                           std::to_string(count - 1));
  }
  session.window.SetPlotTypeIndex(form);
}

}  // namespace

void TellFlatLoads() {
  std::fputs(
      "halvorne-batch: note: the frequencies have changed, so the complex acoustic loads are "
      "taken as flat until the design is read again\n",
      stderr);
}

void OpenDesign(Session& session) {
  const Request& request = session.request;
  if (plot.DesignOpen) {
    EnableItems(false);  // one that was opened before must not stand for this one
  }
  std::vector<MaterialChoice> materials = request.materials;
  FindMaterials(materials);
  StartDisplay(request);
  design.DataFileName = request.in;
  ReadDesignFile(InputSource(request.in).Name());
  if (!plot.DesignOpen) {
    throw CommandFailed(request.in + " could not be read as a design");
  }
  EnableItems(true);
  const int failuresBefore = session.messages.FailureCount();
  ShowPlotAfterOpen();
  session.failuresOfFirstPlot = session.messages.FailureCount() - failuresBefore;
  ApplyMaterials(materials);
  if (ApplySettings(request.settings)) {
    TellFlatLoads();
  }
  ApplySideInputs(request.side);
  if (request.recalc) {
    Recalc();
  }
}

void ShowPlot(Session& session, int plotNumber) {
  TellMissingExcitation(plotNumber);
  view.CurrentPlot = static_cast<std::int16_t>(plotNumber);
  PlotSelect(view.CurrentPlot);
  const bool aliasing = IsTimePlot(plotNumber) && wave.WaveformInvalid;
  if (aliasing || session.window.PlotTypeIndex() < 0) {
    throw CommandFailed("plot " + std::to_string(plotNumber) + " cannot be shown" +
                        (aliasing ? "; --accept-aliasing shows it all the same" : ""));
  }
}

void ShowPlot(Session& session) {
  ShowPlot(session, session.request.plot);
  if (session.request.form) {
    ChooseForm(session);
  }
}

}  // namespace halvorne::batch
