#include <QScreen>
#include <QScrollBar>
#include <QToolButton>
#include <QWheelEvent>
#include <gmock/gmock.h>

#include "dialogs/dialog_driver.h"
#include "persistence/setup_state.h"
#include "report/windows/frm_halvorne_report.h"
#include "report_windows/report_design.h"
#include "shell/modal_script.h"

namespace halvorne::testing {
namespace {

class Preview : public ReportDesign {
 protected:
  static PreviewPicture& Picture(const DialogDriver& driver) {
    return *driver.Find<PreviewPicture>("Picture1");
  }
  static QImage Page(const DialogDriver& driver) {
    return Picture(driver).viewport()->grab().toImage().convertToFormat(QImage::Format_RGB32);
  }
  static void Turn(const DialogDriver& driver, int eighths, Qt::KeyboardModifiers keys = {}) {
    QWidget* const page = Picture(driver).viewport();
    const QPointF middle = page->rect().center();
    QWheelEvent event(middle, page->mapToGlobal(middle), {}, {0, eighths}, {}, keys,
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(page, &event);
  }

  CommonDialog printDialog{"CMDialog1"};
};

int DarkPixels(const QImage& image) {
  int dark = 0;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      dark += qGray(image.pixel(x, y)) < 128 ? 1 : 0;
    }
  }
  return dark;
}

TEST_F(Preview, ItsSizesFollowTheScreens) {
  frmHalvorneReport dialog(printDialog);
  const DialogDriver driver(dialog);
  EXPECT_EQ(dialog.windowTitle().toStdString(), "Halvorne Report:  Print Preview");
  const QRect screen = dialog.screen()->geometry();
  EXPECT_EQ(dialog.height(), qRound(0.815 * screen.height()));
  EXPECT_GE(dialog.width(), qRound(0.511 * screen.width()));
  EXPECT_NEAR(dialog.geometry().center().x(), screen.center().x(), 6);
  EXPECT_NEAR(dialog.geometry().center().y(), screen.center().y(), 6);
  const QRect picture = Picture(driver).geometry();
  EXPECT_EQ(picture.height(), dialog.height() - 40) << "600 twips";
  EXPECT_NEAR(picture.width(), picture.height() * 4695.0 / 6735, 1);
  EXPECT_EQ(picture.top(), 8) << "120 twips";
  EXPECT_EQ(picture.left(), (dialog.width() - picture.width()) / 2);
  const int left = picture.left() + picture.width() + 15;
  EXPECT_EQ(driver.Find<QWidget>("cmdPreviewPrint")->x(), left) << "225 twips";
  EXPECT_EQ(driver.Find<QWidget>("cmdPreviewCancel")->x(), left);
  EXPECT_EQ(driver.Find<QWidget>("fraDetails")->x(), left - 8) << "120 twips";
  for (const char* name : {"Picture1", "cmdPreviewPrint", "cmdPreviewCancel", "fraDetails"}) {
    EXPECT_TRUE(dialog.rect().contains(driver.Find<QWidget>(name)->geometry())) << name;
  }
}

TEST_F(Preview, KeepsItsSizeUntilItIsMaximised) {
  frmHalvorneReport dialog(printDialog);
  const DialogDriver driver(dialog);
  const QSize size = dialog.size();
  const QSize picture = Picture(driver).size();
  dialog.resize(size + QSize(50, 60));
  QApplication::processEvents();
  EXPECT_EQ(dialog.size(), size);
  dialog.showMaximized();
  QApplication::processEvents();
  EXPECT_GT(Picture(driver).height(), picture.height());
  EXPECT_EQ(Picture(driver).height(), dialog.height() - 40);
}

TEST_F(Preview, ShowsTheGraphAboveAndTheTextBelow) {
  frmHalvorneReport dialog(printDialog);
  const DialogDriver driver(dialog);
  const QImage page = Page(driver);
  EXPECT_EQ(page.pixel(0, 0), qRgb(255, 255, 255));
  // The upper left corner of the graph's box in the scale (-2.35, 12.65)-(12.35, -15.65).
  const QPoint corner(qRound(page.width() * 2.35 / 14.7), qRound(page.height() * 2.65 / 28.3));
  EXPECT_GT(DarkPixels(page.copy(QRect(corner - QPoint(3, 3), QSize(7, 7)))), 6);
  const int middle = qRound(page.height() * 5.44 / 10.88);
  EXPECT_GT(DarkPixels(page.copy(0, middle, page.width() / 3, 30)), 50) << "the first lines";
  EXPECT_EQ(shownMessages.Lines(), std::vector<std::string>{});
}

TEST_F(Preview, ADetailCountsAtOnceInBothWindows) {
  setup.ReportDetails = 2;
  frmHalvorneReport dialog(printDialog);
  const DialogDriver driver(dialog);
  EXPECT_TRUE(driver.Chosen("optDetails(1)"));
  const int partial = DarkPixels(Page(driver));
  driver.Click("optDetails(0)");
  EXPECT_EQ(setup.ReportDetails, 1);
  EXPECT_GT(DarkPixels(Page(driver)), partial);
  driver.Click("optDetails(1)");
  EXPECT_EQ(setup.ReportDetails, 2);
  EXPECT_EQ(DarkPixels(Page(driver)), partial);
}

TEST_F(Preview, AShortReportHasNoButtonsForPages) {
  frmHalvorneReport dialog(printDialog);
  const DialogDriver driver(dialog);
  EXPECT_EQ(Picture(driver).Pages(), 1);
  EXPECT_FALSE(driver.Visible("cmdPreviewNext"));
  EXPECT_FALSE(driver.Visible("cmdPreviewPrevious"));
  const QImage page = Page(driver);
  driver.Press(Qt::Key_PageDown);
  Turn(driver, -120);
  EXPECT_EQ(Page(driver), page);
}

TEST_F(Preview, ALongReportIsTurnedByKeysWheelAndButtons) {
  MakeLong();
  frmHalvorneReport dialog(printDialog);
  const DialogDriver driver(dialog);
  ASSERT_EQ(Picture(driver).Pages(), 2);
  EXPECT_TRUE(driver.Visible("cmdPreviewNext"));
  EXPECT_TRUE(driver.Enabled("cmdPreviewNext"));
  EXPECT_FALSE(driver.Enabled("cmdPreviewPrevious"));
  EXPECT_EQ(driver.Caption("lblPreviewPage"), "Page 1 of 2");
  const QImage first = Page(driver);
  driver.Press(Qt::Key_PageDown);
  const QImage second = Page(driver);
  EXPECT_NE(first, second);
  EXPECT_GT(DarkPixels(second), 100) << "what the first page has no room for";
  EXPECT_EQ(driver.Caption("lblPreviewPage"), "Page 2 of 2");
  driver.Press(Qt::Key_PageDown);
  EXPECT_EQ(Page(driver), second) << "the last one";
  driver.Press(Qt::Key_PageUp);
  EXPECT_EQ(Page(driver), first);
  Turn(driver, -120);
  EXPECT_EQ(Page(driver), second);
  Turn(driver, 120);
  EXPECT_EQ(Page(driver), first);
  QTest::mouseClick(driver.Find<QToolButton>("cmdPreviewNext"), Qt::LeftButton);
  EXPECT_EQ(Page(driver), second);
  QTest::mouseClick(driver.Find<QToolButton>("cmdPreviewPrevious"), Qt::LeftButton);
  EXPECT_EQ(Page(driver), first);
  Picture(driver).setFocus();
  QTest::keyClick(&Picture(driver), Qt::Key_PageDown);
  EXPECT_EQ(Page(driver), second) << "with the focus on the page too";
  for (const char* name : {"cmdPreviewNext", "cmdPreviewPrevious", "lblPreviewPage"}) {
    EXPECT_TRUE(dialog.rect().contains(driver.Find<QWidget>(name)->geometry())) << name;
  }
}

// The first page ends where the second begins, so that no line is lost between them.
TEST_F(Preview, TheSecondPageGoesOnWhereTheFirstEnds) {
  MakeLong();
  frmHalvorneReport dialog(printDialog);
  const DialogDriver driver(dialog);
  const QImage first = Page(driver);
  driver.Press(Qt::Key_PageDown);
  const QImage second = Page(driver);
  // Both show the strip from 0.44 above to 0.44 below the page's lower edge.
  const int strip = qRound(first.height() * 0.88 / 10.88) - 2;
  const int start = first.height() - strip - 1;
  const int shift = qRound(first.height() * 10 / 10.88);
  EXPECT_EQ(first.copy(0, start, first.width(), strip),
            second.copy(0, start - shift, second.width(), strip));
}

TEST_F(Preview, TheControlKeyAndTheWheelEnlarge) {
  MakeLong();
  frmHalvorneReport dialog(printDialog);
  const DialogDriver driver(dialog);
  const QRect place = Picture(driver).geometry();
  const QImage whole = Page(driver);
  Turn(driver, 120, Qt::ControlModifier);
  EXPECT_GT(Picture(driver).Enlargement(), 1);
  EXPECT_EQ(Picture(driver).geometry(), place) << "the picture stays as large as it is";
  EXPECT_NE(Page(driver), whole);
  QScrollBar* const bar = Picture(driver).verticalScrollBar();
  EXPECT_GT(bar->maximum(), 0);
  bar->setValue(bar->maximum() - 1);
  Turn(driver, -120);
  EXPECT_EQ(Picture(driver).Page(), 1) << "scrolls to the page's end first";
  EXPECT_EQ(bar->value(), bar->maximum());
  Turn(driver, -120);
  EXPECT_EQ(Picture(driver).Page(), 2);
  EXPECT_EQ(bar->value(), 0) << "from the next page's top on";
  Turn(driver, 120);
  EXPECT_EQ(Picture(driver).Page(), 1);
  for (int i = 0; i < 10; ++i) {
    Turn(driver, 120, Qt::ControlModifier);
  }
  EXPECT_EQ(Picture(driver).Enlargement(), 3);
  for (int i = 0; i < 10; ++i) {
    QTest::keyClick(&dialog, Qt::Key_Minus, Qt::ControlModifier);
  }
  EXPECT_EQ(Picture(driver).Enlargement(), 1);
  EXPECT_EQ(Page(driver), whole);
}

TEST_F(Preview, PrintAsksHowAndACancelledQuestionIsTold) {
  frmHalvorneReport dialog(printDialog);
  const DialogDriver driver(dialog);
  ModalScript script;
  script.ExpectForm("CMDialog1", [](QWidget& question) { question.close(); });
  driver.Click("cmdPreviewPrint");
  EXPECT_TRUE(script.Finished());
  EXPECT_EQ(shownMessages.Lines(),
            std::vector<std::string>{"ERROR in cmdPreviewPrint_Click of frmHalvorneReport|Error: "
                                     "32755. Cancel was selected."});
  EXPECT_TRUE(driver.IsOpen());
  driver.Click("cmdPreviewCancel");
  EXPECT_FALSE(driver.IsOpen());
}

TEST_F(Preview, TheTabKeyReachesEverything) {
  MakeLong();
  frmHalvorneReport dialog(printDialog);
  const DialogDriver driver(dialog);
  EXPECT_THAT(driver.TabOrder(),
              ::testing::UnorderedElementsAre("cmdPreviewPrint", "cmdPreviewCancel",
                                              "optDetails(0)", "cmdPreviewNext", "Picture1"));
}

}  // namespace
}  // namespace halvorne::testing
