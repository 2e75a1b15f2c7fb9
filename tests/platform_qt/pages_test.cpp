#include <QFontMetricsF>
#include <QPainter>
#include <QPdfWriter>
#include <cstdlib>
#include <gtest/gtest.h>

#include "platform/qt/page_images.h"
#include "platform/qt/pdf_document.h"
#include "platform/qt/picture_font.h"

namespace halvorne::testing {
namespace {

const QPageLayout kA4(QPageSize(QPageSize::A4), QPageLayout::Portrait, {10, 10, 10, 10},
                      QPageLayout::Millimeter);

TEST(PageFont, IsNoWiderThanArial) {
  QFont font = PageFont();
  EXPECT_EQ(font.pointSizeF(), 8);
  font.setPixelSize(1000);
  font.setHintingPreference(QFont::PreferNoHinting);
  const QFontMetricsF letters(font);
  // Arial's letters a to z advance by 12.726 times its size.
  const double advance = letters.horizontalAdvance(QStringLiteral("abcdefghijklmnopqrstuvwxyz"));
  EXPECT_LE(advance, 12800);
  EXPECT_GE(advance, 10000) << "narrower than it needs to be";
}

TEST(PageFont, HasNoLigatures) {
  const QFontMetricsF letters(PageFont());
  EXPECT_NEAR(letters.horizontalAdvance(QStringLiteral("fi")),
              letters.horizontalAdvance(QStringLiteral("f")) +
                  letters.horizontalAdvance(QStringLiteral("i")),
              1e-6);
}

TEST(PageImages, APageIsWhiteUpToItsMarginsAndTheDrawingStandsWithin) {
  PageImages paper(kA4, 100);
  paper.Scale(0, 10, 10, 0);
  paper.Box(0, 0, 10, 10);
  ASSERT_EQ(paper.Pages().size(), 1U);
  const QImage& page = paper.Pages()[0];
  EXPECT_EQ(page.size(), kA4.fullRectPixels(100).size());
  const QRect area = kA4.paintRectPixels(100);
  EXPECT_EQ(page.pixel(area.topLeft() - QPoint(3, 3)), qRgb(255, 255, 255));
  EXPECT_LT(qGray(page.pixel(area.left(), area.center().y())), 128);
  EXPECT_LT(qGray(page.pixel(area.center().x(), area.bottom() + 1)), 128);
}

TEST(PageImages, ANewPageLeavesTheOneBefore) {
  PageImages paper(kA4, 100);
  paper.Scale(0, 10, 10, 0);
  paper.Line(0, 5, 10, 5);
  const QImage first = paper.Pages()[0];
  paper.MoveTo(3, 3);
  paper.NewPage();
  EXPECT_EQ(paper.CurrentX(), 0);
  paper.SetFontSize(30);
  paper.MoveTo(5, 5);
  paper.Print("second");
  ASSERT_EQ(paper.Pages().size(), 2U);
  EXPECT_EQ(paper.Pages()[0], first);
  EXPECT_NE(paper.Pages()[1], first);
}

TEST(PdfDocument, TellsItsTitleAndAuthorWhateverTheirLetters) {
  const auto make = [] {
    return MakePdf(kA4, {.title = QStringLiteral("\u00b5 (1)"), .author = QStringLiteral("A\\B")},
                   [](QPdfWriter& writer) { QPainter(&writer).drawLine(0, 0, 100, 100); });
  };
  ::setenv("SOURCE_DATE_EPOCH", "86399", 1);
  const QByteArray pdf = make();
  EXPECT_EQ(make(), pdf);
  ::setenv("SOURCE_DATE_EPOCH", "86400", 1);
  EXPECT_NE(make(), pdf);
  ::unsetenv("SOURCE_DATE_EPOCH");
  EXPECT_TRUE(pdf.startsWith("%PDF-1."));
  EXPECT_TRUE(pdf.endsWith("%%EOF\n"));
  EXPECT_TRUE(pdf.contains("/Title <feff00b50020002800310029>"));
  EXPECT_TRUE(pdf.contains("/Author <feff0041005c0042>"));
  EXPECT_EQ(pdf.count("(D:19700101235959Z)"), 3) << "the toolkit's and those of the update";
}

}  // namespace
}  // namespace halvorne::testing
