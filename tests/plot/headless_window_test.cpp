#include "plot/headless_window.h"

#include <functional>
#include <gmock/gmock.h>

#include "platform/failure.h"
#include "plot/plot_state.h"
#include "support/fresh_program.h"

namespace halvorne {
namespace {

using ::testing::ElementsAre;

class HeadlessWindowTest : public testing::FreshProgram {
 protected:
  HeadlessWindowTest() {
    view.CurrentPlot = 60;  // none: the selection event converts nothing
    window.AddPlotType("first");
    window.AddPlotType("second");
    setup.LastPlotListIndex = -1;
  }

  int FailureOf(const std::function<void()>& action) {
    try {
      action();
    } catch (const Failure& failure) {
      return failure.Number();
    }
    return 0;
  }
};

TEST_F(HeadlessWindowTest, OnlyAChangeOfTheIndexFiresTheSelection) {
  window.SetPlotTypeIndex(1);
  EXPECT_EQ(setup.LastPlotListIndex, 1);
  setup.LastPlotListIndex = -1;
  window.SetPlotTypeIndex(1);
  EXPECT_EQ(setup.LastPlotListIndex, -1);
}

TEST_F(HeadlessWindowTest, ClearingTheListClearsTheSelectionAndFiresNothing) {
  window.SetPlotTypeIndex(1);
  window.ClearPlotTypes();
  EXPECT_EQ(window.PlotTypeIndex(), -1);
  EXPECT_EQ(window.PlotTypeCount(), 0);
  EXPECT_EQ(setup.LastPlotListIndex, 1);
}

TEST_F(HeadlessWindowTest, AnIndexThatTheListDoesNotHoldRaises5) {
  for (const int index : {-1, 2}) {
    EXPECT_EQ(FailureOf([&] { window.SetPlotTypeIndex(index); }), failure_number::kInvalidCall);
    EXPECT_EQ(FailureOf([&] { (void)window.PlotTypeText(index); }), failure_number::kInvalidCall);
  }
  EXPECT_EQ(window.PlotTypeIndex(), -1);
}

TEST_F(HeadlessWindowTest, TheCursorBarStaysWithinItsRange) {
  window.SetCursorMin(10);
  window.SetCursorMax(20);
  window.SetCursorValue(25);
  EXPECT_EQ(window.CursorValue(), 20);
  window.SetCursorValue(3);
  EXPECT_EQ(window.CursorValue(), 10);
}

TEST_F(HeadlessWindowTest, AMoveOfTheCursorBarMovesTheCursor) {
  window.SetCursorMax(20);
  scale.LastPlotPt = 20;
  scale.LeftMag = 1;
  design.FreqScale = 1;
  measured.CursorOn = true;
  window.SetCursorValue(5);
  EXPECT_FLOAT_EQ(measured.CursorX, 2.5F);
  window.OwnPicture().Forget();
  window.SetCursorValue(5);
  EXPECT_TRUE(window.OwnPicture().Operations().empty()) << "no change, no event";
}

TEST_F(HeadlessWindowTest, GridsHaveTheirSizes) {
  window.SetGridCell(Grid::kCFBW, 5, 3, "a");
  window.SetGridCell(Grid::kPulseWidth, 4, 1, "b");
  EXPECT_EQ(window.GridCell(Grid::kCFBW, 5, 3), "a");
  EXPECT_EQ(window.GridCell(Grid::kPulseWidth, 4, 1), "b");
  EXPECT_EQ(FailureOf([&] { window.SetGridCell(Grid::kCFBW, 6, 0, ""); }),
            failure_number::kSubscript);
  EXPECT_EQ(FailureOf([&] { window.SetGridCell(Grid::kPulseWidth, 0, 2, ""); }),
            failure_number::kSubscript);
}

TEST_F(HeadlessWindowTest, RecentFilesAreTakenOnce) {
  for (const char* name : {"a.dat", "b.dat", "a.dat"}) {
    design.DataFileName = name;
    window.UpdateMenu();
  }
  EXPECT_THAT(window.RecentFiles(), ElementsAre("a.dat", "b.dat"));
}

}  // namespace
}  // namespace halvorne
