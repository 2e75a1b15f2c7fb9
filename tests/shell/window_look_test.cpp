#include <QAction>
#include <QApplication>
#include <QElapsedTimer>
#include <QTest>
#include <QToolButton>

#include "engine/design_model.h"
#include "plot/plot_select.h"
#include "plot/plot_state.h"
#include "shell/layout_check.h"
#include "shell/window_test.h"

namespace halvorne::testing {
namespace {

class WindowLook : public WindowTest {};

TEST_F(WindowLook, TabKeyLeadsThroughTheControlsAsTheyAreRead) {
  StartWithDesign();
  Click("Cursor1");  // its bar takes part while it is on
  auto* const first = Find<QWidget>("cmdFileNew");
  first->setFocus(Qt::TabFocusReason);
  std::vector<std::string> way;
  do {
    way.push_back(QApplication::focusWidget()->objectName().toStdString());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
  } while (QApplication::focusWidget() != first && way.size() < 20);
  const std::vector<std::string> asRead{"cmdFileNew",
                                        "cmdFileOpen",
                                        "cmdFileSave",
                                        "cmdViewInputs",
                                        "cmdCopyToClipboard",
                                        "cmdCopyDataToClipboard",
                                        "cmdPrintPreview",
                                        "cmdPrintReport",
                                        "PlotType",
                                        "Cursor1",
                                        "HScroll1",
                                        "FindMax",
                                        "FindMin",
                                        "txtEdit"};
  EXPECT_EQ(way, asRead);
}

TEST_F(WindowLook, CaptionsOfItsControlsStandLetterByLetter) {
  StartProgram();
  EXPECT_EQ(Caption("LblPlotType"), "Plot Type:");
  EXPECT_EQ(Find<QPushButton>("Cursor1")->text(), QStringLiteral("&Cursor"));
  for (const auto& [frame, title] : {std::pair{"fraCFBW", "Center Freq and Bandwidth"},
                                     {"fraPulseWidth", "Pulse Width and Level"},
                                     {"fraAtten", "Attenuation in Load Medium"}}) {
    EXPECT_EQ(Find<QGroupBox>(frame)->title().toStdString(), title);
  }
}

/// Mean difference of brightness between what an icon draws and what lies under it.
double Contrast(const QToolButton& button) {
  const QImage icon = button.icon().pixmap(28).toImage();
  const int ground = button.palette().color(QPalette::Button).lightness();
  double sum = 0;
  int drawn = 0;
  for (int y = 0; y < icon.height(); ++y) {
    for (int x = 0; x < icon.width(); ++x) {
      if (const QColor ink = icon.pixelColor(x, y); ink.alpha() > 200) {
        sum += std::abs(ink.lightness() - ground);
        ++drawn;
      }
    }
  }
  return drawn < 20 ? 0 : sum / drawn;
}

TEST_F(WindowLook, IconsAreLegibleOnLightAndDarkDesktops) {
  StartWithDesign();
  const QPalette before = QApplication::palette();
  std::vector<QImage> drawings;
  for (const QColor ground : {QColor(0xef, 0xef, 0xef), QColor(0x2a, 0x2c, 0x30)}) {
    QApplication::setPalette(QPalette(ground));
    QCoreApplication::processEvents();
    drawings.clear();
    for (const auto* button : Find<QWidget>("Picture2")->findChildren<QToolButton*>()) {
      EXPECT_GT(Contrast(*button), 100)
          << button->objectName().toStdString() << " on " << ground.name().toStdString();
      drawings.push_back(button->icon().pixmap(28).toImage());
    }
    EXPECT_EQ(drawings.size(), 8U);
  }
  for (std::size_t i = 0; i < drawings.size(); ++i) {
    for (std::size_t k = i + 1; k < drawings.size(); ++k) {
      EXPECT_NE(drawings[i], drawings[k]) << "two buttons show the same picture";
    }
  }
  QApplication::setPalette(before);
}

TEST_F(WindowLook, IconsAreDrawnInTheResolutionOfTheScreen) {
  StartProgram();
  const QIcon icon = Find<QToolButton>("cmdFileOpen")->icon();
  EXPECT_EQ(icon.pixmap(QSize(28, 28), 2.0).size(), QSize(56, 56));
}

TEST_F(WindowLook, PictureIsKeptAndRepaintedWithoutBeingDrawn) {
  StartWithDesign();
  const QImage before = Screen();
  // A plot drawn now would be another.
  for (int i = 0; i <= design.NoFreqPts; ++i) {
    points.PlotData(i).Y1 = 0;
  }
  main->hide();
  main->show();
  QCoreApplication::processEvents();
  EXPECT_EQ(Screen(), before);
}

TEST_F(WindowLook, ControlsKeepTheirPlacesAtEverySize) {
  StartWithDesign();
  ClickMenu("mnuView2WayItem(3)");
  for (const QSize size :
       {QSize(1, 1), QSize(1366, 768), QSize(700, 1000), QSize(1920, 1080), QSize(3840, 500)}) {
    main->resize(size);
    for (const std::string& fault : LayoutFaults(*main)) {
      ADD_FAILURE() << size.width() << " x " << size.height() << ": " << fault;
    }
  }
}

TEST_F(WindowLook, HoldsTheTitleInEachOfItsFontSizes) {
  StartWithDesign();
  auto* const title = Find<QLineEdit>("txtEdit");
  for (const int points : {8, 10, 12}) {
    main->SetTitleBoxFontSize(points);
    EXPECT_EQ(title->font().pointSize(), points);
    EXPECT_GE(title->height(), title->fontMetrics().height() + 4) << points;
    for (const std::string& fault : LayoutFaults(*main)) {
      ADD_FAILURE() << points << " points: " << fault;
    }
  }
}

TEST_F(WindowLook, ClickOnTheToolbarsGroundBringsItsButtonsToTheFront) {
  StartProgram();
  auto* const ground = Find<QWidget>("Picture2");
  auto* const cover = new QWidget(ground);
  cover->setGeometry(ground->findChild<QWidget*>("cmdFileOpen")->geometry());
  cover->show();
  const QPoint place = cover->geometry().center();
  EXPECT_EQ(ground->childAt(place), cover);
  QTest::mouseClick(ground, Qt::LeftButton, {}, QPoint(ground->width() - 2, 2));
  EXPECT_EQ(ground->childAt(place)->objectName(), "cmdFileOpen");
  cover->raise();
  QTest::mouseDClick(ground, Qt::LeftButton, {}, QPoint(ground->width() - 2, 2));
  EXPECT_EQ(ground->childAt(place)->objectName(), "cmdFileOpen");
}

TEST_F(WindowLook, FormOfTheLargestPlotChangesAtOnce) {
  StartWithDesign();
  design.NoTimePts = 65536;
  view.TimeWindowPercent = 99.5F;
  ClickMenu("mnuView2WayItem(2)");
  EXPECT_GT(scale.LastPlotPt, 65000) << "the plot is not a large one";
  QElapsedTimer clock;
  clock.start();
  // Not those of two traces over time: the second takes 32767 intervals at most.
  const std::vector<int> forms{1, 2, 6, 7, 8, 0};
  for (const int form : forms) {
    main->SetPlotTypeIndex(form);
    main->repaint();
  }
  const qint64 each = clock.elapsed() / static_cast<qint64>(forms.size());
  // A tenth of a second is what a person takes for at once; a busy machine gets five times that.
  EXPECT_LT(each, 500);
  RecordProperty("milliseconds", static_cast<int>(each));
}

}  // namespace
}  // namespace halvorne::testing
