#include <QComboBox>
#include <QDialog>
#include <QDir>
#include <QElapsedTimer>
#include <QSlider>
#include <QTest>

#include "engine/design_model.h"
#include "persistence/design_file.h"
#include "plot/held_designs.h"
#include "plot/plot_state.h"
#include "shell/accessible_names.h"
#include "shell/dark_palette.h"
#include "shell/layout_check.h"
#include "shell/window_test.h"

namespace halvorne::testing {
namespace {

class FrmTuneTest : public WindowTest {
 protected:
  void Open() {
    if (main == nullptr) {
      StartWithDesign();
    }
    Action("mnuGraphTune")->trigger();
    tune = main->findChild<QDialog*>(QStringLiteral("frmTune"));
    ASSERT_NE(tune, nullptr);
    ASSERT_TRUE(QTest::qWaitForWindowActive(tune));
  }
  bool IsOpen() const {
    return std::ranges::any_of(QApplication::topLevelWidgets(), [](const QWidget* window) {
      return window->objectName() == QStringLiteral("frmTune") && window->isVisible();
    });
  }

  template <class Control>
  Control* In(const char* name) const {
    return tune->findChild<Control*>(QString::fromLatin1(name));
  }
  /// Chooses a number by typing the begin of its words.
  void Pick(int row, const char* words) {
    auto* const box = In<QComboBox>(("cboNumber(" + std::to_string(row) + ")").c_str());
    box->setFocus();
    const int index = box->findText(QString::fromLatin1(words), Qt::MatchStartsWith);
    ASSERT_GE(index, 0) << words;
    QTest::keyClick(box, Qt::Key_Home);
    for (int i = 0; i < index; ++i) {
      QTest::keyClick(box, Qt::Key_Down);
    }
    ASSERT_EQ(box->currentIndex(), index);
  }
  void Type(const char* name, const char* text) {
    auto* const box = In<QLineEdit>(name);
    box->setFocus();
    box->selectAll();
    QTest::keyClicks(box, QString::fromLatin1(text));
  }
  void Follow() { QCoreApplication::processEvents(); }
  std::string Text(const char* name) const { return In<QLineEdit>(name)->text().toStdString(); }

