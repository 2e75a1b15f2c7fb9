#include <QAction>
#include <QTest>
#include <QWheelEvent>

#include "engine/design_model.h"
#include "plot/plot_state.h"
#include "shell/window_test.h"

namespace halvorne::testing {
namespace {

class CursorInWindow : public WindowTest {
 protected:
  CursorInWindow() { StartWithDesign(); }

  QScrollBar* Bar() const { return Find<QScrollBar>("HScroll1"); }

  void Wheel(int notches) {
    auto* const picture = Find<QWidget>("Picture1");
    const QPoint place = picture->rect().center();
    QWheelEvent event(place, picture->mapToGlobal(place), {}, {0, 120 * notches}, Qt::NoButton, {},
                      Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(picture, &event);
  }
};

TEST_F(CursorInWindow, StartsInTheMiddleAndTakesTheFocus) {
  EXPECT_FALSE(Bar()->isEnabled());
  Click("Cursor1");
  EXPECT_TRUE(measured.CursorOn);
  EXPECT_EQ(Bar()->minimum(), 0);
  EXPECT_EQ(Bar()->maximum(), 64);
  EXPECT_EQ(Bar()->value(), 32);
  EXPECT_TRUE(Bar()->isEnabled());
  EXPECT_TRUE(Bar()->hasFocus());
}

TEST_F(CursorInWindow, LeavesThePictureAsItWasWhenItGoes) {
  const QImage before = Screen();
  Click("Cursor1");
  EXPECT_NE(Screen(), before);
  Click("Cursor1");
  EXPECT_EQ(Screen(), before);
  EXPECT_FALSE(Bar()->isEnabled());
}

TEST_F(CursorInWindow, MovesByKeysOfItsBar) {
  Click("Cursor1");
  const QImage middle = Screen();
  QTest::keyClick(Bar(), Qt::Key_Right);
  EXPECT_EQ(Bar()->value(), 33);
  EXPECT_NE(Screen(), middle);
  QTest::keyClick(Bar(), Qt::Key_Left);
  EXPECT_EQ(Bar()->value(), 32);
  EXPECT_EQ(Screen(), middle) << "the line that was left is still there";
  QTest::keyClick(Bar(), Qt::Key_PageUp);
  EXPECT_EQ(std::abs(Bar()->value() - 32), 64 / 20);
  QTest::keyClick(Bar(), Qt::Key_End);
  EXPECT_EQ(Bar()->value(), 64);
  EXPECT_FLOAT_EQ(measured.CursorX, 10);
}

TEST_F(CursorInWindow, MovesByArrowsAndWheelOnTheGraph) {
  auto* const picture = Find<QWidget>("Picture1");
  picture->setFocus();
  QTest::keyClick(picture, Qt::Key_Right);
  Wheel(1);
  EXPECT_EQ(Bar()->value(), 0) << "it moved while it was off";
  Click("Cursor1");
  picture->setFocus();
  QTest::keyClick(picture, Qt::Key_Right);
  EXPECT_EQ(Bar()->value(), 33);
  Wheel(1);
  const int up = Bar()->value();
  EXPECT_NE(up, 33);
  Wheel(-1);
  EXPECT_EQ(Bar()->value(), 33);
}

TEST_F(CursorInWindow, RedrawsNothingButItselfWhenItMoves) {
  Click("Cursor1");
  QTest::qWait(20);
  QRegion painted;
  class Watch : public QObject {
   public:
    explicit Watch(QRegion& region) : region_(region) {}
    bool eventFilter(QObject* /*watched*/, QEvent* event) override {
      if (event->type() == QEvent::Paint) {
        region_ += static_cast<QPaintEvent*>(event)->region();
      }
      return false;
    }

   private:
    QRegion& region_;
  } watch(painted);
  auto* const picture = Find<QWidget>("Picture1");
  picture->installEventFilter(&watch);
  QTest::keyClick(Bar(), Qt::Key_Right);
  QTest::qWait(50);
  int area = 0;
  for (const QRect& rectangle : painted) {
    area += rectangle.width() * rectangle.height();
  }
  EXPECT_GT(area, 0);
  EXPECT_LT(area, picture->width() * picture->height() / 5) << "the whole graph was repainted";
}

TEST_F(CursorInWindow, FindsTheExtremesOfTheFirstTrace) {
  ClickMenu("mnuViewTxTFPress");
  Click("FindMax");
  EXPECT_TRUE(measured.CursorOn) << "Find Max turns the cursor on";
  int highest = 0;
  int lowest = 0;
  for (int i = 1; i <= design.NoFreqPts; ++i) {
    highest = points.PlotData(i).Y1 > points.PlotData(highest).Y1 ? i : highest;
    lowest = points.PlotData(i).Y1 < points.PlotData(lowest).Y1 ? i : lowest;
  }
  EXPECT_EQ(Bar()->value(), highest);
  Click("FindMin");
  EXPECT_EQ(Bar()->value(), lowest);
}

TEST_F(CursorInWindow, IsOffAfterAnyRedraw) {
  Click("Cursor1");
  ChooseForm(2);
  EXPECT_FALSE(measured.CursorOn);
  EXPECT_EQ(Screen(), CorePicture()) << "the line stays on the new picture";
  Click("Cursor1");
  main->resize(main->width() + 30, main->height());
  EXPECT_FALSE(measured.CursorOn);
  EXPECT_EQ(Screen(), CorePicture());
  Click("Cursor1");
  ClickMenu("mnuFileItem(0)");
  EXPECT_FALSE(measured.CursorOn);
  EXPECT_FALSE(Bar()->isEnabled());
}

TEST_F(CursorInWindow, AnswersToItsLetter) {
  QTest::keyClick(main.get(), Qt::Key_C, Qt::AltModifier);
  EXPECT_TRUE(measured.CursorOn);
}

}  // namespace
}  // namespace halvorne::testing
