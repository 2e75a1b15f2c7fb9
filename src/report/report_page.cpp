#include <cmath>

#include "platform/clock.h"
#include "platform/failure.h"
#include "platform/numbers.h"
#include "plot/cursor.h"
#include "plot/graph.h"
#include "plot/plot_state.h"
#include "report/report_content.h"
#include "report/report_layout.h"

namespace halvorne {

Report report;

namespace {

constexpr double kPageTop = 10;
constexpr double kPrintedFontSize = 8;
constexpr const char* kTwoBlanks = "  ";

void SetPageScale(Surface& target) {
  if (target.Kind() == SurfaceKind::kPreview) {
    target.Scale(-0.25, 10.44, 10.25, -0.44);
  } else if (target.Kind() == SurfaceKind::kPrinter) {
    target.Scale(0, kPageTop, kPageRight, 0);
  }
}

void BeginPage(Surface& target) {
  target.NewPage();
  PrintHeader(target);
  target.PrintLineEnd();
}

}  // namespace

double TableFontSize(const Surface& target) {
  return target.Kind() == SurfaceKind::kPreview ? Int(target.HeightTwips() * 3 / 6735 + 0.5)
                                                : kPrintedFontSize;
}

void PrintOn(Surface& target) try {
  report.ReportPrintedStamp = "Printed: " + DateTimeText();
  PlotGraphOn(target);
  if (measured.CursorOn) {
    CursorOnPrinter(target);
  }
  SetPageScale(target);
  PrintHeader(target);
  target.MoveTo(0, kPageTop / 2);
  // Kept: in the larger font of the graph's labels, and not measured again in the table's.
  report.ReportLineHeight = ToSingle(std::abs(target.TextHeight("Xg")));
  target.SetFontSize(TableFontSize(target));
  PrintParasOn(target);
} catch (...) {
  ReportFailure("PrintOn", "PRINTIT");
}

void PrintHeader(Surface& target) try {
  target.MoveTo(0, kPageTop);
  std::string text = "Halvorne Transducer Design Report";
  const double width = target.TextWidth(text) + target.TextWidth(report.ReportPrintedStamp);
  const double blanks = Int(Quotient(kPageRight - width, target.TextWidth(kTwoBlanks))) - 1;
  for (int i = 1; i <= blanks; ++i) {
    text += kTwoBlanks;
  }
  target.SetFontUnderline(true);
  Put(target, text + report.ReportPrintedStamp);
  target.PrintLineEnd();
  target.SetFontUnderline(false);
} catch (...) {
  ReportFailure("PrintHeader", "PRINTIT");
}

void YCheck(Surface& target, std::int16_t lines) try {
  if (target.Kind() != SurfaceKind::kPrinter) {
    return;  // the preview is one endless page
  }
  const double left = Int(Quotient(target.CurrentY(), report.ReportLineHeight));
  if (left < lines + 2) {
    BeginPage(target);
  }
} catch (...) {
  ReportFailure("YCheck", "PRINTIT");
}

void At(Surface& target, double x) {
  const bool printed = target.Kind() == SurfaceKind::kPrinter;
  if (printed && target.CurrentY() < std::abs(target.TextHeight("Xg"))) {
    BeginPage(target);  // only behind a title of very many lines
  }
  target.MoveTo(x, target.CurrentY());
}

void CursorOnPrinter(Surface& target) try {
  target.SetScaleMode(0);
  target.SetDrawWidth(1);
  target.SetDrawMode(kCopyPen);
  target.SetDrawStyle(kDots);
  target.Line(measured.CursorX, 0, measured.CursorX, 10, kBlack);
  CursorPrint(target, true);
} catch (...) {
  ReportFailure("CursorOnPrinter", "PRINTIT");
}

}  // namespace halvorne