  QDialog* tune = nullptr;
};

TEST_F(FrmTuneTest, OpensOnTheThicknessOfTheFirstPlateWithHalfOfItEitherSide) {
  Open();
  EXPECT_FALSE(tune->isModal());
  EXPECT_EQ(In<QComboBox>("cboNumber(0)")->currentText(),
            QStringLiteral("Face plate 1: thickness, mm"));
  EXPECT_EQ(Text("txtFrom(0)"), "0.06");
  EXPECT_EQ(Text("txtTo(0)"), "0.18");
  EXPECT_EQ(Text("txtNumber(0)"), "0.12");
  EXPECT_EQ(In<QSlider>("sldNumber(0)")->value(), 500);
  EXPECT_FALSE(In<QWidget>("sldNumber(1)")->isEnabled());
  EXPECT_EQ(design.FrontThick(1), 0.00012) << "nothing has been moved";
}

TEST_F(FrmTuneTest, ThePlotFollowsTheSlider) {
  StartWithDesign();
  ClickMenu("mnuView2WayItem(0)");
  Open();
  const QImage before = Screen();
  const std::string width = Cell("FlexgrdCFBW", 3, 2);
  auto* const slider = In<QSlider>("sldNumber(0)");
  slider->setFocus();
  QTest::keyClick(slider, Qt::Key_End);
  Follow();
  EXPECT_DOUBLE_EQ(design.FrontThick(1), 0.00018);
  EXPECT_EQ(Text("txtNumber(0)"), "0.18");
  EXPECT_NE(Screen(), before);
  EXPECT_NE(Cell("FlexgrdCFBW", 3, 2), width);
  EXPECT_EQ(Find<QComboBox>("PlotType")->currentIndex(), setup.LastPlotListIndex);
}

TEST_F(FrmTuneTest, OfManyMovesOnlyTheNewestIsCalculated) {
  Open();
  auto* const slider = In<QSlider>("sldNumber(0)");
  slider->setFocus();
  const QPoint middle = slider->rect().center();
  QTest::mousePress(slider, Qt::LeftButton, {}, middle);
  for (int x = 1; x < 40; ++x) {
    QMouseEvent move(QEvent::MouseMove, middle + QPoint(x, 0),
                     slider->mapToGlobal(middle + QPoint(x, 0)), Qt::NoButton, Qt::LeftButton, {});
    QApplication::sendEvent(slider, &move);
  }
  EXPECT_EQ(design.FrontThick(1), 0.00012) << "nothing is calculated while moves are waiting";
  QTest::mouseRelease(slider, Qt::LeftButton, {}, middle + QPoint(39, 0));
  Follow();
  EXPECT_NEAR(design.FrontThick(1) * 1000, In<QLineEdit>("txtNumber(0)")->text().toDouble(), 1e-9);
  EXPECT_GT(design.FrontThick(1), 0.00012);
}

TEST_F(FrmTuneTest, ATypedNumberIsTakenWithinItsBoundsEvenOutsideOfTheRange) {
  Open();
  Type("txtNumber(0)", "0.3");
  Follow();
  EXPECT_DOUBLE_EQ(design.FrontThick(1), 0.0003);
  EXPECT_EQ(In<QSlider>("sldNumber(0)")->value(), 1000);
  Type("txtNumber(0)", "-1");
  Follow();
  EXPECT_EQ(design.FrontThick(1), 0);
  QTest::keyClick(In<QLineEdit>("txtNumber(0)"), Qt::Key_Return);
  EXPECT_EQ(Text("txtNumber(0)"), "0");
  Type("txtNumber(0)", "no number");
  Follow();
  EXPECT_EQ(design.FrontThick(1), 0) << "as in every box of the program";
  EXPECT_TRUE(tune->isVisible()) << "Return ends the typing and presses nothing";
}

TEST_F(FrmTuneTest, TheRangeCanBeEdited) {
  Open();
  Type("txtFrom(0)", "1");
  Type("txtTo(0)", "0.1");
  auto* const slider = In<QSlider>("sldNumber(0)");
  slider->setFocus();
  QTest::keyClick(slider, Qt::Key_End);
  Follow();
  EXPECT_DOUBLE_EQ(design.FrontThick(1), 0.001) << "in either order";
  QTest::keyClick(slider, Qt::Key_Home);
  Follow();
  EXPECT_DOUBLE_EQ(design.FrontThick(1), 0.0001);
}

TEST_F(FrmTuneTest, EscapeRestoresEveryBit) {
  StartWithDesign();
  ClickMenu("mnuView2WayItem(2)");
  const std::string file = DesignFileText();
  const Curves before = curves;
  const QImage screen = Screen();
  Open();
  Pick(1, "Piezoelectric layer: density");
  for (const char* name : {"sldNumber(0)", "sldNumber(1)"}) {
    In<QSlider>(name)->setFocus();
    QTest::keyClick(In<QSlider>(name), Qt::Key_Home);
  }
  Follow();
  EXPECT_NE(Screen(), screen);
  EXPECT_EQ(design.DesignNew, 65535);
  QTest::keyClick(tune, Qt::Key_Escape);
  EXPECT_FALSE(IsOpen());
  EXPECT_EQ(std::memcmp(&curves, &before, sizeof curves), 0);
  EXPECT_EQ(DesignFileText(), file);
  EXPECT_EQ(design.DesignNew, 0);
  EXPECT_EQ(Screen(), screen);
  EXPECT_EQ(Held(kReferenceSlot), nullptr);
}

TEST_F(FrmTuneTest, PutBackRestoresAndGoesOn) {
  Open();
  const QImage screen = Screen();
  Type("txtNumber(0)", "0.15");
  Follow();
  QTest::mouseClick(In<QPushButton>("cmdPutBack"), Qt::LeftButton);
  EXPECT_EQ(design.FrontThick(1), 0.00012);
  EXPECT_EQ(Text("txtNumber(0)"), "0.12");
  EXPECT_TRUE(IsOpen());
  Type("txtNumber(0)", "0.13");
  Follow();
  EXPECT_DOUBLE_EQ(design.FrontThick(1), 0.00013);
  tune->close();
  EXPECT_EQ(design.FrontThick(1), 0.00012);
  EXPECT_EQ(Screen(), screen);
}

TEST_F(FrmTuneTest, KeepLeavesTheNumbersInTheDesign) {
  Open();
  Type("txtNumber(0)", "0.15");
  QTest::mouseClick(In<QPushButton>("cmdKeep"), Qt::LeftButton);  // before anything was shown
  EXPECT_FALSE(IsOpen());
  EXPECT_DOUBLE_EQ(design.FrontThick(1), 0.00015);
  EXPECT_EQ(design.DesignNew, 65535);
  EXPECT_EQ(Screen(), CorePicture());
}

TEST_F(FrmTuneTest, ANumberHasOneSlider) {
  Open();
  Type("txtNumber(0)", "0.15");
  Follow();
  Pick(1, "Face plate 1: thickness");
  EXPECT_EQ(In<QComboBox>("cboNumber(0)")->currentIndex(), 0);
  EXPECT_FALSE(In<QWidget>("sldNumber(0)")->isEnabled());
  EXPECT_EQ(Text("txtNumber(1)"), "0.12");
  EXPECT_EQ(design.FrontThick(1), 0.00012);
}

TEST_F(FrmTuneTest, AFailureIsALineInTheWindow) {
  Open();
  Pick(0, "Piezoelectric layer: thickness");
  Type("txtNumber(0)", "0");
  Follow();  // an unexpected box would fail the test
  EXPECT_TRUE(In<QLabel>("lblTune")->text().contains(QStringLiteral("Division by zero")))
      << In<QLabel>("lblTune")->text().toStdString();
  Type("txtNumber(0)", "0.4");
  Follow();
  EXPECT_EQ(In<QLabel>("lblTune")->text(), QString());
}

TEST_F(FrmTuneTest, ADialogOrAnotherDesignEndsTuningFirst) {
  const std::string other = MakeDesignFile("other.dat");
  for (const char* command : {"mnuInputFP", "mnuOptionsItem(1)"}) {
    Open();
    Type("txtNumber(0)", "0.15");
    Follow();
    script.ExpectWindow("a dialog", [this](QWidget& dialog) {
      EXPECT_FALSE(IsOpen());
      EXPECT_EQ(design.FrontThick(1), 0.00012);
      dialog.close();
    });
    ClickMenu(command);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }
  Open();
  OpenFile(other);
  EXPECT_FALSE(IsOpen());
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  Open();
  ClickMenu("mnuView2WayItem(0)");
  EXPECT_TRUE(IsOpen()) << "another plot of the same design";
  ClickMenu("mnuFileItem(0)");
  EXPECT_FALSE(IsOpen());
}

TEST_F(FrmTuneTest, GoesWithTheProgram) {
  Open();
  Type("txtNumber(0)", "0.15");
  Follow();
  main.reset();
  EXPECT_FALSE(IsOpen());
  EXPECT_EQ(design.FrontThick(1), 0.00012);
}

TEST_F(FrmTuneTest, EveryControlIsNamedAndInItsPlaceOnLightAndDark) {
  StartWithDesign();
  const QPalette light = QApplication::palette();
  for (const bool dark : {false, true}) {
    QApplication::setPalette(dark ? DarkPalette() : light);
    Open();
    Pick(1, "Piezoelectric layer: clamped");
    Follow();
    EXPECT_EQ(NamingFaults(*tune), std::vector<std::string>{});
    EXPECT_EQ(LayoutFaults(*tune), std::vector<std::string>{});
    const QDir folder(QStringLiteral(HALVORNE_SOURCE_DIR "/build/screenshots"));
    folder.mkpath(QStringLiteral("."));
    EXPECT_TRUE(tune->grab().save(folder.filePath(dark ? QStringLiteral("dark_frmTune.png")
                                                       : QStringLiteral("light_frmTune.png"))));
    tune->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }
  QApplication::setPalette(light);
}

}  // namespace
}  // namespace halvorne::testing
