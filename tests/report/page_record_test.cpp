#include "report/page_record.h"

#include <gmock/gmock.h>
#include <sstream>

#include "plot/plot_state.h"
#include "report/report_fixture.h"
#include "report/report_layout.h"

namespace halvorne::testing {
namespace {

using Texts = std::vector<std::string>;

class Record : public ReportTest {
 protected:
  /// The record's lines behind the first one.
  Texts Rest() const {
    std::istringstream text(record.Text("Sans", 500, 800));
    Texts lines;
    for (std::string line; std::getline(text, line);) {
      lines.push_back(line);
    }
    lines.erase(lines.begin());
    return lines;
  }

  PageRecord record{paper};
};

TEST_F(Record, BeginsWithTheReportAsAWhole) {
  view.CurrentPlot = 31;
  window.AddPlotType("a");
  setup.ReportDetails = 2;
  report.ReportLineHeight = 0.125F;
  record.NewPage();
  EXPECT_EQ(record.Text("Sans \"8\"", 538.5, 785),
            "{\"op\":\"report\",\"pages\":2,\"plot\":31,\"form\":-1,\"detail\":2,"
            "\"line_height\":0.125,\"font\":\"Sans \\\"8\\\"\",\"width_pt\":538.5,"
            "\"height_pt\":785}\n");
}

TEST_F(Record, TurnsTheGraphsScaleIntoPageUnits) {
  record.Scale(-2, 11.5, 12, -14.5);  // 1.4 units a page unit across, 2.6 down
  record.SetForeColor(kBlue);
  record.SetDrawStyle(kDots);
  record.Line(-2, 11.5, 12, -14.5);
  record.Line(5, -1.5, 5, 9.5, kCyan);
  record.SetDrawStyle(kSolid);
  record.Box(-0.6, 8.9, 0.8, 6.3);
  const std::vector<Point> trace{{-2, 11.5}, {-0.6, 8.9}, {5, -1.5}};
  record.Polyline(trace);
  record.Polyline(std::vector<Point>{{1, 1}});
  EXPECT_EQ(Rest(), (Texts{"{\"op\":\"line\",\"page\":1,\"x1\":0,\"y1\":10,\"x2\":10,\"y2\":0,"
                           "\"color\":\"#0000ff\",\"style\":\"dots\"}",
                           "{\"op\":\"line\",\"page\":1,\"x1\":5,\"y1\":5,\"x2\":5,\"y2\":9.230769,"
                           "\"color\":\"#008080\",\"style\":\"dots\"}",
                           "{\"op\":\"box\",\"page\":1,\"x1\":1,\"y1\":9,\"x2\":2,\"y2\":8}",
                           "{\"op\":\"polyline\",\"page\":1,\"points\":[[0,10],[1,9],[5,5]],"
                           "\"color\":\"#0000ff\",\"style\":\"solid\"}"}));
  EXPECT_EQ(paper.Operations().size(), 5U) << "all is drawn as well";
}

TEST_F(Record, AFilledBoxHasItsColour) {
  record.Scale(0, 10, 10, 0);
  record.FillBox(1, 2, 3, 4, kCyan);
  EXPECT_EQ(Rest(), Texts{"{\"op\":\"fill\",\"page\":1,\"x1\":1,\"y1\":2,\"x2\":3,\"y2\":4,"
                          "\"color\":\"#008080\"}"});
  EXPECT_EQ(paper.Operations().back().kind, DrawnOperation::Kind::kFill);
}

TEST_F(Record, ATextHasThePenItsLooksAndItsMeasures) {
  record.Scale(0, 10, 10, 0);
  record.SetFontSize(8);
  record.SetFontUnderline(true);
  record.MoveTo(4, 5);
  record.Print("ab\"\\");
  record.Print("");
  record.NewPage();
  record.SetFontUnderline(false);
  record.MoveTo(0, 9);
  record.Print("one\r\n\x01two");
  EXPECT_EQ(Rest(),
            (Texts{"{\"op\":\"text\",\"page\":1,\"x\":4,\"y\":5,\"text\":\"ab\\\"\\\\\",\"size\":8,"
                   "\"bold\":false,\"italic\":false,\"underline\":true,\"w\":0.08,\"h\":-0.05}",
                   "{\"op\":\"text\",\"page\":2,\"x\":0,\"y\":9,\"text\":\"one\",\"size\":8,"
                   "\"bold\":false,\"italic\":false,\"underline\":false,\"w\":0.06,\"h\":-0.05}",
                   "{\"op\":\"text\",\"page\":2,\"x\":0,\"y\":8.95,\"text\":\"\\u0001two\","
                   "\"size\":8,\"bold\":false,\"italic\":false,\"underline\":false,\"w\":0.08,"
                   "\"h\":-0.05}"}));
}

TEST_F(Record, MeasuresOfTheGraphsTextsAreInPageUnitsToo) {
  record.SetFontSize(10);
  record.Scale(-2, 11.5, 12, -14.5);
  record.MoveTo(5, -1.5);
  record.Print("\xE9!");
  EXPECT_EQ(Rest(), Texts{"{\"op\":\"text\",\"page\":1,\"x\":5,\"y\":5,\"text\":\"\xC3\xA9!\","
                          "\"size\":10,\"bold\":false,\"italic\":false,\"underline\":false,"
                          "\"w\":0.05,\"h\":-0.0625}"});
}

TEST_F(Record, LeavesWhatIsPrintedAsItIs) {
  BeginPage();
  HeadlessSurface other(SurfaceKind::kPrinter, 3200, 2560);
  other.Scale(0, 10, 10, 0);
  other.SetFontSize(8);
  other.MoveTo(0.15, 5);
  other.Print("a line\r\nanother");
  record.MoveTo(0.15, 5);
  record.Print("a line\r\nanother");
  EXPECT_EQ(record.CurrentX(), other.CurrentX());
  EXPECT_EQ(record.CurrentY(), other.CurrentY());
  EXPECT_EQ(record.Kind(), SurfaceKind::kPrinter);
}

}  // namespace
}  // namespace halvorne::testing
