#include "plot/plot_after_open.h"

#include "plot/enable_items.h"
#include "plot/plot_state.h"
#include "support/fresh_program.h"

namespace halvorne {
namespace {

class PlotAfterOpen : public testing::FreshProgram {
 protected:
  PlotAfterOpen() { testing::MakeSimpleDesign(); }
};

TEST_F(PlotAfterOpen, IsThePlotThatWasOnShowBefore) {
  view.CurrentPlot = 14;
  EnableItems(true);
  ShowPlotAfterOpen();
  EXPECT_EQ(plot.PlotTitle, "Transmit Transfer Function - P(Pascals)/V(Tx)");
}

TEST_F(PlotAfterOpen, DispersionPlotsOfPlatesNeedPlatesEvenWhenClosed) {
  for (const bool open : {true, false}) {
    design.NoFace = 1;
    design.NoBack = 0;
    view.CurrentPlot = 53;
    EnableItems(open);
    EXPECT_TRUE(window.IsEnabled(Item::kViewDispFP));
    EXPECT_FALSE(window.IsEnabled(Item::kViewDispBP));
    EXPECT_EQ(view.CurrentPlot, 52);

    design.NoFace = 0;
    design.NoBack = 1;
    view.CurrentPlot = 51;
    EnableItems(open);
    EXPECT_FALSE(window.IsEnabled(Item::kViewDispFP));
    EXPECT_TRUE(window.IsEnabled(Item::kViewDispBP));
    EXPECT_EQ(view.CurrentPlot, 52);
  }
}

TEST_F(PlotAfterOpen, ADispersionPlotThatHasItsPlatesStays) {
  design.NoFace = design.NoBack = 1;
  for (const int plotNumber : {51, 53, 14}) {
    view.CurrentPlot = static_cast<std::int16_t>(plotNumber);
    EnableItems(true);
    EXPECT_EQ(view.CurrentPlot, plotNumber);
  }
  design.NoFace = design.NoBack = 0;
  view.CurrentPlot = 14;
  EnableItems(true);
  EXPECT_EQ(view.CurrentPlot, 14);
}

TEST_F(PlotAfterOpen, EachSidesRuleLeavesTheOtherSideAlone) {
  view.CurrentPlot = 53;
  UpdateFaceDispersionView();
  EXPECT_EQ(view.CurrentPlot, 53);
  UpdateBackDispersionView();
  EXPECT_EQ(view.CurrentPlot, 52);
}

}  // namespace
}  // namespace halvorne
