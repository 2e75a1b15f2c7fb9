#include "shell/graph_pointer.h"

#include <QAction>
#include <QApplication>
#include <QMenu>
#include <QMouseEvent>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <QWindow>

#include "engine/design_model.h"
#include "plot/plot_state.h"
#include "shell/window_test.h"

// The left button and the keys in the graph.

namespace halvorne::testing {
namespace {

constexpr int kDoubleClick = 60;  // ms

/// The design of 64 intervals from 1 to 9 MHz: a point every 0.125 MHz, six and a quarter in a box
/// unit and a bit.
class GraphPointerTest : public WindowTest {
 protected:
  GraphPointerTest() : interval_(QApplication::doubleClickInterval()) {
    QApplication::setDoubleClickInterval(kDoubleClick);
    StartWithDesign();
  }
  ~GraphPointerTest() override { QApplication::setDoubleClickInterval(interval_); }

  QWidget* Graph() const { return Find<QWidget>("Picture1"); }
  QScrollBar* Bar() const { return Find<QScrollBar>("HScroll1"); }
  QRubberBand* Band() const { return Find<QRubberBand>("bandZoom"); }

  /// Pixel of a place in the box of a single graph: the picture spans -2 to 12 and 11 to -2.
  QPoint Pixel(double x, double y) const {
    return {qRound(Graph()->width() * (x + 2) / 14), qRound(Graph()->height() * (11 - y) / 13)};
  }
  /// The same in the lower graph of an excitation plot, whose picture spans 20.37 to -3.7.
  QPoint ResponsePixel(double x, double y) const {
    return {qRound(Graph()->width() * (x + 2) / 14),
            qRound(Graph()->height() * (20.37 - y) / 24.07)};
  }

  void Send(QEvent::Type type, QPoint at, Qt::MouseButton button, Qt::MouseButtons held) {
    QMouseEvent event(type, at, Graph()->mapToGlobal(at), button, held, Qt::NoModifier);
    QCoreApplication::sendEvent(Graph(), &event);
  }
  void Press(QPoint at) { Send(QEvent::MouseButtonPress, at, Qt::LeftButton, Qt::LeftButton); }
  void Move(QPoint to) { Send(QEvent::MouseMove, to, Qt::NoButton, Qt::LeftButton); }
  void Release(QPoint at) { Send(QEvent::MouseButtonRelease, at, Qt::LeftButton, Qt::NoButton); }
  void Drag(QPoint from, QPoint to) {
    Press(from);
    Move((from + to) / 2);
    Move(to);
    Release(to);
  }
  static void WaitForClick() { QTest::qWait(3 * kDoubleClick); }
  void ClickAt(QPoint at) {
    Press(at);
    Release(at);
    WaitForClick();
  }
  void Key(Qt::Key key, Qt::KeyboardModifiers held = {}) { QTest::keyClick(Graph(), key, held); }

