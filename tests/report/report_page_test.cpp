#include <algorithm>
#include <array>
#include <gmock/gmock.h>
#include <regex>

#include "engine/frequency_sweep.h"
#include "engine/piezo_section.h"
#include "plot/cursor.h"
#include "plot/plot_select.h"
#include "plot/plot_state.h"
#include "report/report_fixture.h"
#include "report/report_layout.h"

namespace halvorne::testing {
namespace {

using Kind = DrawnOperation::Kind;
using Texts = std::vector<std::string>;

class ReportPage : public ReportTest {
 protected:
  static void ShowPlot(std::int16_t number) {
    PiezoConstants();
    PiezoLayers();
    PrelimCalc();
    MainCalc();
    view.CurrentPlot = number;
    PlotSelect(number);
  }
  static std::vector<std::array<double, 4>> Scales(const HeadlessSurface& surface) {
    std::vector<std::array<double, 4>> scales;
    for (const DrawnOperation& operation : surface.Operations()) {
      if (operation.kind == Kind::kScale) {
        scales.push_back({operation.points[0].x, operation.points[0].y, operation.points[1].x,
                          operation.points[1].y});
      }
    }
    return scales;
  }
};

using Scale = std::vector<std::array<double, 4>>;

TEST_F(ReportPage, OnPaperTheTextStartsUnderTheGraph) {
  ShowPlot(11);
  PrintOn(paper);
  EXPECT_EQ(Scales(paper), (Scale{{-2, 11.5, 12, -14.5}, {0, 10, 10, 0}}));
  const auto texts = Printed();
  const auto header = std::ranges::find_if(texts, &PrintedText::underline);
  ASSERT_NE(header, texts.end());
  EXPECT_EQ(header->x, 0);
  EXPECT_EQ(header->y, 10);
  EXPECT_EQ(header->size, 10) << "in the font of the graph's labels";
  EXPECT_TRUE(std::regex_search(header->text,
                                std::regex("^Halvorne Transducer Design Report +Printed: .* .*$")));
  EXPECT_EQ((header + 1)->text, "HALVORNE INPUT PARAMETERS");
  EXPECT_EQ((header + 1)->y, 5);
  EXPECT_EQ((header + 1)->size, 8);
  EXPECT_FALSE((header + 1)->underline);
  EXPECT_FLOAT_EQ(report.ReportLineHeight, 0.0625F) << "the graph's font: 1.2 x 10 points";
  EXPECT_EQ(shownMessages.Lines(), Texts{});
}

TEST_F(ReportPage, ThePreviewHasItsOwnScaleAndFontAndIsOneEndlessPage) {
  ShowPlot(11);
  HeadlessSurface preview(SurfaceKind::kPreview, 585, 842);  // 12630 twips: 5.63 and 7.50
  PrintOn(preview);
  EXPECT_EQ(Scales(preview), (Scale{{-2.35, 12.65, 12.35, -15.65}, {-0.25, 10.44, 10.25, -0.44}}));
  bool table = false;
  for (const DrawnOperation& operation : preview.Operations()) {
    EXPECT_NE(operation.kind, Kind::kNewPage);
    table = table || operation.text == "HALVORNE INPUT PARAMETERS";
    if (operation.kind == Kind::kText) {
      EXPECT_EQ(operation.fontSize, table ? 6 : 8) << operation.text;
    }
  }
  EXPECT_TRUE(table);
  EXPECT_NEAR(report.ReportLineHeight, 1.2 * 8 * 96 / 72 * 10.88 / 842, 1e-6);
}

TEST_F(ReportPage, TheStampLandsNearTheRightEdge) {
  BeginPage();
  report.ReportPrintedStamp = "Printed: today";  // 14 characters, the words before it 33
  PrintHeader(paper);
  // 10 units are 500 characters: 453 are left, 226 pairs of blanks, of which one is not printed.
  const DrawnOperation& header = paper.Operations().back();
  EXPECT_EQ(header.text,
            "Halvorne Transducer Design Report" + std::string(450, ' ') + "Printed: today");
  EXPECT_TRUE(header.fontUnderline);
  EXPECT_EQ(paper.CurrentX(), 0);
  EXPECT_NEAR(paper.CurrentY(), 9.95, 1e-9);
}

TEST_F(ReportPage, ALineThatHasNoRoomForBlanksIsCutAtTheEdge) {
  BeginPage();
  paper.SetFontSize(7.9);  // 506 characters a line
  report.ReportPrintedStamp = std::string(600, 'x');
  PrintHeader(paper);
  EXPECT_EQ(paper.Operations().back().text,
            "Halvorne Transducer Design Report" + std::string(473, 'x'));
}

TEST_F(ReportPage, ANewPageBeginsWhereFewerLinesAreLeftThanTwoMoreThanAsked) {
  BeginPage();
  report.ReportLineHeight = 0.5F;
  paper.MoveTo(3, 2.5);  // five lines
  YCheck(paper, 3);
  EXPECT_EQ(paper.CurrentY(), 2.5) << "three and two are left";
  EXPECT_EQ(paper.CurrentX(), 3);
  paper.Forget();
  YCheck(paper, 4);
  EXPECT_EQ(paper.Operations()[0].kind, Kind::kNewPage);
  EXPECT_TRUE(paper.Operations()[1].fontUnderline);
  EXPECT_EQ(paper.Operations()[1].points[0].y, 10);
  EXPECT_EQ(paper.Operations()[1].fontSize, 8) << "in the font of the table on later pages";
  EXPECT_EQ(paper.CurrentX(), 0);
  EXPECT_NEAR(paper.CurrentY(), 9.9, 1e-9) << "under the header and an empty line";
  paper.MoveTo(0, 2.499);
  paper.Forget();
  YCheck(paper, 3);
  EXPECT_EQ(paper.Operations()[0].kind, Kind::kNewPage) << "a little less than five lines are four";
}

TEST_F(ReportPage, ALineWithoutHeightIsToldAndNoPageBegins) {
  BeginPage();
  report.ReportLineHeight = 0;
  paper.Forget();
  YCheck(paper, 1);
  EXPECT_EQ(shownMessages.Lines(), Texts{"ERROR in YCheck of PRINTIT|Error: 11. Division by zero"});
  EXPECT_TRUE(paper.Operations().empty());
}

TEST_F(ReportPage, ThePreviewNeverBreaks) {
  HeadlessSurface preview(SurfaceKind::kPreview);
  preview.Scale(-0.25, 10.44, 10.25, -0.44);
  report.ReportLineHeight = 0.1F;
  preview.MoveTo(0, -5);
  preview.Forget();
  YCheck(preview, 100);
  EXPECT_TRUE(preview.Operations().empty());
  EXPECT_EQ(preview.CurrentY(), -5);
}

TEST_F(ReportPage, TheCursorIsDrawnWithItsReadOutInTheGraphsScale) {
  ShowPlot(11);
  Cursor1_Click();
  ASSERT_TRUE(measured.CursorOn);
  PrintOn(paper);
  const auto& operations = paper.Operations();
  const auto line = std::ranges::find_if(operations, [](const DrawnOperation& operation) {
    return operation.kind == Kind::kLine && operation.points[0].y == 0 &&
           operation.points[1].y == 10;
  });
  ASSERT_NE(line, operations.end());
  EXPECT_EQ(line->points[0].x, measured.CursorX);
  EXPECT_EQ(line->points[1].x, measured.CursorX);
  EXPECT_EQ(line->colour, kBlack);
  EXPECT_EQ(line->drawStyle, kDots);
  EXPECT_EQ(line->drawMode, kCopyPen);
  EXPECT_EQ((line + 1)->text, std::string(102, ' '));
  EXPECT_NE((line + 2)->text.find(" at 5.000 MHz"), std::string::npos) << (line + 2)->text;
  EXPECT_EQ((line + 3)->kind, Kind::kScale) << "then comes the page";
  EXPECT_TRUE(measured.CursorOn) << "printing leaves the cursor alone";
  paper.Forget();
  Cursor1_Click();
  PrintOn(paper);
  for (const DrawnOperation& operation : paper.Operations()) {
    EXPECT_FALSE(operation.kind == Kind::kLine && operation.points[1].y == 10 &&
                 operation.points[0].y == 0);
  }
}

TEST_F(ReportPage, AnExcitationPlotPutsThreeGraphsAboveTheText) {
  design.ExciteType = 1;
  ShowPlot(17);
  paper.Forget();
  PrintOn(paper);
  EXPECT_EQ(Scales(paper), (Scale{{-4.17, 13.75, 25, -51.25},
                                  {-15, 13.75, 14.17, -51.25},
                                  {-2, 21.3, 12, -26.85},
                                  {0, 10, 10, 0}}));
}

}  // namespace
}  // namespace halvorne::testing
