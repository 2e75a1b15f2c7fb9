#include "plot/headless_window.h"

#include <algorithm>

#include "engine/design_model.h"
#include "platform/failure.h"
#include "plot/cursor.h"
#include "plot/enable_items.h"
#include "plot/plot_select.h"

namespace halvorne {
namespace {

/// The cell of a grid that is an array of rows. Raises 9 outside it.
template <class Cells>
auto& CellOf(Cells& cells, int row, int column) {
  if (row < 0 || row >= static_cast<int>(cells.size()) || column < 0 ||
      column >= static_cast<int>(cells[0].size())) {
    RaiseSubscript();
  }
  return cells[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)];
}

}  // namespace

bool HeadlessWindow::IsEnabled(Item item) const {
  const auto found = enabled_.find(item);
  return found == enabled_.end() || found->second;
}

const std::string& HeadlessWindow::GridCell(Grid grid, int row, int column) const {
  return grid == Grid::kCFBW ? CellOf(cfbwCells_, row, column)
                             : CellOf(pulseWidthCells_, row, column);
}

void HeadlessWindow::SetMousePointer(int pointer) {
  mousePointer_ = pointer;
  pointers_.push_back(pointer);
}

void HeadlessWindow::EnableItems(bool open) {
  halvorne::EnableItems(open);
}

void HeadlessWindow::UpdateMenu() {
  if (std::ranges::find(recentFiles_, design.DataFileName) == recentFiles_.end()) {
    recentFiles_.push_back(design.DataFileName);
  }
}

void HeadlessWindow::ClearPlotTypes() {
  plotTypes_.clear();
  plotTypeIndex_ = -1;
}

std::string HeadlessWindow::PlotTypeText(int index) const {
  if (index < 0 || index >= PlotTypeCount()) {
    throw Failure(failure_number::kInvalidCall);
  }
  return plotTypes_[static_cast<std::size_t>(index)];
}

void HeadlessWindow::SetPlotTypeIndex(int index) {
  if (index < 0 || index >= PlotTypeCount()) {
    throw Failure(failure_number::kInvalidCall);
  }
  if (index != plotTypeIndex_) {
    plotTypeIndex_ = index;
    PlotType_Click();
  }
}

void HeadlessWindow::SetGridCell(Grid grid, int row, int column, const std::string& text) {
  std::string& cell =
      grid == Grid::kCFBW ? CellOf(cfbwCells_, row, column) : CellOf(pulseWidthCells_, row, column);
  cell = text;
}

void HeadlessWindow::SetCursorValue(std::int32_t value) {
  const std::int32_t inRange = std::max(cursorMin_, std::min(value, cursorMax_));
  if (inRange != cursorValue_) {
    cursorValue_ = inRange;
    HScroll1_Change();
  }
}

}  // namespace halvorne
