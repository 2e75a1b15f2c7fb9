#include <cmath>
#include <gtest/gtest.h>
#include <limits>

#include "plot/conversions.h"
#include "plot/plot_state.h"
#include "support/fresh_program.h"

namespace halvorne {
namespace {

class PhaseDelayTest : public testing::FreshProgram {
 protected:
  /// The phase of a curve that arrives `delay` seconds late, within its window of one turn.
  void SetDelay(double delay, int intervals) {
    testing::MakeSimpleDesign(intervals, 64);
    for (int i = 0; i <= intervals; ++i) {
      const double frequency =
          design.FreqStart + i * (design.FreqStop - design.FreqStart) / intervals;
      points.RawData(i).Y2 = std::remainder(-360 * frequency * delay, 360);
    }
  }

  void SetPhases(std::initializer_list<double> phases) {
    testing::MakeSimpleDesign(static_cast<int>(phases.size()) - 1, 64);
    int i = 0;
    for (const double phase : phases) {
      points.RawData(i++).Y2 = phase;
    }
  }

  void Convert(int option) {
    setup.PhaseDisplayOption = static_cast<std::int16_t>(option);
    PhaseDelay();
  }

  double Phase(int i) { return points.RawData(i).Y2; }
};

TEST_F(PhaseDelayTest, TheWindowOfOneTurnIsLeftAlone) {
  SetPhases({170, -170, 100, -100});
  Convert(0);
  EXPECT_EQ(Phase(0), 170);
  EXPECT_EQ(Phase(1), -170);
  EXPECT_EQ(Phase(3), -100);
}

TEST_F(PhaseDelayTest, UnwrapsAFallingPhaseIntoAStraightLine) {
  SetDelay(0.3e-6, 16);  // 54 degrees from point to point, two and a half turns in all
  const double first = Phase(1);
  Convert(1);
  for (int i = 0; i <= 16; ++i) {
    EXPECT_NEAR(Phase(i), first - 54 * (i - 1), 1e-9) << i;
  }
}

TEST_F(PhaseDelayTest, UnwrapsARisingPhase) {
  SetPhases({80, 150, -140, -70, 0});
  Convert(1);
  EXPECT_EQ(Phase(2), 220);
  EXPECT_EQ(Phase(3), 290);
  EXPECT_EQ(Phase(4), 360);
}

TEST_F(PhaseDelayTest, ExactlyHalfATurnFromTheForecastStays) {
  SetPhases({0, 0, 180, 0, -540});
  Convert(1);
  EXPECT_EQ(Phase(2), 180);
  EXPECT_EQ(Phase(3), 360) << "forecast 360, so 0 is a turn short";
  SetPhases({0, 0, -180, 0, 540});
  Convert(1);
  EXPECT_EQ(Phase(2), -180);
  EXPECT_EQ(Phase(3), -360) << "forecast -360, so 0 is a turn too far";
}

TEST_F(PhaseDelayTest, ALittleMoreThanHalfATurnFromTheForecastIsTakenBack) {
  SetPhases({0, 0, 180.5});
  Convert(1);
  EXPECT_EQ(Phase(2), -179.5);
  SetPhases({0, 0, -180.5});
  Convert(1);
  EXPECT_EQ(Phase(2), 179.5);
}

TEST_F(PhaseDelayTest, ATurnMovesEverythingBehindIt) {
  SetPhases({0, 0, 200, 0, 0, 0});
  Convert(1);
  EXPECT_EQ(Phase(2), -160);
  EXPECT_EQ(Phase(3), -360) << "the forecast of -320 agrees with the tail's turn";
}

TEST_F(PhaseDelayTest, TheFirstPointIsExtrapolatedAndNotTheGatheredOne) {
  SetPhases({25, 10, 20, 35});
  Convert(1);
  EXPECT_EQ(Phase(0), 0);
}

TEST_F(PhaseDelayTest, DelayOfAPureDelayIsThatDelay) {
  SetDelay(0.3e-6, 16);
  Convert(2);
  for (int i = 0; i <= 16; ++i) {
    EXPECT_NEAR(Phase(i), 0.3e-6, 1e-17) << i;
  }
}

TEST_F(PhaseDelayTest, DelayIsTheCentralDifferenceOfTheGatheredPhases) {
  // One hertz per point: a phase of -k^2 degrees has a delay of 2 k/360 seconds.
  SetPhases({0, -1, -4, -9, -16});
  design.FreqStart = 0;
  design.FreqStop = 4;
  Convert(2);
  // The first phase was replaced by 2 x -1 - -4 = 2 before: (-4 - 2)/2/-360 at point 1.
  EXPECT_NEAR(Phase(1), 3.0 / 360, 1e-15);
  EXPECT_NEAR(Phase(2), 4.0 / 360, 1e-15);
  EXPECT_NEAR(Phase(3), 6.0 / 360, 1e-15);
  EXPECT_NEAR(Phase(0), 2.0 / 360, 1e-15);
  EXPECT_NEAR(Phase(4), 8.0 / 360, 1e-15);
}

TEST_F(PhaseDelayTest, ANegativeDelayIsPlottedAsZero) {
  SetDelay(-0.2e-6, 8);
  Convert(2);
  for (int i = 0; i <= 8; ++i) {
    EXPECT_EQ(Phase(i), 0) << i;
  }
}

TEST_F(PhaseDelayTest, NoTransferHasNoDelay) {
  SetPhases({0, 0, 0, 0, 0});
  Convert(2);
  for (int i = 0; i <= 4; ++i) {
    EXPECT_EQ(Phase(i), 0) << i;
  }
  EXPECT_TRUE(shownMessages.Lines().empty());
}

TEST_F(PhaseDelayTest, TwoIntervalsExtrapolateBothEndsFromTheOneMiddle) {
  SetPhases({7, -10, -40});
  design.FreqStart = 0;
  design.FreqStop = 2;
  Convert(2);
  // Phases are 20, -10, -40 when the loop runs its one time: 30 degrees per hertz.
  const double middle = 30.0 / 360;
  EXPECT_NEAR(Phase(1), middle, 1e-15);
  // Kept: point 0 mixes the delay of point 1 with the phase that still stands at point 2.
  EXPECT_NEAR(Phase(0), 2 * middle + 40, 1e-12);
  // Kept: point 2 then mixes point 1 with the new point 0, and what falls below 0 is cut.
  EXPECT_EQ(Phase(2), 0);
}

TEST_F(PhaseDelayTest, ASweepWithoutWidthFailsInTheDelayOnly) {
  SetPhases({0, 10, 20});
  design.FreqStop = design.FreqStart;
  Convert(1);
  EXPECT_TRUE(shownMessages.Lines().empty());
  Convert(2);
  EXPECT_EQ(shownMessages.Lines(),
            std::vector<std::string>{"ERROR in PhaseDelay of PLOTIT|Error: 11. Division by zero"});
  EXPECT_EQ(Phase(2), 20);
}

TEST_F(PhaseDelayTest, ACurveOfNegativeCountHasNoPhases) {
  for (const std::int32_t count : {-1, std::numeric_limits<std::int32_t>::min()}) {
    SetPhases({1, 2, 3, 4});
    design.NoFreqPts = count;
    Convert(2);
    EXPECT_EQ(Phase(3), 4);
    EXPECT_EQ(
        shownMessages.Lines(),
        std::vector<std::string>{"ERROR in PhaseDelay of PLOTIT|Error: 9. Subscript out of range"});
    shownMessages.Forget();
  }
}

}  // namespace
}  // namespace halvorne
