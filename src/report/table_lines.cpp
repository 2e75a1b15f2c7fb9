#include "platform/failure.h"
#include "platform/number_text.h"
#include "plot/plot_state.h"
#include "report/report_layout.h"
#include "report/report_words.h"

// Lines of the two tables, on the page's tab stops.

namespace halvorne {
namespace {

/// Prints a text at tab stop `column`, cut to what is before the next stop or the page's edge.
void PutInColumn(Surface& target, int column, const std::string& text) {
  const double next = column < report.ReportTab.last ? report.ReportTab(column + 1) : kPageRight;
  std::string cut;
  LimTextWidth(target, next - report.ReportTab(column), text, cut);
  At(target, report.ReportTab(column));
  target.Print(cut);
}

/// Prints a text that is not cut to its column.
void PutAtStop(Surface& target, int column, const std::string& text) {
  At(target, report.ReportTab(column));
  Put(target, text);
}

bool TwoLayers() {
  return design.NoPiezo == 2;
}

void PutUnits(Surface& target, const std::string& units) {
  PutAtStop(target, TwoLayers() ? 3 : 2, units);
  target.PrintLineEnd();
}

}  // namespace

void TabPrn(Surface& target, const std::string& label, double value1, double value2,
            const std::string& units, const char* format) try {
  PutInColumn(target, 0, label);
  PutAtStop(target, 1, Format(value1, format));
  if (TwoLayers()) {
    PutAtStop(target, 2, Format(value2, format));
  }
  PutUnits(target, units);
} catch (...) {
  ReportFailure("TabPrn", "PRINTIT");
}

void TabPrnStr(Surface& target, const std::string& label, const std::string& text1,
               const std::string& text2, const std::string& units) try {
  PutInColumn(target, 0, label);
  PutInColumn(target, 1, text1);
  if (TwoLayers()) {
    PutInColumn(target, 2, text2);
  }
  PutUnits(target, units);
} catch (...) {
  ReportFailure("TabPrnStr", "PRINTIT");
}

void TPStr(Surface& target, const TwelveTexts& texts) try {
  int column = 0;
  for (const std::string& text : texts) {
    PutInColumn(target, column++, text);
  }
  target.PrintLineEnd();
} catch (...) {
  ReportFailure("TPStr", "PRINTIT");
}

void TPNum(Surface& target, const PlateLine& line) try {
  PutAtStop(target, 0, PrintedNumber(line.number));
  PutInColumn(target, 1, line.name);
  int column = 2;
  for (std::size_t i = 0; i < line.values.size(); ++i) {
    PutAtStop(target, column++, Format(line.values[i], kPlatePatterns[i]));
  }
  PutInColumn(target, column, line.lastText);
  target.PrintLineEnd();
} catch (...) {
  ReportFailure("TPNum", "PRINTIT");
}

}  // namespace halvorne
