#include <QAction>
#include <QTest>
#include <QWheelEvent>

#include "engine/design_model.h"
#include "platform/qt/drawing_surface.h"
#include "plot/plot_state.h"
#include "shell/window_test.h"

namespace halvorne::testing {
namespace {

class CursorInWindow : public WindowTest {
 protected:
  CursorInWindow() { StartWithDesign(); }

  QScrollBar* Bar() const { return Find<QScrollBar>("HScroll1"); }

  /// First point of the highest and of the lowest value of the first trace.
  static int Highest() {
    int best = 0;
    for (int i = 1; i <= design.NoFreqPts; ++i) {
      best = points.PlotData(i).Y1 > points.PlotData(best).Y1 ? i : best;
    }
    return best;
  }
  static int Lowest() {
    int best = 0;
    for (int i = 1; i <= design.NoFreqPts; ++i) {
      best = points.PlotData(i).Y1 < points.PlotData(best).Y1 ? i : best;
    }
    return best;
  }

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
  const struct {
    Qt::Key key;
    int value;
  } steps[] = {{Qt::Key_Down, 33},          {Qt::Key_Up, 32},  {Qt::Key_PageUp, 32 - 64 / 20},
               {Qt::Key_PageDown, 32},      {Qt::Key_Home, 0}, {Qt::Key_Left, 0},
               {Qt::Key_PageDown, 64 / 20}, {Qt::Key_End, 64}, {Qt::Key_Right, 64}};
  for (const auto& [key, value] : steps) {
    QTest::keyClick(Bar(), key);
    EXPECT_EQ(Bar()->value(), value) << "after key " << std::hex << key;
  }
  EXPECT_FLOAT_EQ(measured.CursorX, 10);
}

TEST_F(CursorInWindow, MovesByTheArrowsOfItsBar) {
  Click("Cursor1");
  QTest::mouseClick(Bar(), Qt::LeftButton, {}, QPoint(Bar()->width() - 4, Bar()->height() / 2));
  EXPECT_EQ(Bar()->value(), 33);
  QTest::mouseClick(Bar(), Qt::LeftButton, {}, QPoint(4, Bar()->height() / 2));
  EXPECT_EQ(Bar()->value(), 32);
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
  Wheel(-1);
  EXPECT_GT(Bar()->value(), 33) << "the wheel turned towards the user leads on, as in any window";
  Wheel(1);
  EXPECT_EQ(Bar()->value(), 33);
}

TEST_F(CursorInWindow, MovesByArrowsWhileAButtonBesideItHasTheFocus) {
  Click("Cursor1");
  for (const char* name : {"Cursor1", "FindMax", "FindMin"}) {
    auto* const button = Find<QPushButton>(name);
    button->setFocus(Qt::TabFocusReason);
    QTest::keyClick(button, Qt::Key_Left);
    EXPECT_EQ(Bar()->value(), 31) << name;
    QTest::keyClick(button, Qt::Key_Right);
    EXPECT_EQ(Bar()->value(), 32) << name;
    EXPECT_TRUE(button->hasFocus()) << "the arrow led away from " << name;
  }
}

TEST_F(CursorInWindow, KeysOfTheTitleBoxStayThere) {
  Click("Cursor1");
  auto* const title = Find<QLineEdit>("txtEdit");
  title->setFocus();
  QTest::keyClick(title, Qt::Key_Left);
  QTest::keyClick(title, Qt::Key_Home);
  EXPECT_EQ(Bar()->value(), 32) << "the cursor moves while a title is typed";
}

TEST_F(CursorInWindow, LetsKeysPassThatMeanNothingToIt) {
  Click("Cursor1");
  QTest::keyClick(Bar(), Qt::Key_A);
  QTest::keyClick(main.get(), Qt::Key_Space);
  EXPECT_EQ(Bar()->value(), 32);
  EXPECT_TRUE(measured.CursorOn);
}

/// Counts what a widget is asked to paint.
class PaintCount : public QObject {
 public:
  explicit PaintCount(QWidget* watched) { watched->installEventFilter(this); }

  bool eventFilter(QObject* /*watched*/, QEvent* event) override {
    if (event->type() == QEvent::Paint) {
      ++paints;
      for (const QRect& part : static_cast<QPaintEvent*>(event)->region()) {
        area += part.width() * part.height();
      }
    }
    return false;
  }

  int paints = 0;
  int area = 0;
};

TEST_F(CursorInWindow, RedrawsNothingButItselfWhenItMoves) {
  Click("Cursor1");
  QTest::qWait(20);
  auto* const picture = Find<QWidget>("Picture1");
  // A curve that was never drawn: were the plot drawn anew, the picture would show it.
  for (int i = 0; i <= design.NoFreqPts; ++i) {
    points.PlotData(i).Y2 = points.PlotData(i).Y2 / 2 + 20;
  }
  const QImage middle = Screen();
  const PaintCount count(picture);
  QTest::keyClick(Bar(), Qt::Key_Right);
  EXPECT_TRUE(QTest::qWaitFor([&] { return count.paints > 0; }));
  EXPECT_LT(count.area, picture->width() * picture->height() / 5)
      << "the whole graph was repainted";
  QTest::keyClick(Bar(), Qt::Key_Left);
  const QImage back = Screen();
  // All but the read-out below the box, which tells the changed value.
  const QRect graph(0, 0, middle.width(), middle.height() * 11 / 13);
  EXPECT_EQ(back.copy(graph), middle.copy(graph)) << "the plot was drawn anew";
}

TEST_F(CursorInWindow, LeavesTheCaptionOfTheXAxisWholeAtEverySize) {
  auto* const picture = Find<QWidget>("Picture1");
  for (int height = main->minimumHeight(); height < 2200; height += 37) {
    main->resize(main->width(), height);
    const QImage plain = Screen();
    Click("Cursor1");
    const QImage read = Screen();
    Click("Cursor1");
    // The caption's letters: 13 units are the picture's height, the caption's top is 0.2 below the
    // box, whose bottom is 2 above the picture's.
    const QFontMetrics letters(PictureFont());
    const int top = qRound(picture->height() * (11 + 0.2) / 13);
    const int width = letters.horizontalAdvance(QStringLiteral("Frequency in MHz"));
    const QRect caption(picture->width() / 2 - width / 2, top, width, letters.height());
    const QRect ownLetters = caption.adjusted(0, 1, 0, -1) & picture->rect();
    EXPECT_EQ(read.copy(ownLetters), plain.copy(ownLetters)) << picture->height();
  }
}

TEST_F(CursorInWindow, FindsTheExtremesOfTheFirstTrace) {
  ClickMenu("mnuViewTxTFPress");
  Click("FindMax");
  EXPECT_TRUE(measured.CursorOn) << "Find Max turns the cursor on";
  EXPECT_EQ(Bar()->value(), Highest());
  Click("FindMin");
  EXPECT_EQ(Bar()->value(), Lowest());
  EXPECT_TRUE(Bar()->hasFocus()) << "the click took the focus from the bar";
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
  // The toolkit shows the button pressed for a moment before it counts.
  EXPECT_TRUE(QTest::qWaitFor([] { return measured.CursorOn; }));
  QTest::keyClick(main.get(), Qt::Key_N, Qt::AltModifier);
  const int lowest = Lowest();
  EXPECT_TRUE(QTest::qWaitFor([&] { return Bar()->value() == lowest; }));
}

}  // namespace
}  // namespace halvorne::testing
