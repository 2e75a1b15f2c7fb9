#include <algorithm>

#include "engine/design_model.h"
#include "fuzz/fuzzed_program.h"
#include "fuzz/harnesses.h"
#include "persistence/design_file.h"
#include "plot/plot_select.h"
#include "plot/plot_state.h"

namespace halvorne::fuzz {
namespace {

/// A sweep of more points takes too long for a fuzzer.
constexpr int kMostSweptPoints = 64;

unsigned ByteFromEnd(std::string_view bytes, std::size_t place) {
  return place < bytes.size() ? static_cast<unsigned char>(bytes[bytes.size() - 1 - place]) : 0;
}

void StartDisplay() {
  view.TimeWindowPercent = 50;
  setup.LogRange = 60;
  setup.AmplWindowPercent = 100;
  setup.DispFaceLayer = 1;
  setup.DispBackLayer = kBackSlot + 1;
  StartSession();
}

/// Boxes that tell of a design file which is not as its writer makes them.
bool IsReadersBox(const std::string& title) {
  return title == "Halvorne" || title.starts_with("ERROR in AryInput");
}

/// What was written can be read, and is written again letter by letter.
void WriteAndReadAgain(FuzzedProgram& program) {
  view.CurrentPlot = 11;  // the plot of a burst would sample it anew at each read
  program.messages.boxes.clear();
  WriteDesignFile(program.Path("first"));
  if (!program.messages.boxes.empty()) {
    return;  // a number out of a plot's bounds, told by a box
  }
  const std::string first = program.Get("first");
  ReadDesignFile(program.Path("first"));
  Promise(std::ranges::none_of(program.messages.boxes, IsReadersBox),
          "a written design cannot be read");
  WriteDesignFile(program.Path("second"));
  Promise(program.Get("second") == first, "a design changes by being written and read");
}

}  // namespace

void FuzzDesignFile(std::string_view bytes) {
  FuzzedProgram program;
  StartDisplay();
  ReadDesignFile(program.Put("design", bytes));
  const bool opened = plot.DesignOpen;
  // A failed read leaves a design that can be looked at all the same.
  program.ShowPlot(ByteFromEnd(bytes, 0), ByteFromEnd(bytes, 1));
  if (opened) {
    WriteAndReadAgain(program);
  }
  if (design.NoFreqPts <= kMostSweptPoints) {
    Recalc();
  }
}

}  // namespace halvorne::fuzz
