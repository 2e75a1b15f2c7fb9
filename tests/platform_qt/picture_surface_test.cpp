#include "platform/qt/picture_surface.h"

#include <QPainter>
#include <gtest/gtest.h>

namespace halvorne::testing {
namespace {

constexpr QSize kSize(200, 100);
constexpr QRgb kWhite = qRgb(255, 255, 255);

/// A picture of 200 x 100 pixels whose logical units are its pixels.
class Picture : public ::testing::Test {
 protected:
  Picture() {
    surface.SetSize(kSize, 1);
    surface.Scale(0, 0, kSize.width(), kSize.height());
    surface.SetChangeListener([this](const QRect& where) { changes.push_back(where); });
  }
  QImage PaintedIn(const QRect& exposed) const {
    QImage window(kSize, QImage::Format_RGB32);
    window.fill(Qt::red);
    QPainter painter(&window);
    surface.PaintOn(painter, exposed);
    return window;
  }

  PictureSurface surface{SurfaceKind::kMainPicture};
  std::vector<QRect> changes;
};

TEST_F(Picture, IsAWhitePageAtFirstAndAfterCls) {
  EXPECT_EQ(surface.Seen().pixel(10, 10), kWhite);
  surface.Line(0, 10, 200, 10);
  EXPECT_NE(surface.Seen().pixel(100, 10), kWhite);
  surface.Cls();
  EXPECT_EQ(surface.Seen().pixel(100, 10), kWhite);
  EXPECT_EQ(surface.CurrentX(), 0);
  EXPECT_EQ(surface.CurrentY(), 0);
}

TEST_F(Picture, RepaintsFromWhatItKeptAndDrawsNothingAnew) {
  surface.Line(20, 0, 20, 100);
  surface.SetForeColor(kBlue);
  surface.Box(50, 20, 90, 80);
  const QImage kept = surface.Seen();
  changes.clear();
  for (int repaint = 0; repaint < 3; ++repaint) {
    EXPECT_EQ(PaintedIn(QRect({0, 0}, kSize)), kept);
  }
  EXPECT_TRUE(changes.empty()) << "a repaint changed the picture";
}

TEST_F(Picture, RepaintsTheExposedPartOnly) {
  surface.Line(0, 50, 200, 50);
  const QImage window = PaintedIn(QRect(40, 30, 20, 40));
  EXPECT_EQ(window.pixel(39, 50), qRgb(255, 0, 0));
  EXPECT_EQ(window.pixel(60, 50), qRgb(255, 0, 0));
  EXPECT_EQ(window.copy(40, 30, 20, 40), surface.Seen().copy(40, 30, 20, 40));
}

TEST_F(Picture, LinesAlongTheAxesCoverWholePixels) {
  surface.Line(20.3, 0, 20.3, 100);
  const QImage seen = surface.Seen();
  EXPECT_EQ(seen.pixel(20, 50), qRgb(0, 0, 0)) << "a grey line of two pixels";
  EXPECT_EQ(seen.pixel(19, 50), kWhite);
  EXPECT_EQ(seen.pixel(21, 50), kWhite);
}

TEST_F(Picture, AnExclusiveOrLineDrawnTwiceIsGoneAndLeavesThePictureAsItWas) {
  surface.Line(0, 50, 200, 50);
  surface.SetForeColor(kBlue);
  surface.Line(0, 0, 200, 100);
  const QImage before = surface.Seen();
  surface.SetDrawMode(kXorPen);
  surface.SetDrawStyle(kDots);
  surface.Line(70, 0, 70, 100, kCyan);
  EXPECT_NE(surface.Seen(), before) << "the cursor does not show";
  surface.Line(70, 0, 70, 100, kCyan);
  EXPECT_EQ(surface.Seen(), before);
}

TEST_F(Picture, MovingTheCursorChangesOnlyItsOwnStrips) {
  surface.SetDrawMode(kXorPen);
  surface.Line(70, 10, 70, 90, kCyan);
  changes.clear();
  surface.Line(70, 10, 70, 90, kCyan);
  surface.Line(110, 10, 110, 90, kCyan);
  ASSERT_EQ(changes.size(), 2U);
  for (const QRect& change : changes) {
    EXPECT_LE(change.width(), 8);
  }
  EXPECT_TRUE(changes[0].contains(70, 50));
  EXPECT_TRUE(changes[1].contains(110, 50));
  EXPECT_NE(surface.Seen().pixel(110, 50), kWhite);
  EXPECT_EQ(surface.Seen().pixel(70, 50), kWhite);
}

TEST_F(Picture, TellsWhereItChanged) {
  surface.Line(30, 40, 50, 60);
  ASSERT_EQ(changes.size(), 1U);
  EXPECT_TRUE(changes[0].contains(QRect(QPoint(30, 40), QPoint(50, 60))));
  EXPECT_LT(changes[0].width(), 30);
  changes.clear();
  surface.Line(-500, 50, 900, 50);
  ASSERT_EQ(changes.size(), 1U);
  EXPECT_TRUE(QRect({0, 0}, kSize).contains(changes[0])) << "it reaches beyond the window";
}

TEST_F(Picture, IsAsFineAsTheScreenAndOfTheSameLayout) {
  const double widthAtOne = surface.TextWidth("Frequency in MHz");
  surface.SetSize(kSize, 2);
  EXPECT_EQ(surface.Seen().size(), QSize(400, 200));
  EXPECT_NEAR(surface.TextWidth("Frequency in MHz"), widthAtOne, 0.1 * widthAtOne);
  EXPECT_EQ(surface.HeightTwips(), 1500) << "twips are those of the window";
  surface.Line(20, 0, 20, 100);
  EXPECT_EQ(surface.Seen().pixel(40, 100), qRgb(0, 0, 0));
  EXPECT_EQ(surface.Seen().pixel(39, 100), qRgb(0, 0, 0)) << "a width of 1 is two device pixels";
  EXPECT_EQ(surface.Seen().pixel(42, 100), kWhite);
}

TEST_F(Picture, BlanksThatAreNotTransparentEraseWhatStoodThere) {
  surface.Line(0, 55, 200, 55);
  surface.MoveTo(50, 50);
  surface.SetFontTransparent(false);
  surface.Print("     ");
  EXPECT_EQ(surface.Seen().pixel(55, 55), kWhite);
  EXPECT_NE(surface.Seen().pixel(45, 55), kWhite);
}

TEST(PictureWithoutASize, TakesOperationsAndShowsNothing) {
  PictureSurface surface(SurfaceKind::kMainPicture);
  surface.Cls();
  surface.Scale(0, 0, 10, 10);
  surface.Line(0, 0, 10, 10);
  surface.Print("x");
  EXPECT_TRUE(surface.Seen().isNull());
}

}  // namespace
}  // namespace halvorne::testing
