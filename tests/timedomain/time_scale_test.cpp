#include <gtest/gtest.h>

#include "platform/numbers.h"
#include "support/fresh_program.h"
#include "timedomain/view.h"

namespace halvorne::testing {
namespace {

class TimeScale : public FreshProgram {};

struct Reading {
  double seconds;
  const char* unit;
  double scale;
};

TEST_F(TimeScale, FollowsTheDecadeOfTheTime) {
  const Reading readings[] = {
      {0, "psec", 1e-12},     {1e-37, "psec", 1e-12}, {9.9e-10, "psec", 1e-12},
      {1.1e-9, "nsec", 1e-9}, {9.9e-7, "nsec", 1e-9}, {1.1e-6, "usec", 1e-6},
      {9.9e-4, "usec", 1e-6}, {1.1e-3, "msec", 1e-3}, {0.99, "msec", 1e-3},
      {1, "sec", 1},          {5e99, "sec", 1},       {-2e-6, "usec", 1e-6},
  };
  for (const Reading& reading : readings) {
    Reset(view);
    GetTimeScale(reading.seconds);
    EXPECT_EQ(view.TimeUnit, reading.unit) << reading.seconds;
    EXPECT_EQ(view.TimeScale, reading.scale) << reading.seconds;
  }
}

TEST_F(TimeScale, ReadsNineTenthsOfAMicrosecondInNanoseconds) {
  GetTimeScale(0.9e-6);
  EXPECT_EQ(view.TimeUnit, "nsec");
  EXPECT_EQ(view.TimeScale, 1e-9);
}

TEST_F(TimeScale, StaysForADecadeOutsideTheTable) {
  view.TimeUnit = "old";
  view.TimeScale = 7;
  for (const double seconds : {1e-101, 2e101}) {
    GetTimeScale(seconds);
    EXPECT_EQ(view.TimeUnit, "old") << seconds;
    EXPECT_EQ(view.TimeScale, 7) << seconds;
  }
}

TEST(PlotGroups, HoldTheTimeAndTheExcitationPlots) {
  for (int plot = 0; plot < 60; ++plot) {
    const bool excitation = plot == 17 || plot == 27 || plot == 34;
    const bool impulse = plot == 16 || plot == 26 || plot == 33;
    EXPECT_EQ(IsExcitationPlot(plot), excitation) << plot;
    EXPECT_EQ(IsTimePlot(plot), excitation || impulse) << plot;
  }
}

}  // namespace
}  // namespace halvorne::testing
