#include "plot/state_snapshot.h"

#include <cstring>
#include <random>

#include "support/fresh_program.h"

namespace halvorne::testing {
namespace {

class Snapshots : public FreshProgram {
 protected:
  std::mt19937 random{7};

  template <class Array>
  void Fill(Array& array) {
    for (auto& value : array) {
      value = static_cast<double>(random());
    }
  }

  /// Something at the far end of every struct of the state.
  void FillState() {
    design.DesignTitle = "A probe";
    design.DesignNew = 65535;
    Fill(design.ZBackIm);
    design.VelDispNames(21, 1) = "a comment";
    Fill(curves.TwoWayTFIm);
    Fill(draft.TmpExciteWfm);
    Fill(wave.ExciteRe);
    Fill(wave.TwiddleSin);
    wave.FreqStopText = "9.000";
    view.TimeWindowPercent = 12.5F;
    points.PlotDataExcite(kLastTimePoint) = {1, 2};
    setup.CursorBlank = "   ";
    setup.PlotFormMemory(42) = 3;
    plot.PlotTitle = "A plot";
    Fill(plot.MeasBuf);
    scale.PeakUnit = "V";
    scale.RightMax = 7;
    measured.ReadOut = "1 at 2";
    measured.CFBWText[5][3] = "50";
  }

  template <class Array>
  static bool SameBytes(const Array& a, const Array& b) {
    return std::memcmp(&a, &b, sizeof(Array)) == 0;
  }
};

TEST_F(Snapshots, OfTheStatePutEveryBitBack) {
  FillState();
  const auto snapshot = TakeState();
  const auto again = TakeState();
  ResetProgram();
  EXPECT_EQ(design.DesignTitle, "");
  PutBack(*snapshot);
  EXPECT_EQ(design.DesignTitle, "A probe");
  EXPECT_EQ(design.DesignNew, 65535);
  EXPECT_TRUE(SameBytes(design.ZBackIm, again->design.design.ZBackIm));
  EXPECT_EQ(design.VelDispNames(21, 1), "a comment");
  EXPECT_TRUE(SameBytes(curves, again->design.curves));
  EXPECT_TRUE(SameBytes(draft.TmpExciteWfm, again->draft.TmpExciteWfm));
  EXPECT_TRUE(SameBytes(wave.ExciteRe, again->wave.ExciteRe));
  EXPECT_TRUE(SameBytes(wave.TwiddleSin, again->wave.TwiddleSin));
  EXPECT_EQ(wave.FreqStopText, "9.000");
  EXPECT_EQ(view.TimeWindowPercent, 12.5F);
  EXPECT_TRUE(SameBytes(points, again->points));
  EXPECT_EQ(points.PlotDataExcite(kLastTimePoint).Y2, 2);
  EXPECT_EQ(setup.CursorBlank, "   ");
  EXPECT_EQ(setup.PlotFormMemory(42), 3);
  EXPECT_EQ(plot.PlotTitle, "A plot");
  EXPECT_TRUE(SameBytes(plot.MeasBuf, again->plot.MeasBuf));
  EXPECT_EQ(scale.PeakUnit, "V");
  EXPECT_EQ(scale.RightMax, 7);
  EXPECT_EQ(measured.ReadOut, "1 at 2");
  EXPECT_EQ(measured.CFBWText[5][3], "50");
}

TEST_F(Snapshots, OfADesignLeaveWhatIsOnShow) {
  FillState();
  const auto snapshot = TakeDesign();
  design.DesignTitle = "Another";
  Fill(design.ZBackIm);
  Fill(curves.TwoWayTFIm);
  Fill(wave.ExciteRe);
  view.TimeWindowPercent = 25;
  plot.PlotTitle = "Another plot";
  PutBack(*snapshot);
  EXPECT_EQ(design.DesignTitle, "A probe");
  EXPECT_TRUE(SameBytes(design.ZBackIm, snapshot->design.ZBackIm));
  EXPECT_TRUE(SameBytes(curves, snapshot->curves));
  EXPECT_TRUE(SameBytes(wave.ExciteRe, snapshot->ExciteRe));
  EXPECT_EQ(view.TimeWindowPercent, 25);
  EXPECT_EQ(plot.PlotTitle, "Another plot");
}

}  // namespace
}  // namespace halvorne::testing
