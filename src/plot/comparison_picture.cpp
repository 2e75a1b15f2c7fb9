#include <algorithm>
#include <array>
#include <string>

#include "plot/comparison_table.h"
#include "plot/graph.h"
#include "plot/held_legend.h"
#include "plot/upper_part.h"

namespace halvorne {
namespace {

constexpr double kLineHeight = 16;  ///< pixels
constexpr double kMargin = 12;
constexpr double kSample = 18;      ///< the piece of line in a design's colour
constexpr double kNameShare = 0.3;  ///< of the width
constexpr double kFont = 8;
constexpr double kSmallFont = 6;  ///< where a cell would lose its unit
constexpr int kHeadLines = 3;

/// What stands above a column: its name, level and unit. A unit is as wide as two where no level
/// is.
std::array<std::string, kHeadLines> HeadOf(const ComparisonTable::Column& column) {
  const std::size_t reference = column.unit.find(" re ");
  if (column.level.empty() && reference != std::string::npos) {
    return {column.name, column.unit.substr(0, reference), column.unit.substr(reference + 1)};
  }
  return {column.name, column.level, column.unit};
}

/// Writes a text with its right end at x.
void PrintRight(Surface& surface, double x, double y, const std::string& text) {
  PrintAt(surface, x - surface.TextWidth(text), y, text);
}

class TableDrawing {
 public:
  TableDrawing(Surface& surface, const ComparisonTable& table, double width)
      : surface_(surface), table_(table), width_(width) {}

  /// The head, then a line for each design.
  void Draw(double top) {
    surface_.SetFontSize(kFont);
    if (!CellsFit()) {
      surface_.SetFontSize(kSmallFont);
    }
    surface_.SetForeColor(kBlack);
    for (std::size_t k = 0; k < table_.columns.size(); ++k) {
      const auto head = HeadOf(table_.columns[k]);
      for (std::size_t line = 0; line < head.size(); ++line) {
        PrintCell(k, top + static_cast<double>(line) * kLineHeight, head.at(line));
      }
    }
    const double line = top + kHeadLines * kLineHeight - 1;
    surface_.Line(kMargin, line, width_ - kMargin, line);
    double y = line + 3;
    for (const ComparisonTable::Row& row : table_.rows) {
      DrawRow(row, y);
      y += kLineHeight;
    }
  }

 private:
  double NameEnd() const { return kMargin + kNameShare * width_; }
  double ColumnWidth() const {
    return (width_ - kMargin - NameEnd()) / static_cast<double>(table_.columns.size());
  }
  double CellWidth() const { return ColumnWidth() - 4; }
  bool CellsFit() const {
    return std::ranges::all_of(table_.rows, [this](const ComparisonTable::Row& row) {
      return std::ranges::all_of(row.cells, [this](const std::string& cell) {
        return surface_.TextWidth(cell) <= CellWidth();
      });
    });
  }
  void PrintCell(std::size_t column, double y, const std::string& text) {
    const double right = NameEnd() + static_cast<double>(column + 1) * ColumnWidth();
    PrintRight(surface_, right, y, FittedText(surface_, text, CellWidth()));
  }
  void DrawRow(const ComparisonTable::Row& row, double y) {
    surface_.SetForeColor(row.colour);
    surface_.SetDrawWidth(2);
    surface_.Line(kMargin, y + kLineHeight / 2, kMargin + kSample, y + kLineHeight / 2);
    surface_.SetDrawWidth(1);
    surface_.SetForeColor(kBlack);
    const double name = kMargin + kSample + 6;
    PrintAt(surface_, name, y, FittedText(surface_, row.design, NameEnd() - name));
    for (std::size_t k = 0; k < row.cells.size(); ++k) {
      PrintCell(k, y, row.cells[k]);
    }
  }

  Surface& surface_;
  const ComparisonTable& table_;
  double width_;
};

}  // namespace

double ComparisonTableHeight(const ComparisonTable& table) {
  return table.columns.empty()
             ? 0
             : static_cast<double>(table.rows.size() + kHeadLines) * kLineHeight + kMargin;
}

void DrawComparison(Surface& surface, double width, double height) {
  const ComparisonTable table = MakeComparisonTable();
  const double below = ComparisonTableHeight(table);
  if (below == 0 || below > height / 2) {
    PlotGraphOn(surface);
    return;
  }
  UpperPart graph(surface, (height - below) / height);
  PlotGraphOn(graph);
  surface.Scale(0, 0, width, height);
  TableDrawing(surface, table, width).Draw(height - below);
}

}  // namespace halvorne
