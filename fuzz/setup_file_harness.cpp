#include "persistence/setup_file.h"

#include "fuzz/fuzzed_program.h"
#include "fuzz/harnesses.h"
#include "plot/plot_select.h"
#include "plot/plot_state.h"
#include "support/program_state.h"

namespace halvorne::fuzz {

void FuzzSetupFile(std::string_view bytes) {
  constexpr const char* name = "HALVORNESETUP";
  FuzzedProgram program;
  testing::MakeSimpleDesign();
  program.Put(name, bytes);
  ReadHalvorneSetup();
  program.window.SetKeepsSession(true);
  program.messages.boxes.clear();
  writeHalvorneSetup();
  const std::string first = program.Get(name);
  ReadHalvorneSetup();
  writeHalvorneSetup();
  Promise(program.messages.boxes.empty(), "written settings cannot be read");
  Promise(program.Get(name) == first, "settings change by being written and read");
  program.window.SetKeepsSession(false);
  PlotSelect(view.CurrentPlot);
  for (unsigned place = 0; place < 23; ++place) {
    program.ShowPlot(place, 0);
  }
}

}  // namespace halvorne::fuzz
