#include "plot/graph_description.h"

#include "plot/cursor.h"
#include "plot/graph.h"
#include "plot/shown_plot.h"

namespace halvorne::testing {
namespace {

/// The graph told in words to those who can't see it.
class Description : public ShownPlot {
 protected:
  void ShowDescribed(int number, int form) {
    Show(number, form);
    plot.PlotTitle = "The title";
    plot.DualTrace = true;
    scale.LeftLabel = "Z";
    scale.LeftPrefix = "K";
    scale.LeftUnit = "Ohms";
    scale.RightLabel = "Theta";
    scale.RightUnit = "Degrees";
    scale.LeftMaxText = "5.000";
    scale.LeftMinText = "0.000";
    scale.RightMaxText = "90.000";
    scale.RightMinText = "-90.000";
    scale.FreqLowerText = "1.000";
    scale.FreqUpperText = "9.000";
    scale.TimeLowerText = "0.000";
    scale.TimeUpperText = "4.000";
  }
};

TEST_F(Description, OfAFrequencyPlotTellsTitleAndAxes) {
  ShowDescribed(11, 0);
  EXPECT_EQ(GraphDescription(),
            "The title. Frequency in MHz from 1.000 to 9.000. Left axis Z in KOhms from 0.000 to "
            "5.000. Right axis Theta in Degrees from -90.000 to 90.000.");
}

TEST_F(Description, OfASingleTraceTellsNoRightAxis) {
  ShowDescribed(13, 0);
  plot.DualTrace = false;
  EXPECT_EQ(GraphDescription().find("Right axis"), std::string::npos);
}

TEST_F(Description, OfATimePlotTellsTheFrequenciesOfItsSpectrumOnly) {
  ShowDescribed(16, 6);
  EXPECT_TRUE(GraphDescription().starts_with("The title. Time in usec from 0.000 to 4.000. Left"));
  plot.SpectrumShown = true;
  EXPECT_TRUE(
      GraphDescription().starts_with("The title. Time in usec from 0.000 to 4.000. "
                                     "Frequency in MHz from 1.000 to 9.000. Left"));
}

TEST_F(Description, FollowsTheCursor) {
  ShowDescribed(11, 0);
  scale.FirstPlotPt = 0;
  scale.LastPlotPt = 8;
  scale.PlotFreqLower = 1e6F;
  scale.PlotFreqUpper = 9e6F;
  points.PlotData(4) = {12.5, -45};
  points.PlotData(5) = {20, 30};
  Cursor1_Click();
  EXPECT_TRUE(
      window.GraphDescription().ends_with(" Cursor 12.500 KOhms / -45.000 Degrees at 5.000 MHz."))
      << window.GraphDescription();
  window.SetCursorValue(5);
  EXPECT_TRUE(
      window.GraphDescription().ends_with(" Cursor 20.000 KOhms / 30.000 Degrees at 6.000 MHz."))
      << window.GraphDescription();
  Cursor1_Click();
  EXPECT_EQ(window.GraphDescription().find("Cursor"), std::string::npos);
}

TEST_F(Description, IsGivenWithEachGraphOfTheMainPictureOnly) {
  ShowDescribed(11, 2);
  PlotGraphOn(Picture());
  EXPECT_TRUE(window.GraphDescription().starts_with("The title. Frequency"));
  DrawEmptyAxes();
  EXPECT_EQ(window.GraphDescription(), "No plot");
  HeadlessSurface preview(SurfaceKind::kPreview);
  PlotGraphOn(preview);
  EXPECT_EQ(window.GraphDescription(), "No plot");
}

}  // namespace
}  // namespace halvorne::testing
