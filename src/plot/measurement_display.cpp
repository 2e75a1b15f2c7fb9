#include "platform/failure.h"
#include "platform/main_window.h"
#include "platform/number_text.h"
#include "plot/measures.h"

// What of the measurements stands beside the graph in the main window.

namespace halvorne {
namespace {

constexpr const char* kModule = "frmHalvorneMain";

/// Shows the rows from `firstRow` on of a grid's texts, blanks unless `valid`.
template <class Texts>
void ShowCells(Grid grid, std::int16_t firstRow, const Texts& texts, bool valid) {
  const auto rows = static_cast<std::int16_t>(texts.size());
  const auto columns = static_cast<std::int16_t>(texts[0].size());
  for (measured.GridRow = firstRow; measured.GridRow < rows; ++measured.GridRow) {
    for (measured.GridCol = 0; measured.GridCol < columns; ++measured.GridCol) {
      mainWindow().SetGridCell(grid, measured.GridRow, measured.GridCol,
                               valid ? texts[measured.GridRow][measured.GridCol] : std::string());
    }
  }
}

/// Shows a grid's rows before `endRow`.
template <class Texts>
void ShowFixedRows(Grid grid, std::size_t endRow, const Texts& texts) {
  for (std::size_t row = 0; row < endRow; ++row) {
    for (std::size_t column = 0; column < texts[row].size(); ++column) {
      mainWindow().SetGridCell(grid, static_cast<int>(row), static_cast<int>(column),
                               texts[row][column]);
    }
  }
}

std::array<std::string, 4> AttenuationCaptions() {
  const double frequency = Quotient(design.AttenFreq, design.FreqScale);
  return {"Path length " + Format(design.AttenLength, "0.000") + " cm",
          "Atten rate " + Format(design.AttenRate, "0.000") + " dB/cm",
          "Atten freq " + Format(frequency, "0.000 ") + design.FreqUnit,
          "Exponent " + Format(design.AttenExp, "0.000")};
}

}  // namespace

void InitGrids() try {
  measured.CFBWText[0] = {"Level", "Center", "Band", "Band"};
  measured.CFBWText[1] = {"", "Freq", "Width", "Width"};
  measured.PulseWidthText[0] = {"Level", "Width"};
  ShowFixedRows(Grid::kCFBW, 2, measured.CFBWText);
  ShowFixedRows(Grid::kPulseWidth, 1, measured.PulseWidthText);
} catch (...) {
  ReportFailure("InitGrids", kModule);
}

void DisplayCFBW() try {
  ShowCells(Grid::kCFBW, 2, measured.CFBWText, measured.CFBWValid);
  mainWindow().SetEnabled(Item::kCFBWGrid, measured.CFBWValid);
} catch (...) {
  ReportFailure("DisplayCFBW", kModule);
}

void DisplayPulseWidth() try {
  ShowCells(Grid::kPulseWidth, 1, measured.PulseWidthText, measured.PulseWidthValid);
  mainWindow().SetEnabled(Item::kPulseWidthGrid, measured.PulseWidthValid);
  mainWindow().ShowPeakLabel(measured.PulseWidthValid);
} catch (...) {
  ReportFailure("DisplayPulseWidth", kModule);
}

void DisplayAtten() try {
  const bool shown = measured.AttenValid && design.AttenOn;
  measured.AttenCaptions = shown ? AttenuationCaptions() : std::array<std::string, 4>{};
  mainWindow().SetAttenuationLabels(measured.AttenCaptions);
  mainWindow().SetEnabled(Item::kAttenuation, measured.AttenValid);
  mainWindow().ShowAttenuationLabels(measured.AttenValid);
} catch (...) {
  ReportFailure("DisplayAtten", kModule);
}

}  // namespace halvorne
