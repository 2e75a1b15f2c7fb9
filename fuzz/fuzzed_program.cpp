#include "fuzz/fuzzed_program.h"

#include <fstream>
#include <iterator>
#include <random>
#include <stdexcept>
#include <system_error>

#include "platform/paths.h"
#include "plot/catalogue.h"
#include "plot/cursor.h"
#include "plot/enable_items.h"
#include "plot/measures.h"
#include "plot/plot_select.h"
#include "plot/plot_state.h"
#include "support/program_state.h"

namespace halvorne::fuzz {

MessageAnswer YesMessages::Show(const Message& message) {
  switch (message.buttons) {
    case MessageButtons::kYesNo:
      return MessageAnswer::kYes;
    case MessageButtons::kOkCancel:
      return MessageAnswer::kOk;
    case MessageButtons::kOk:
      break;
  }
  boxes.push_back(message.title);
  return MessageAnswer::kOk;
}

FuzzedProgram::FuzzedProgram()
    : folder_(std::filesystem::temp_directory_path() /
              ("halvorne-fuzz-" + std::to_string(std::random_device{}()))),
      folderBefore_(ProgramFolder()) {
  std::filesystem::create_directory(folder_);
  SetProgramFolder(folder_);
  testing::ResetProgram();
  SetMessages(&messages);
  SetMainWindow(&window);
  InitGrids();
}

FuzzedProgram::~FuzzedProgram() {
  SetMainWindow(nullptr);
  SetMessages(nullptr);
  SetProgramFolder(folderBefore_);
  std::error_code none;
  std::filesystem::remove_all(folder_, none);
}

std::string FuzzedProgram::Put(const std::string& name, std::string_view bytes) const {
  std::ofstream(Path(name), std::ios::binary) << bytes;
  return Path(name);
}

std::string FuzzedProgram::Get(const std::string& name) const {
  std::ifstream file(Path(name), std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

void FuzzedProgram::ShowPlot(unsigned place, unsigned form) {
  const auto plots = Catalogue();
  view.CurrentPlot = plots[place % plots.size()].number;
  halvorne::EnableItems(true);
  PlotSelect(view.CurrentPlot);
  if (window.PlotTypeCount() > 0) {
    window.SetPlotTypeIndex(static_cast<int>(form) % window.PlotTypeCount());
  }
  Cursor1_Click();
  window.SetCursorValue(window.CursorMax());
  FindMax_Click();
  Cursor1_Click();
}

void Promise(bool holds, const std::string& words) {
  if (!holds) {
    throw std::logic_error(words);
  }
}

}  // namespace halvorne::fuzz
