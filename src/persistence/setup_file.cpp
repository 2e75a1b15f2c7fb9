#include "persistence/setup_file.h"

#include "persistence/safe_overwrite.h"
#include "persistence/setup_state.h"
#include "persistence/value_reader.h"
#include "persistence/value_writer.h"
#include "platform/failure.h"
#include "platform/main_window.h"
#include "platform/paths.h"
#include "timedomain/view.h"

namespace halvorne {
namespace {

/// The ten lines in their order, told once for both ways.
template <class File>
void SetupLines(File& file) {
  auto& form = setup.PlotFormMemory;
  file.Line(view.CurrentPlot);
  file.Line(form(11), form(12), form(13), form(14), form(15), form(16), form(17));
  file.Line(form(21), form(22), form(23), form(24), form(25), form(26), form(27));
  file.Line(form(31), form(32), form(33), form(34));
  file.Line(form(41), form(42));
  file.Line(setup.DispFaceLayer, setup.DispBackLayer);
  file.Line(setup.ReportDetails, setup.PhaseDisplayOption, setup.DisplayFontSize);
  file.Line(setup.LogRange);
  file.Line(view.TimeWindowPercent);
  file.Line(setup.AmplWindowPercent);
}

std::string SetupFileName() {
  return ProgramPath("\\HALVORNESETUP").string();
}

}  // namespace

void ReadHalvorneSetup() try {
  ValueReader file(SetupFileName());
  SetupLines(file);
  StartSession();
} catch (...) {
  // What was read of a file that breaks off goes with the rest.
  TakeShippedSettings();
  StartSession();
  ReportFailure("ReadHalvorneSetup", "FILES");
}

void writeHalvorneSetup() try {
  if (!mainWindow().KeepsSession()) {
    return;
  }
  Successor successor(SetupFileName());
  ValueWriter file(successor.Name());
  SetupLines(file);
  file.Close();
  successor.TakePlace();
} catch (...) {
  ReportFailure("writeHalvorneSetup", "FILES");
}

}  // namespace halvorne
