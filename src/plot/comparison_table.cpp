#include "plot/comparison_table.h"

#include "platform/failure.h"
#include "platform/number_text.h"
#include "platform/numbers.h"
#include "plot/held_curves.h"
#include "plot/held_legend.h"
#include "plot/trace_colours.h"

namespace halvorne {
namespace {

using Cells = std::vector<std::string>;

/// A cell in its unit, which is told where it is not the column's.
std::string InUnit(const std::string& cell, const std::string& unit, const std::string& column) {
  return cell.empty() || unit == column ? cell : cell + " " + unit;
}

std::string PeakText(const Measured& of) {
  return Format(20 * log10(double{of.PeakAmpl}), "0.00");
}

std::vector<ComparisonTable::Column> Columns() {
  std::vector<ComparisonTable::Column> columns;
  if (measured.CFBWValid) {
    for (std::size_t row = 3; row <= 5; ++row) {
      const auto& texts = measured.CFBWText[row];
      const auto& units = measured.CFBWText[2];
      const std::string level = texts[0] + " dB";
      columns.push_back({"Center", level, units[1]});
      columns.push_back({"Band", level, units[2]});
      columns.push_back({"Band", level, units[3]});
    }
  }
  if (measured.PulseWidthValid) {
    for (std::size_t row = 2; row <= 4; ++row) {
      columns.push_back(
          {"Pulse", measured.PulseWidthText[row][0] + " dB", measured.PulseWidthText[1][1]});
    }
    columns.push_back({"Peak", "", "dB re 1 " + scale.PeakUnit});
  }
  return columns;
}

Cells CellsOf(const Measured& of) {
  Cells cells;
  if (measured.CFBWValid) {
    for (std::size_t row = 3; row <= 5; ++row) {
      for (std::size_t column = 1; column <= 3; ++column) {
        cells.push_back(
            InUnit(of.CFBWText[row][column], of.CFBWText[2][column], measured.CFBWText[2][column]));
      }
    }
  }
  if (measured.PulseWidthValid) {
    for (std::size_t row = 2; row <= 4; ++row) {
      cells.push_back(InUnit(of.PulseWidthText[row][1], of.PulseWidthText[1][1],
                             measured.PulseWidthText[1][1]));
    }
    cells.push_back(PeakText(of));
  }
  return cells;
}

/// A cell that a comma or a quotation mark would break.
std::string Quoted(const std::string& cell) {
  if (cell.find_first_of(",\"\r\n") == std::string::npos) {
    return cell;
  }
  std::string quoted = "\"";
  for (const char c : cell) {
    quoted += c == '"' ? "\"\"" : std::string(1, c);
  }
  return quoted + "\"";
}

}  // namespace

ComparisonTable MakeComparisonTable() {
  MakeHeldCurves();
  ComparisonTable table;
  table.columns = Columns();
  table.rows.push_back({DesignCaption(design), kFirstTraceColour, CellsOf(measured)});
  for (const int slot : HeldSlots()) {
    const HeldDesign& held = *Held(slot);
    table.rows.push_back(
        {held.label, kHeldColours.at(static_cast<std::size_t>(slot)),
         held.curves->shown ? CellsOf(held.curves->measured) : Cells(table.columns.size())});
  }
  return table;
}

std::string TableAsCsv(const ComparisonTable& table) {
  if (table.columns.empty()) {
    return "";
  }
  std::string text = "design";
  for (const ComparisonTable::Column& column : table.columns) {
    text += ',';
    text += Quoted(column.Caption() + " (" + column.unit + ")");
  }
  text += '\n';
  for (const ComparisonTable::Row& row : table.rows) {
    text += Quoted(row.design);
    for (const std::string& cell : row.cells) {
      text += ',';
      text += Quoted(cell);
    }
    text += '\n';
  }
  return text;
}

}  // namespace halvorne
