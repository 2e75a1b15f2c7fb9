#include <gmock/gmock.h>
#include <limits>

#include "engine/design_model.h"
#include "report/report_fixture.h"
#include "report/report_layout.h"
#include "report/text_lines.h"

namespace halvorne::testing {
namespace {

using Texts = std::vector<std::string>;

class TableLines : public ReportTest {
 protected:
  TableLines() {
    BeginPage();
    LoadTabs({0.15F, 2.0F, 4.0F, 6.0F});
  }
  static PlateLine Plate() {
    return {.number = 3,
            .name = "Epoxy",
            .values = {1234.56, 2500, 3, 1.5, 2, 1.255, 0.75, 0.123456, 0.25},
            .lastText = "end"};
  }
  static void LoadPlateTabs() {
    LoadTabs({0.15F, 0.7F, 1.8F, 2.6F, 3.4F, 4.2F, 5.0F, 5.8F, 6.6F, 7.4F, 8.2F, 9.0F});
  }
};

TEST_F(TableLines, UnitsStandBehindTheLastLayer) {
  TabPrn(paper, "Density", 1.25, 2.5, "kg", "0.00");
  design.NoPiezo = 1;
  TabPrn(paper, "Density", 1.25, 2.5, "kg", "0.00");
  TabPrnStr(paper, "Vendor", "A", "B", "");
  EXPECT_EQ(Lines(), (Texts{"0.15|Density & 2|1.25 & 4|2.50 & 6|kg", "0.15|Density & 2|1.25 & 4|kg",
                            "0.15|Vendor & 2|A"}));
  EXPECT_NEAR(paper.CurrentY(), 4.85, 1e-9) << "each ends its line";
}

TEST_F(TableLines, LabelsAndTextsAreCutToTheirColumns) {
  paper.SetFontSize(7.9);  // 0.01975 a character: columns of 1.85 and 2 units hold 93 and 101
  const std::string wide(200, 'w');
  TabPrnStr(paper, wide, wide, wide, "units");
  EXPECT_EQ(Lines(), Texts{"0.15|" + std::string(93, 'w') + " & 2|" + std::string(101, 'w') +
                           " & 4|" + std::string(101, 'w') + " & 6|units"});
}

TEST_F(TableLines, PlateTextsAreCutToTheNextStopAndTheLastToTheEdge) {
  paper.SetFontSize(7.9);
  LoadPlateTabs();
  TwelveTexts texts;
  texts.fill(std::string(80, 'w'));
  TPStr(paper, texts);
  std::vector<std::size_t> lengths;
  for (const PrintedText& text : Printed()) {
    lengths.push_back(text.text.size());
  }
  // Columns of 0.55, 1.1, 0.8 and at the end 1.0.
  EXPECT_EQ(lengths, (std::vector<std::size_t>{27, 55, 40, 40, 40, 40, 40, 40, 40, 40, 40, 50}));
}

TEST_F(TableLines, APlatesLineHasItsPatterns) {
  LoadPlateTabs();
  TPNum(paper, Plate());
  EXPECT_EQ(Lines(), Texts{"0.15| 3  & 0.7|Epoxy & 1.8|1234.6 & 2.6|2500.0 & 3.4|3.000 & 4.2|1.500 "
                           "& 5|2.000 & 5.8|1.26 & 6.6|0.750 & 7.4|0.12346 & 8.2|0.25000 & 9|end"});
}

TEST_F(TableLines, OfTheClipboardAreNotCut) {
  const std::string wide(200, 'w');
  std::string text;
  TabPrnStrClip(text, wide, "a", "b", "u");
  EXPECT_EQ(text, wide + "\ta\tb\tu\r\n");
  text.clear();
  TabPrnClip(text, "Density", 1.25, 2.5, "kg", "0.0");
  design.NoPiezo = 1;
  TabPrnClip(text, "Density", 1.25, 2.5, "kg", "0.0");
  EXPECT_EQ(text, "Density\t1.3\t2.5\tkg\r\nDensity\t1.3\tkg\r\n");
}

TEST_F(TableLines, OfTheClipboardStandLeftOfTheirHeadings) {
  std::string text;
  TPStrClip(text, {"a", "b", "c", "d", "e", "f", "g", "h", "i", "j", "k", "l"});
  TPNumClip(text, Plate());
  EXPECT_EQ(
      text,
      "a\tb\t\tc\td\te\tf\tg\th\ti\tj\tk\tl\r\n"
      "3\tEpoxy\t1234.6\t2500.0\t3.000\t1.500\t2.000\t1.26\t0.750\t0.12346\t0.25000\tend\r\n");
}

TEST_F(TableLines, OfTheClipboardKeepTheirColumnsWhateverATextHolds) {
  std::string text;
  TabPrnStrClip(text, "Vendor", "a\tb", "c\r\nd", "");
  EXPECT_EQ(text,
            "Vendor\ta\xEF\xBF\xBD"
            "b\tc\xEF\xBF\xBD\xEF\xBF\xBD"
            "d\t\r\n");
}

TEST_F(TableLines, FailuresEndInTheirOwnBox) {
  std::string text;
  TabPrnClip(text, "x", std::numeric_limits<double>::infinity(), 0, "", "0.0");
  TabPrn(paper, "x", std::numeric_limits<double>::infinity(), 0, "", "0.0");
  EXPECT_EQ(shownMessages.Lines(), (Texts{"ERROR in TabPrnClip of PRINTIT|Error: 6. Overflow",
                                          "ERROR in TabPrn of PRINTIT|Error: 6. Overflow"}));
}

}  // namespace
}  // namespace halvorne::testing
