#pragma once

#include <string>
#include <vector>

#include "platform/surface.h"

namespace halvorne {

/// The measurements of the present design and the held ones side by side.
struct ComparisonTable {
  struct Column {
    std::string name;   ///< "Center"
    std::string level;  ///< at which it is taken, "-6 dB"; empty where there is none
    std::string unit;   ///< of the present design; a cell in another one says so

    std::string Caption() const { return level.empty() ? name : name + " " + level; }
  };
  struct Row {
    std::string design;
    Colour colour;                   ///< of its curves
    std::vector<std::string> cells;  ///< one for each column; empty where it has no such value
  };

  std::vector<Column> columns;
  std::vector<Row> rows;  ///< the present design first
};

/// What is measured on the plot on show: center frequency and bandwidth, pulse width and peak as
/// far as the plot has them. A plot without measurements has a table without columns.
ComparisonTable MakeComparisonTable();

/// The table as CSV, a line for each design; empty where nothing is measured.
std::string TableAsCsv(const ComparisonTable& table);

/// Draws the plot on show with its held designs, and the table below it where at least half of the
/// height is left for the graph.
/// @param width, height  of the whole surface in pixels of 1/96 inch
void DrawComparison(Surface& surface, double width, double height);

/// Height of the table in pixels; 0 where nothing is measured.
double ComparisonTableHeight(const ComparisonTable& table);

}  // namespace halvorne
