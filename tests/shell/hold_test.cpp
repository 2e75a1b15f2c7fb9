#include <QScrollBar>
#include <cstdlib>

#include "plot/held_curves.h"
#include "plot/plot_select.h"
#include "plot/plot_state.h"
#include "plot/trace_colours.h"
#include "shell/graph_menu_input.h"

namespace halvorne::testing {
namespace {

class Holding : public GraphMenuInput {
 protected:
  /// Pixels of the picture in the hue of a slot's curves, which are smoothed against the paper.
  int PixelsOf(int slot) const {
    const Colour colour = kHeldColours.at(static_cast<std::size_t>(slot));
    const int hue = QColor(colour.red, colour.green, colour.blue).hsvHue();
    const QImage screen = Screen();
    int count = 0;
    for (int y = 0; y < screen.height(); ++y) {
      for (int x = 0; x < screen.width(); ++x) {
        const QColor pixel = screen.pixelColor(x, y);
        const bool coloured = pixel.hsvSaturation() > 40;
        count += coloured && std::abs(pixel.hsvHue() - hue) < 8 ? 1 : 0;
      }
    }
    return count;
  }

  /// Another thickness, taken as by the OK of its dialog.
  static void Thicken() {
    design.PZThick(1) *= 1.2;
    PiezoLayers();
    Recalc();
  }
};

TEST_F(Holding, ShowsTheHeldCurveBehindThePresentOneUntilItIsDropped) {
  StartWithDesign();
  ClickMenu("mnuView2WayItem(0)");
  const QImage alone = Screen();
  ChooseFromGraphMenu("mnuGraphHold");
  Thicken();
  EXPECT_GT(PixelsOf(0), 100);
  // It follows the plot and the form.
  ChooseForm(1);
  EXPECT_EQ(Held(0)->curves->form, 1);
  EXPECT_GT(PixelsOf(0), 100);
  ClickMenu("mnuView2WayItem(2)");
  EXPECT_GT(PixelsOf(0), 100);
  ClickMenu("mnuView2WayItem(0)");

  OpenMenu();
  EXPECT_EQ(Action("mnuGraphHeld(0)")->text().toStdString(), "&1 A probe (probe.dat)");
  CloseMenu();
  ChooseFromGraphMenu("mnuGraphHeld(0)");
  EXPECT_EQ(Held(0), nullptr);
  EXPECT_EQ(PixelsOf(0), 0);
}

TEST_F(Holding, PutsThePictureBackByDroppingAll) {
  StartWithDesign();
  const QImage alone = Screen();
  for (int i = 0; i < 3; ++i) {
    ChooseFromGraphMenu("mnuGraphHold");
  }
  EXPECT_NE(Screen(), alone);
  ChooseFromGraphMenu("mnuGraphDropAll");
  EXPECT_EQ(Screen(), alone);
}

TEST_F(Holding, OffersSixPlacesAndOneEntryForEachDesignHeld) {
  StartWithDesign();
  OpenMenu();
  EXPECT_FALSE(Action("mnuGraphHeld(0)")->isVisible());
  EXPECT_FALSE(Action("mnuGraphDropAll")->isEnabled());
  CloseMenu();
  for (int i = 0; i < 6; ++i) {
    ChooseFromGraphMenu("mnuGraphHold");
  }
  OpenMenu();
  EXPECT_FALSE(Action("mnuGraphHold")->isEnabled());
  for (int i = 0; i < 6; ++i) {
    const std::string name = "mnuGraphHeld(" + std::to_string(i) + ")";
    EXPECT_TRUE(Action(name)->isVisible());
    EXPECT_FALSE(Action(name)->icon().isNull());
  }
  // The letter of a held design is its number.
  QTest::keyClick(&Menu(), Qt::Key_3);
  EXPECT_EQ(Held(2), nullptr);
  EXPECT_NE(Held(3), nullptr);
}

TEST_F(Holding, ShowsTheAmpersandOfATitle) {
  StartWithDesign();
  design.DesignTitle = "Plates & load";
  ChooseFromGraphMenu("mnuGraphHold");
  OpenMenu();
  EXPECT_EQ(Action("mnuGraphHeld(0)")->text().toStdString(), "&1 Plates && load (probe.dat)");
  CloseMenu();
}

TEST_F(Holding, LastsForTheSessionWhateverIsOpenedAndClosed) {
  const std::string other = MakeDesignFile("other.dat");
  StartWithDesign();
  ChooseFromGraphMenu("mnuGraphHold");
  ClickMenu("mnuFileItem(0)");
  EXPECT_NE(Held(0), nullptr);
  OpenFile(other);
  EXPECT_EQ(Held(0)->label, "1: A probe (probe.dat)");
  EXPECT_GT(PixelsOf(0), 10) << "its legend at least, where the curves are the same";
}

TEST_F(Holding, ScalesToAllByACheckItem) {
  StartWithDesign();
  ClickMenu("mnuView2WayItem(0)");
  ChooseForm(0);
  design.TermRx = 5000;
  Recalc();
  ChooseFromGraphMenu("mnuGraphHold");
  design.TermRx = 5;
  Recalc();
  const float alone = scale.LeftMax;
  ChooseFromGraphMenu("mnuGraphScaleAll");
  EXPECT_GT(scale.LeftMax, alone);
  OpenMenu();
  EXPECT_TRUE(Action("mnuGraphScaleAll")->isChecked());
  CloseMenu();
  ChooseFromGraphMenu("mnuGraphScaleAll");
  EXPECT_EQ(scale.LeftMax, alone);
}

TEST_F(Holding, KeepsTheCursorAndMovesItAsBefore) {
  StartWithDesign();
  Click("Cursor1");
  auto* const bar = Find<QScrollBar>("HScroll1");
  bar->setValue(20);
  const QImage alone = Screen();
  ChooseFromGraphMenu("mnuGraphHold");
  EXPECT_TRUE(measured.CursorOn);
  EXPECT_EQ(bar->value(), 20);
  QTest::keyClick(bar, Qt::Key_Right);
  EXPECT_EQ(bar->value(), 21);
  QTest::keyClick(bar, Qt::Key_Left);
  ChooseFromGraphMenu("mnuGraphDropAll");
  EXPECT_EQ(Screen(), alone);
}

}  // namespace
}  // namespace halvorne::testing