 private:
  int interval_;
};

// --- Click ---

TEST_F(GraphPointerTest, AClickPutsTheCursorOnTheNearestPoint) {
  Click("Cursor1");
  ClickAt(Pixel(2.5, 5));  // a quarter of 64 intervals
  EXPECT_EQ(Bar()->value(), 16);
  ClickAt(Pixel(9.95, 0.2));
  EXPECT_EQ(Bar()->value(), 64);
  ClickAt(Pixel(2.5 + 10.0 / 64 * 0.4, 9));
  EXPECT_EQ(Bar()->value(), 16) << "not the nearest";
  EXPECT_FLOAT_EQ(measured.CursorX, 2.5F);
}

TEST_F(GraphPointerTest, AClickCountsBeforeTheMenuThatFollowsItAtOnce) {
  Click("Cursor1");
  Press(Pixel(2.5, 5));
  Release(Pixel(2.5, 5));
  Send(QEvent::MouseButtonPress, Pixel(6, 7), Qt::RightButton, Qt::RightButton);
  EXPECT_EQ(Bar()->value(), 16) << "what is marked now is where the click was";
}

TEST_F(GraphPointerTest, AClickDoesNothingWithoutTheCursor) {
  const QImage before = Screen();
  ClickAt(Pixel(2.5, 5));
  EXPECT_FALSE(measured.CursorOn);
  EXPECT_EQ(Screen(), before);
}

TEST_F(GraphPointerTest, AClickBesideTheBoxDoesNothing) {
  Click("Cursor1");
  ClickAt(Pixel(11, 5));
  ClickAt(Pixel(5, -1));
  ClickAt(Pixel(3, 10.4));
  EXPECT_EQ(Bar()->value(), 32);
}

TEST_F(GraphPointerTest, AClickCountsInTheWindowShown) {
  Drag(Pixel(2.5, 3), Pixel(7.5, 3));  // points 16 to 48
  ASSERT_EQ(scale.FirstPlotPt, 16);
  ASSERT_EQ(scale.LastPlotPt, 48);
  Click("Cursor1");
  ClickAt(Pixel(2.5, 5));
  EXPECT_EQ(Bar()->value(), 24);
}

TEST_F(GraphPointerTest, AClickInTheResponseOfAnExcitationPlotPutsTheCursor) {
  ClickMenu("mnuView2WayItem(3)");
  Click("Cursor1");
  ClickAt(ResponsePixel(2.5, 5));
  EXPECT_EQ(Bar()->value(), scale.FirstPlotPt + (scale.LastPlotPt - scale.FirstPlotPt) / 4);
  const int there = Bar()->value();
  ClickAt({Graph()->width() / 2 - 100, Graph()->height() / 5});  // the impulse above it
  EXPECT_EQ(Bar()->value(), there);
}

TEST_F(GraphPointerTest, ADoubleClickOpensTheScalesAndNeverMovesTheCursor) {
  Click("Cursor1");
  const QSignalSpy moves(Bar(), &QScrollBar::valueChanged);
  const QPoint at = Pixel(2.5, 5);
  int opened = 0;
  script.ExpectForm("frmPlotScaleEntry", [&](QWidget& window) {
    ++opened;
    WaitForClick();  // were the first click still waiting, it would count now
    window.close();
  });
  Press(at);
  Release(at);
  Send(QEvent::MouseButtonDblClick, at, Qt::LeftButton, Qt::LeftButton);
  Release(at);
  WaitForClick();
  EXPECT_EQ(opened, 1);
  EXPECT_TRUE(moves.isEmpty());
  EXPECT_EQ(Bar()->value(), 32);
}

TEST_F(GraphPointerTest, AMoveBehindADoubleClickDrawsNoRectangle) {
  const QPoint at = Pixel(2.5, 5);
  script.ExpectForm("frmPlotScaleEntry", [](QWidget& window) { window.close(); });
  Press(at);
  Release(at);
  Send(QEvent::MouseButtonDblClick, at, Qt::LeftButton, Qt::LeftButton);
  Move(Pixel(8, 8));
  EXPECT_FALSE(Band()->isVisible());
  Release(Pixel(8, 8));
  EXPECT_TRUE(view.AmplAuto);
  EXPECT_TRUE(view.FreqAuto);
}

// --- Drag ---

TEST_F(GraphPointerTest, ARectangleBecomesTheScale) {
  const float top = scale.LeftMax;
  Drag(Pixel(2.5, 2), Pixel(7.5, 8));
  EXPECT_FALSE(view.AmplAuto);
  EXPECT_FALSE(view.FreqAuto);
  EXPECT_EQ(scale.FirstPlotPt, 16);
  EXPECT_EQ(scale.LastPlotPt, 48);
  EXPECT_FLOAT_EQ(scale.PlotFreqLower, 3e6F);
  EXPECT_FLOAT_EQ(scale.PlotFreqUpper, 7e6F);
  const float pixel = top * 13 / 10 / static_cast<float>(Graph()->height());
  EXPECT_NEAR(scale.LeftMax, 0.8F * top, pixel);
  EXPECT_NEAR(scale.LeftMin, 0.2F * top, pixel);
  EXPECT_NEAR(scale.RightMax, 54, 0.5);  // of -90 to 90
  EXPECT_NEAR(scale.RightMin, -54, 0.5);
  EXPECT_EQ(Screen(), CorePicture()) << "the graph was not drawn anew";
}

TEST_F(GraphPointerTest, TheCornersOfARectangleAreDrawnInAnyOrder) {
  Drag(Pixel(7.5, 8), Pixel(2.5, 2));
  EXPECT_EQ(scale.FirstPlotPt, 16);
  EXPECT_EQ(scale.LastPlotPt, 48);
  EXPECT_LT(scale.LeftMin, scale.LeftMax);
}

TEST_F(GraphPointerTest, AFlatRectangleLeavesTheAmplitudeAutomatic) {
  Drag(Pixel(2.5, 5), Pixel(7.5, 5));
  EXPECT_TRUE(view.AmplAuto);
  EXPECT_FALSE(view.FreqAuto);
  EXPECT_EQ(scale.FirstPlotPt, 16);
}

TEST_F(GraphPointerTest, ANarrowRectangleLeavesTheWindowAutomatic) {
  Drag(Pixel(5, 2), Pixel(5, 8));
  EXPECT_FALSE(view.AmplAuto);
  EXPECT_TRUE(view.FreqAuto);
  EXPECT_EQ(scale.LastPlotPt, 64);
}

TEST_F(GraphPointerTest, ATinyDragIsAClick) {
  Click("Cursor1");
  const QPoint at = Pixel(2.5, 5);
  Press(at);
  Move(at + QPoint(QApplication::startDragDistance() - 1, 2));
  EXPECT_FALSE(Band()->isVisible());
  Release(at + QPoint(1, 1));
  WaitForClick();
  EXPECT_EQ(Bar()->value(), 16);
  EXPECT_TRUE(view.FreqAuto);
  EXPECT_TRUE(view.AmplAuto);
}

TEST_F(GraphPointerTest, TheRectangleIsDrawnOverTheGraphWhichStaysAsItIs) {
  const QImage before = Screen();
  Press(Pixel(2, 2));
  Move(Pixel(6, 7));
  EXPECT_TRUE(Band()->isVisible());
  EXPECT_EQ(Band()->geometry(), QRect(Pixel(2, 7), Pixel(6, 2)));
  EXPECT_TRUE(Caption("lblZoom").starts_with("2.625 to 5.750 MHz, ")) << Caption("lblZoom");
  EXPECT_NE(Screen(), before);
  Key(Qt::Key_Escape);
  EXPECT_FALSE(Band()->isVisible());
  EXPECT_EQ(Screen(), before);
  Move(Pixel(8, 8));
  Release(Pixel(8, 8));
  WaitForClick();
  EXPECT_TRUE(view.AmplAuto) << "a rectangle that was dropped";
  EXPECT_TRUE(view.FreqAuto);
  EXPECT_EQ(Screen(), before);
}

TEST_F(GraphPointerTest, TheOtherButtonDropsTheRectangleToo) {
  Press(Pixel(2, 2));
  Move(Pixel(6, 7));
  Send(QEvent::MouseButtonPress, Pixel(6, 7), Qt::RightButton, Qt::LeftButton | Qt::RightButton);
  EXPECT_FALSE(Band()->isVisible());
  Release(Pixel(6, 7));
  EXPECT_TRUE(view.AmplAuto);
}

TEST_F(GraphPointerTest, TheButtonThatDropsTheRectangleOpensNoMenu) {
  const auto inWindow = [this](QPoint at) { return Graph()->mapTo(main.get(), at); };
  QWindow* const window = main->windowHandle();
  QMenu* const menu = Find<QMenu>("mnuGraph");
  const auto press = [&](Qt::MouseButton button, QPoint at) {
    QTest::mousePress(window, button, {}, inWindow(at));
    QCoreApplication::processEvents();
  };
  press(Qt::LeftButton, Pixel(2, 2));
  QTest::mouseMove(window, inWindow(Pixel(6, 7)));
  QCoreApplication::processEvents();
  ASSERT_TRUE(Band()->isVisible());
  press(Qt::RightButton, Pixel(6, 7));
  EXPECT_FALSE(Band()->isVisible());
  EXPECT_FALSE(menu->isVisible());
  QTest::mouseRelease(window, Qt::RightButton, {}, inWindow(Pixel(6, 7)));
  QTest::mouseRelease(window, Qt::LeftButton, {}, inWindow(Pixel(6, 7)));
  press(Qt::RightButton, Pixel(6, 7));
  EXPECT_TRUE(menu->isVisible()) << "the next one does";
  menu->close();
  QTest::mouseRelease(window, Qt::RightButton, {}, inWindow(Pixel(6, 7)));
}

TEST_F(GraphPointerTest, ARectangleThatLeavesTheBoxEndsAtItsEdge) {
  Drag(Pixel(5, 5), Pixel(13, 12));
  EXPECT_EQ(scale.FirstPlotPt, 32);
  EXPECT_EQ(scale.LastPlotPt, 64);
  EXPECT_FLOAT_EQ(scale.RightMax, 90);
}

TEST_F(GraphPointerTest, ADragFromFarBesideTheBoxDrawsNothing) {
  Press(Pixel(11.5, 5));
  Move(Pixel(5, 8));
  EXPECT_FALSE(Band()->isVisible());
  Release(Pixel(5, 8));
  EXPECT_TRUE(view.AmplAuto);
}

TEST_F(GraphPointerTest, ARectangleInATimePlotSetsTheTimeWindow) {
  ClickMenu("mnuView2WayItem(2)");
  const std::int32_t last = scale.LastPlotPt;  // 512 samples are half of the record
  Drag(Pixel(2.5, 2), Pixel(5, 8));
  EXPECT_FALSE(view.TimeAuto);
  EXPECT_TRUE(view.FreqAuto);
  EXPECT_NEAR(scale.FirstPlotPt, last * 0.25, last * 0.002 + 0.5);
  EXPECT_NEAR(scale.LastPlotPt, last * 0.5, last * 0.002 + 0.5);
  EXPECT_DOUBLE_EQ(scale.TimeLower, scale.FirstPlotPt / design.SampleRateHz);
}

TEST_F(GraphPointerTest, NothingIsDrawnWithoutADesign) {
  ClickMenu("mnuFileItem(0)");
  const QImage empty = Screen();
  Drag(Pixel(2, 2), Pixel(6, 7));
  ClickAt(Pixel(2, 2));
  Action("mnuGraphZoom")->trigger();
  EXPECT_FALSE(Band()->isVisible());
  EXPECT_EQ(Screen(), empty);
}

// --- Keys ---

TEST_F(GraphPointerTest, TheKeysDrawARectangleToo) {
  Action("mnuGraphZoom")->trigger();
  EXPECT_TRUE(Band()->isVisible());
  EXPECT_TRUE(Graph()->hasFocus());
  EXPECT_EQ(Band()->geometry(), QRect(Pixel(2.5, 7.5), Pixel(7.5, 2.5)));
  Key(Qt::Key_Left);                        // 2 to 7
  Key(Qt::Key_Up);                          // 3 to 8
  Key(Qt::Key_Right, Qt::ShiftModifier);    // 1.5 to 7.5
  Key(Qt::Key_Down, Qt::ShiftModifier);     // 3.5 to 7.5
  Key(Qt::Key_Right, Qt::ControlModifier);  // 1.6 to 7.6
  EXPECT_EQ(Band()->geometry(), QRect(Pixel(1.6, 7.5), Pixel(7.6, 3.5)));
  Key(Qt::Key_Return);
  EXPECT_FALSE(Band()->isVisible());
  EXPECT_EQ(scale.FirstPlotPt, 10);  // 10.24
  EXPECT_EQ(scale.LastPlotPt, 49);   // 48.64
  EXPECT_FLOAT_EQ(scale.RightMax, 45);
  EXPECT_FLOAT_EQ(scale.RightMin, -27);
}

TEST_F(GraphPointerTest, TheRectangleOfTheKeysStaysInTheBoxAndTakesItWhole) {
  Action("mnuGraphZoom")->trigger();
  for (int i = 0; i < 12; ++i) {
    Key(Qt::Key_Right);
  }
  EXPECT_EQ(Band()->geometry(), QRect(Pixel(5, 7.5), Pixel(10, 2.5)));
  for (int i = 0; i < 30; ++i) {
    Key(Qt::Key_Up, Qt::ShiftModifier);
    Key(Qt::Key_Left, Qt::ShiftModifier);
  }
  EXPECT_EQ(Band()->y(), Pixel(0, 10).y());
  EXPECT_GT(Band()->width(), 0);
  Key(Qt::Key_Enter);
  EXPECT_TRUE(view.AmplAuto) << "as high as the box: the amplitude stays as it is";
  EXPECT_FALSE(view.FreqAuto);
  EXPECT_GT(scale.LastPlotPt, scale.FirstPlotPt);
}

TEST_F(GraphPointerTest, EscapeDropsTheRectangleOfTheKeysAndSoDoesLeavingIt) {
  const QImage before = Screen();
  const QString told = Graph()->accessibleDescription();
  Action("mnuGraphZoom")->trigger();
  EXPECT_TRUE(Graph()->accessibleDescription().startsWith("Rectangle 3.000 to 7.000 MHz, "));
  Key(Qt::Key_Escape);
  EXPECT_EQ(Screen(), before);
  EXPECT_EQ(Graph()->accessibleDescription(), told);
  Key(Qt::Key_Return);
  EXPECT_TRUE(view.AmplAuto);
  Action("mnuGraphZoom")->trigger();
  Find<QWidget>("PlotType")->setFocus();
  EXPECT_FALSE(Band()->isVisible());
}

TEST_F(GraphPointerTest, TheArrowsMoveTheRectangleAndNotTheCursor) {
  Click("Cursor1");
  Action("mnuGraphZoom")->trigger();
  Key(Qt::Key_Left);
  EXPECT_EQ(Bar()->value(), 32);
  Key(Qt::Key_Escape);
  Key(Qt::Key_Left);
  EXPECT_EQ(Bar()->value(), 31);
}

// --- Automatic Scales ---

TEST_F(GraphPointerTest, AutomaticScalesUndoARectangle) {
  const QImage whole = Screen();
  Drag(Pixel(2.5, 2), Pixel(7.5, 8));
  ASSERT_NE(Screen(), whole);
  Key(Qt::Key_Menu);
  QMenu* const menu = Find<QMenu>("mnuGraph");
  EXPECT_TRUE(Action("mnuGraphAutomatic")->isEnabled());
  QTest::mouseClick(menu, Qt::LeftButton, {},
                    menu->actionGeometry(Action("mnuGraphAutomatic")).center());
  EXPECT_EQ(Screen(), whole);
  EXPECT_TRUE(view.AmplAuto);
  EXPECT_TRUE(view.FreqAuto);
  Key(Qt::Key_Menu);
  EXPECT_FALSE(Action("mnuGraphAutomatic")->isEnabled()) << "there is nothing to undo";
  menu->close();
}

}  // namespace
}  // namespace halvorne::testing
