#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <QScrollBar>

#include "engine/design_model.h"
#include "plot/plot_state.h"
#include "shell/graph_menu_input.h"

// What helps to read values off the graph: grid, band, reference mark, Go To.

namespace halvorne::testing {
namespace {

class ReadingInWindow : public GraphMenuInput {
 protected:
  ReadingInWindow() { StartWithDesign(); }

  QScrollBar* Bar() const { return Find<QScrollBar>("HScroll1"); }
  bool Marked(const char* entry) {
    OpenMenu();
    const bool checked = Action(entry)->isChecked();
    CloseMenu();
    return checked;
  }
  void PressControl(Qt::Key key) {
    BecomeActive();
    QTest::keyClick(main.get(), key, Qt::ControlModifier);
  }
  std::string Told() const { return Bar()->accessibleDescription().toStdString(); }

  /// Opens Go To by its key, types, and presses Return.
  void GoTo(const char* typed) {
    script.ExpectForm("frmGoTo", [typed](QWidget& window) {
      QTest::keyClicks(window.focusWidget(), QString::fromUtf8(typed));
      QTest::keyClick(window.focusWidget(), Qt::Key_Return);
    });
    PressControl(Qt::Key_G);
  }
};

TEST_F(ReadingInWindow, EverythingIsOffAtFirst) {
  for (const char* entry : {"mnuGraphGrid", "mnuGraphBand", "mnuGraphMark"}) {
    EXPECT_FALSE(Marked(entry)) << entry;
  }
}

TEST_F(ReadingInWindow, EachEntryIsDrawnAndLeavesNothingBehind) {
  ClickMenu("mnuView2WayItem(0)");
  const QImage plain = Screen();
  for (const char* entry : {"mnuGraphGrid", "mnuGraphBand"}) {
    ChooseFromGraphMenu(entry);
    EXPECT_TRUE(Marked(entry)) << entry;
    EXPECT_NE(Screen(), plain) << entry;
    EXPECT_EQ(Screen(), CorePicture()) << entry;
    ChooseFromGraphMenu(entry);
    EXPECT_FALSE(Marked(entry)) << entry;
    EXPECT_EQ(Screen(), plain) << entry;
  }
}

TEST_F(ReadingInWindow, AnEntryLeavesTheCursorWhereItIs) {
  Click("Cursor1");
  QTest::keyClick(Bar(), Qt::Key_Right);
  const std::string told = Told();
  const QImage plain = Screen();
  ChooseFromGraphMenu("mnuGraphGrid");
  EXPECT_TRUE(measured.CursorOn);
  EXPECT_EQ(Bar()->value(), 33);
  EXPECT_EQ(Told(), told);
  ChooseFromGraphMenu("mnuGraphGrid");
  EXPECT_EQ(Screen(), plain);
}

TEST_F(ReadingInWindow, TheyStayFromPlotToPlotAndInThePictureThatIsCopied) {
  ChooseFromGraphMenu("mnuGraphGrid");
  ChooseFromGraphMenu("mnuGraphBand");
  ClickMenu("mnuView2WayItem(2)");
  EXPECT_TRUE(Marked("mnuGraphBand"));
  ClickMenu("mnuEditCopyGraph");
  EXPECT_EQ(QApplication::clipboard()->image().convertToFormat(QImage::Format_RGB32), Screen());
}

TEST_F(ReadingInWindow, MovingTheCursorStillDrawsNothingElseAnew) {
  ClickMenu("mnuView2WayItem(0)");
  ChooseFromGraphMenu("mnuGraphGrid");
  ChooseFromGraphMenu("mnuGraphBand");
  Click("Cursor1");
  PressControl(Qt::Key_M);
  QTest::keyClick(Bar(), Qt::Key_Right);
  // A curve that was never drawn: were the plot drawn anew, the picture would show it.
  for (int i = 0; i <= design.NoFreqPts; ++i) {
    points.PlotData(i).Y1 = points.PlotData(i).Y1 / 2;
  }
  const QImage before = Screen();
  QTest::keyClick(Bar(), Qt::Key_Right);
  QTest::keyClick(Bar(), Qt::Key_Left);
  // All but the read-out below the box, which tells the changed values.
  const QRect graph(0, 0, before.width(), before.height() * 11 / 13);
  EXPECT_EQ(Screen().copy(graph), before.copy(graph));
}

// --- Reference mark ---

TEST_F(ReadingInWindow, TheMarkIsSetAndTakenAwayByItsKey) {
  const QImage plain = Screen();
  PressControl(Qt::Key_M);
  EXPECT_TRUE(measured.CursorOn) << "the cursor, which it marks, was turned on";
  EXPECT_TRUE(Marked("mnuGraphMark"));
  EXPECT_TRUE(Told().ends_with("at 5.000 MHz   \u0394 0.000 " + scale.LeftPrefix +
                               "Ohms / 0.000 Degrees, 0.000 MHz"))
      << Told();
  QTest::keyClick(Bar(), Qt::Key_Home);
  EXPECT_TRUE(Told().ends_with(" Degrees, -4.000 MHz")) << Told();
  PressControl(Qt::Key_M);
  EXPECT_FALSE(Marked("mnuGraphMark"));
  EXPECT_TRUE(Told().ends_with(" Degrees at 1.000 MHz")) << Told();
  Click("Cursor1");
  EXPECT_EQ(Screen(), plain);
}

TEST_F(ReadingInWindow, NothingOfALongReadOutStaysOnThePicture) {
  PressControl(Qt::Key_M);
  QTest::keyClick(Bar(), Qt::Key_Home);
  Click("Cursor1");
  const QImage cleared = Screen();
  EXPECT_EQ(cleared, CorePicture());
}

TEST_F(ReadingInWindow, TheMarkIsThereAgainWhenItsPlotsAre) {
  PressControl(Qt::Key_M);
  ClickMenu("mnuView2WayItem(2)");
  EXPECT_FALSE(Marked("mnuGraphMark")) << "a frequency on a time axis";
  ClickMenu("mnuViewTxTFPress");
  EXPECT_TRUE(Marked("mnuGraphMark"));
  EXPECT_TRUE(QAccessible::queryAccessibleInterface(Find<QWidget>("Picture1"))
                  ->text(QAccessible::Description)
                  .endsWith("Reference mark at 5.000 MHz."));
}

// --- Go To ---

TEST_F(ReadingInWindow, GoToPutsTheCursorOnTheNearestPoint) {
  GoTo("3.3");  // points are 0.125 MHz apart: 3.25 is the 18th interval's end
  EXPECT_TRUE(measured.CursorOn);
  EXPECT_EQ(Bar()->value(), 18);
  EXPECT_TRUE(Told().ends_with("at 3.250 MHz"));
  GoTo("9");
  EXPECT_EQ(Bar()->value(), 64);
  ClickMenu("mnuView2WayItem(2)");
  GoTo("0");
  EXPECT_EQ(Bar()->value(), 0);
}

TEST_F(ReadingInWindow, GoToAsksInTheUnitOfTheAxis) {
  const auto shown = [this](const std::string& name, const std::string& unit) {
    script.ExpectForm("frmGoTo", [=](QWidget& window) {
      const auto text = [&](const char* label) {
        return window.findChild<QLabel*>(label)->text().toStdString();
      };
      EXPECT_EQ(text("lblGoTo"), name);
      EXPECT_EQ(text("lblGoToUnit"), unit);
      EXPECT_TRUE(text("lblGoToLimits").ends_with(" " + unit));
      QTest::keyClick(&window, Qt::Key_Escape);
    });
    PressControl(Qt::Key_G);
  };
  shown("Frequency", "MHz");
  ClickMenu("mnuView2WayItem(2)");
  shown("Time", view.TimeUnit);
  EXPECT_FALSE(measured.CursorOn) << "Escape puts no cursor";
}

TEST_F(ReadingInWindow, GoToStartsWithWhereTheCursorIs) {
  GoTo("3.25");
  script.ExpectForm("frmGoTo", [](QWidget& window) {
    auto* const box = window.findChild<QLineEdit*>("txtGoTo");
    EXPECT_EQ(box->text(), "3.250");
    EXPECT_EQ(box->selectedText(), "3.250");
    EXPECT_TRUE(box->hasFocus());
    QTest::mouseClick(window.findChild<QPushButton*>("cmdGoToCancel"), Qt::LeftButton);
  });
  PressControl(Qt::Key_G);
  EXPECT_EQ(Bar()->value(), 18);
}

TEST_F(ReadingInWindow, GoToTellsWhatItCannotReach) {
  const struct { const char* typed; } wrong[] = {{"9.01"}, {"0.99"}, {"-3"}, {"high"}, {""}};
  for (const auto& [typed] : wrong) {
    script.ExpectForm("frmGoTo", [this, typed = typed](QWidget& window) {
      auto* const box = window.findChild<QLineEdit*>("txtGoTo");
      QTest::keyClicks(box, typed);
      script.Expect({.title = "Go To",
                     .text = "The graph shows 1.000 to 9.000 MHz. Enter a frequency within.",
                     .icon = QMessageBox::Warning});
      QTest::keyClick(box, Qt::Key_Return);
      EXPECT_TRUE(window.isVisible()) << typed;
      EXPECT_EQ(window.focusWidget(), box);
      QTest::keyClick(box, Qt::Key_Escape);
    });
    PressControl(Qt::Key_G);
    EXPECT_TRUE(script.Finished()) << typed;
    EXPECT_FALSE(measured.CursorOn);
  }
}

TEST_F(ReadingInWindow, GoToReachesTheLimitsAsTheyAreTold) {
  // 1.0004 MHz is told as 1.000, and what is told may be typed.
  design.FreqStart = 1.0004e6;
  view.FreqAuto = true;
  ClickMenu("mnuViewTxZ");
  GoTo("1.000");
  EXPECT_EQ(Bar()->value(), 0);
  EXPECT_TRUE(measured.CursorOn);
}

TEST_F(ReadingInWindow, KeysDoNothingWithoutADesign) {
  ClickMenu("mnuFileItem(0)");
  const QImage empty = Screen();
  PressControl(Qt::Key_G);
  PressControl(Qt::Key_M);
  EXPECT_EQ(Screen(), empty);
  EXPECT_FALSE(measured.CursorOn);
}

}  // namespace
}  // namespace halvorne::testing
