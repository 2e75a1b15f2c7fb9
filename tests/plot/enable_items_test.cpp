#include "plot/enable_items.h"

#include <cmath>
#include <functional>
#include <gmock/gmock.h>

#include "plot/measures.h"
#include "plot/plot_select.h"
#include "plot/plot_state.h"
#include "support/fresh_program.h"

namespace halvorne {
namespace {

using ::testing::ElementsAre;

/// Writes down in which order its controls were told.
class ListeningWindow final : public HeadlessWindow {
 public:
  std::vector<std::string> heard;

  void SetMousePointer(int pointer) override {
    heard.push_back("pointer " + std::to_string(pointer));
  }
  void SetCaption(const std::string& caption) override { heard.push_back("caption " + caption); }
  void SetEnabled(Item item, bool enabled) override {
    HeadlessWindow::SetEnabled(item, enabled);
    heard.push_back(std::to_string(static_cast<int>(item)) + (enabled ? " on" : " off"));
  }
  void SetTitleBoxText(const std::string& text) override { heard.push_back("title " + text); }
  void SetTitleBoxFontSize(int size) override { heard.push_back("font " + std::to_string(size)); }
  void ClearPlotTypes() override {
    HeadlessWindow::ClearPlotTypes();
    heard.emplace_back("list cleared");
  }
};

std::string Told(Item item, bool enabled) {
  return std::to_string(static_cast<int>(item)) + (enabled ? " on" : " off");
}

class EnableItemsTest : public testing::FreshProgram {
 protected:
  EnableItemsTest() {
    testing::MakeSimpleDesign();
    design.DataFileName = "five.dat";
    design.DesignTitle = "Five megahertz";
  }
};

constexpr Item kFollowDesign[] = {
    Item::kFileSaveAs,       Item::kFileClose,       Item::kFilePrintPreview,
    Item::kFilePrintReport,  Item::kEditMenu,        Item::kInputMenu,
    Item::kViewMenu,         Item::kOptionsMenu,     Item::kToolSave,
    Item::kToolViewInputs,   Item::kToolCopyGraph,   Item::kToolCopyData,
    Item::kToolPrintPreview, Item::kToolPrintReport, Item::kTitleBox,
    Item::kPlotType,         Item::kCursor,          Item::kFindMax,
    Item::kFindMin,
};

TEST_F(EnableItemsTest, AnOpenDesignHasItsNameItsTitleAndAllCommands) {
  window.EnableItems(false);
  window.EnableItems(true);
  EXPECT_TRUE(plot.DesignOpen);
  EXPECT_EQ(window.Caption(), "Halvorne: five.dat");
  EXPECT_EQ(window.TitleBoxText(), "Five megahertz");
  for (const Item item : kFollowDesign) {
    EXPECT_TRUE(window.IsEnabled(item)) << static_cast<int>(item);
  }
}

TEST_F(EnableItemsTest, WithoutADesignAllIsBlankAndDisabled) {
  EnableItems(true);
  PlotSelect(11);
  measured.CFBWValid = measured.PulseWidthValid = measured.AttenValid = true;
  window.SetGridCell(Grid::kCFBW, 3, 1, "5.000");
  window.SetGridCell(Grid::kPulseWidth, 2, 1, "0.1");
  window.SetAttenuationLabels({"Path length", "Atten rate", "Atten freq", "Exponent"});
  EnableItems(false);
  EXPECT_FALSE(plot.DesignOpen);
  EXPECT_EQ(window.Caption(), "Halvorne: Untitled");
  EXPECT_EQ(window.TitleBoxText(), "");
  EXPECT_EQ(window.PlotTypeCount(), 0);
  EXPECT_FALSE(measured.CFBWValid || measured.PulseWidthValid || measured.AttenValid);
  EXPECT_EQ(window.GridCell(Grid::kCFBW, 3, 1), "");
  EXPECT_EQ(window.GridCell(Grid::kPulseWidth, 2, 1), "");
  EXPECT_EQ(window.AttenuationLabels(), (std::array<std::string, 4>{}));
  for (const Item item : kFollowDesign) {
    EXPECT_FALSE(window.IsEnabled(item)) << static_cast<int>(item);
  }
}

TEST_F(EnableItemsTest, OpeningLeavesMeasurementsAndListAlone) {
  view.CurrentPlot = 14;
  PlotSelect(14);
  EnableItems(true);
  EXPECT_TRUE(measured.CFBWValid);
  EXPECT_EQ(window.PlotTypeCount(), 2);
}

TEST_F(EnableItemsTest, CommandsAreToldInTheirOrder) {
  ListeningWindow listening;
  SetMainWindow(&listening);
  design.NoFace = 1;
  setup.DisplayFontSize = 2;
  EnableItems(true);
  EXPECT_THAT(listening.heard,
              ElementsAre("caption Halvorne: five.dat", "title Five megahertz",
                          Told(Item::kFileSaveAs, true), Told(Item::kFileClose, true),
                          Told(Item::kFilePrintPreview, true), Told(Item::kFilePrintReport, true),
                          Told(Item::kEditMenu, true), Told(Item::kInputMenu, true),
                          Told(Item::kViewMenu, true), Told(Item::kViewDispFP, true),
                          Told(Item::kViewDispBP, false), Told(Item::kOptionsMenu, true),
                          Told(Item::kToolSave, true), Told(Item::kToolViewInputs, true),
                          Told(Item::kToolCopyGraph, true), Told(Item::kToolCopyData, true),
                          Told(Item::kToolPrintPreview, true), Told(Item::kToolPrintReport, true),
                          Told(Item::kTitleBox, true), "font 12", Told(Item::kPlotType, true),
                          Told(Item::kCursor, true), Told(Item::kFindMax, true),
                          Told(Item::kFindMin, true)));
}

TEST_F(EnableItemsTest, TitleBoxFontFollowsTheDisplayOption) {
  for (const int size : {0, 1, 2}) {
    setup.DisplayFontSize = static_cast<std::int16_t>(size);
    EnableItems(true);
    EXPECT_EQ(window.TitleBoxFontSize(), 8 + 2 * size);
  }
}

TEST_F(EnableItemsTest, TheCursorIsTurnedOffEitherWay) {
  for (const bool open : {true, false}) {
    window.SetCursorMax(16);
    measured.CursorOn = true;
    EnableItems(open);
    EXPECT_FALSE(measured.CursorOn) << open;
    EnableItems(open);
    EXPECT_FALSE(measured.CursorOn) << "one that is off stays off";
  }
}

TEST_F(EnableItemsTest, WithoutAWindowTheFailureIsReported) {
  SetMainWindow(nullptr);
  EnableItems(true);
  EXPECT_THAT(shownMessages.Lines(),
              ElementsAre("ERROR in EnableItems of frmHalvorneMain|Error: 5. Invalid procedure "
                          "call or argument"));
}

struct Procedure {
  const char* name;
  const char* module;
  std::function<void()> run;
};

TEST_F(EnableItemsTest, WithoutAWindowEachProcedureReportsUnderItsOwnName) {
  const Procedure procedures[] = {
      {"Recalc", "CALCS", Recalc},
      {"InitGrids", "frmHalvorneMain", InitGrids},
      {"DisplayCFBW", "frmHalvorneMain", DisplayCFBW},
      {"DisplayPulseWidth", "frmHalvorneMain", DisplayPulseWidth},
      {"PlotRepaint", "PLOTIT", PlotRepaint},
      {"PlotType_Click", "frmHalvorneMain", PlotType_Click},
  };
  SetMainWindow(nullptr);
  plot.DesignOpen = true;
  for (const Procedure& procedure : procedures) {
    shownMessages.Forget();
    procedure.run();
    EXPECT_THAT(shownMessages.Lines(),
                ElementsAre(std::string("ERROR in ") + procedure.name + " of " + procedure.module +
                            "|Error: 5. Invalid procedure call or argument"));
  }
}

TEST_F(EnableItemsTest, RecalcSweepsUnderTheHourglassAndShowsThePlot) {
  ListeningWindow listening;
  SetMainWindow(&listening);
  view.CurrentPlot = 14;
  design.FrontDelay(0) = 0;
  Recalc();
  EXPECT_GT(design.FrontDelay(0), 0) << "the chains are made anew before the sweep";
  EXPECT_GT(std::hypot(curves.TxTFRe(8), curves.TxTFIm(8)), 0);
  EXPECT_EQ(design.DesignNew, 65535);
  EXPECT_EQ(plot.PlotTitle, "Transmit Transfer Function - P(Pascals)/V(Tx)");
  EXPECT_FALSE(listening.OwnPicture().Operations().empty());
  ASSERT_GE(listening.heard.size(), 4U);
  listening.heard.resize(4);
  EXPECT_THAT(listening.heard,
              ElementsAre("pointer 11", "pointer 0", Told(Item::kCursor, true), "list cleared"));
}

TEST_F(EnableItemsTest, RecalcTurnsTheCursorOffBeforeThePlotIsDrawn) {
  window.SetCursorMax(16);
  measured.CursorOn = true;
  Recalc();
  EXPECT_FALSE(measured.CursorOn);
}

TEST_F(EnableItemsTest, RecalcShowsThePlotOfASweepThatFailed) {
  design.PZMatl(1).Velocity = 0;
  Recalc();
  EXPECT_FALSE(shownMessages.Lines().empty());
  EXPECT_EQ(design.DesignNew, 65535);
  EXPECT_EQ(plot.PlotTitle, "Electrical Input Impedance");
  EXPECT_THAT(window.Pointers(), ElementsAre(kBusyPointer, kNormalPointer));
}

}  // namespace
}  // namespace halvorne
