#include <algorithm>
#include <gmock/gmock.h>

#include "engine/design_model.h"
#include "report/report_fixture.h"
#include "report/report_layout.h"

namespace halvorne::testing {
namespace {

using Texts = std::vector<std::string>;

/// A character is 0.02 page units wide, so that a whole line between tab stop 0.15 and the edge,
/// 9.85 units, holds 492 of them.
class PageText : public ReportTest {
 protected:
  PageText() { BeginPage(); }

  std::string Cut(double width, const std::string& text) {
    std::string result;
    LimTextWidth(paper, width, text, result);
    return result;
  }
  Texts Title(const std::string& text) {
    paper.Forget();
    paper.MoveTo(0, 5);
    PrintTitle(paper, text);
    Texts texts;
    for (const DrawnOperation& operation : paper.Operations()) {
      texts.push_back(operation.text);
    }
    return texts;
  }
};

TEST_F(PageText, IsCutToLessThanTheColumn) {
  EXPECT_EQ(Cut(0.1, "abcd"), "abcd") << "0.08";
  EXPECT_EQ(Cut(paper.TextWidth("abcde"), "abcde"), "abcd") << "as wide as the column is too wide";
  EXPECT_EQ(Cut(0.101, "abcde"), "abcde");
  EXPECT_EQ(Cut(0.01, "abcde"), "");
  EXPECT_EQ(Cut(0.1, ""), "");
}

TEST_F(PageText, LosesWholeCharacters) {
  // The paper counts bytes: three of them fit.
  EXPECT_EQ(Cut(0.07, "a\xC3\xA4\xC3\xA4"), "a\xC3\xA4");
  EXPECT_EQ(Cut(0.05, "\xC3\xA4\xC3\xA4"), "\xC3\xA4");
  EXPECT_EQ(Cut(0.05, "\xE4\xE4"), "\xC3\xA4") << "of Latin-1 as well";
}

TEST_F(PageText, ATitleAsWideAsTheLineDoesNotWrap) {
  report.ReportTab(1) = 0.26F;  // 9.74 is 487 characters
  const std::string exact(487, 'x');
  EXPECT_EQ(Title(exact), Texts{"TITLE:  " + exact + "\r\n"});
  EXPECT_EQ(Title(exact + "x").size(), 2U);
}

TEST_F(PageText, AWiderTitleIsPartedByNumberOfCharacters) {
  // 1000 characters are 20 units, 2.03 lines: three, of 333 characters, and the last one is lost.
  std::string title;
  for (int i = 0; i < 1000; ++i) {
    title += static_cast<char>('a' + i % 26);
  }
  EXPECT_EQ(Title(title),
            (Texts{"TITLE:  " + title.substr(0, 333) + "\r\n", title.substr(333, 333) + "\r\n",
                   title.substr(666, 333) + "\r\n"}));
  EXPECT_EQ(paper.CurrentX(), 0);
  EXPECT_NEAR(paper.CurrentY(), 4.85, 1e-9) << "three lines lower";
}

TEST_F(PageText, ATitlesPartsAreRoundedHalfToEven) {
  // 1001 characters in three lines: 333.67 each, 334; the last line has what is left.
  const Texts lines = Title(std::string(1001, 'x'));
  ASSERT_EQ(lines.size(), 3U);
  EXPECT_EQ(lines[1], std::string(334, 'x') + "\r\n");
  EXPECT_EQ(lines[2], std::string(333, 'x') + "\r\n");
  // 493 characters in two lines: 246.5 is 246, and one is lost.
  EXPECT_EQ(Title(std::string(493, 'x')),
            (Texts{"TITLE:  " + std::string(246, 'x') + "\r\n", std::string(246, 'x') + "\r\n"}));
}

TEST_F(PageText, ATitleOfVeryManyLinesGoesOnOnNewPages) {
  const Texts printed = Title(std::string(100000, 'x'));
  std::size_t characters = 0;
  int pages = 1;
  for (const DrawnOperation& operation : paper.Operations()) {
    if (operation.kind == DrawnOperation::Kind::kNewPage) {
      ++pages;
    }
    if (operation.kind == DrawnOperation::Kind::kText) {
      EXPECT_GE(operation.points[0].y, 0.05 - 1e-9) << "below the paper";
      characters += static_cast<std::size_t>(std::ranges::count(operation.text, 'x'));
    }
  }
  // 204 lines of 490: 100 on the first page, 197 on a whole one under its header.
  EXPECT_EQ(pages, 2);
  EXPECT_EQ(characters, 204U * 490U);
}

TEST_F(PageText, ATitleExactlyAsWideAsItsLineIsNotParted) {
  paper.Scale(0, 10, 8, 0);  // 1/64 unit a character, which no sum rounds
  paper.SetFontSize(7.8125);
  report.ReportTab(1) = 2;
  const std::string title(512, 'x');
  ASSERT_EQ(paper.TextWidth(title), kPageRight - 2);
  EXPECT_EQ(Title(title).size(), 1U);
  EXPECT_EQ(Title(title + 'x').size(), 2U);
}

TEST_F(PageText, RunsUpToTheRightEdgeAndNoFurther) {
  paper.SetFontSize(7.9);  // 0.01975 a character: 50 from 9 on, 506 on a line
  At(paper, 9);
  Put(paper, std::string(50, 'x'));
  EXPECT_EQ(paper.Operations().back().text, std::string(50, 'x'));
  At(paper, 9);
  Put(paper, std::string(51, 'x'));
  EXPECT_EQ(paper.Operations().back().text, std::string(50, 'x'));
  At(paper, 9);
  PutLines(paper, std::string(60, 'x') + "\r\n" + std::string(600, 'y'));
  EXPECT_EQ(paper.Operations().back().text, std::string(50, 'x') + "\r\n" + std::string(506, 'y'));
  At(paper, 9);
  PutLines(paper, "first\r\nsecond\r\nthird");
  EXPECT_EQ(paper.Operations().back().text, "first\r\nsecond\r\nthird");
}

// The file's line has room for 200 characters before the date, of which 11 are words and one is the
// blank before it.
TEST_F(PageText, ADataFileThatReachesTheDateGetsSmallerThenShorter) {
  const auto fitted = [&](std::size_t length) {
    paper.Forget();
    At(paper, 0);
    PutFitted(paper, "Data file: ", std::string(length, 'n'), 4.005);
    EXPECT_LE(paper.CurrentX(), 4);
    return paper.Operations().back();
  };
  EXPECT_EQ(fitted(188).fontSize, 8);
  EXPECT_EQ(fitted(189).fontSize, 7.5) << "213 characters, 12 of them not the name's";
  EXPECT_EQ(fitted(308).fontSize, 5) << "320 characters";
  EXPECT_EQ(fitted(308).text, "Data file: " + std::string(308, 'n'));
  EXPECT_EQ(fitted(309).text.size(), 11U + 305 + 3);
  const DrawnOperation longer = fitted(400);
  EXPECT_EQ(longer.fontSize, 5);
  // The sign of what is left out counts three on this paper.
  EXPECT_EQ(longer.text,
            "Data file: " + std::string(152, 'n') + "\xE2\x80\xA6" + std::string(153, 'n'));
  Put(paper, "x");
  EXPECT_EQ(paper.Operations().back().fontSize, 8) << "what follows has its own size";
}

TEST_F(PageText, TheMiddleOfANameIsLeftOut) {
  At(paper, 3.6);  // 20 characters of 8 points are 0.4, 32 of 5 points
  PutFitted(paper, "File: ", "/home/somebody/designs/probe.dat", 4.005);
  EXPECT_EQ(paper.Operations().back().text,
            "File: /home/someb\xE2\x80\xA6"
            "s/probe.dat");
}

}  // namespace
}  // namespace halvorne::testing
