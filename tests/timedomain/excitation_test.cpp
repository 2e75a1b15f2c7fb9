#include "timedomain/excitation.h"

#include <cmath>
#include <gtest/gtest.h>

#include "engine/design_model.h"
#include "platform/headless_surface.h"
#include "support/fresh_program.h"
#include "timedomain/view.h"

namespace halvorne::testing {
namespace {

using Lines = std::vector<std::string>;
using Codes = std::initializer_list<std::int16_t>;

class Excitation : public FreshProgram {
 protected:
  Excitation() {
    design.SampleRateHz = 100e6;
    draft.TmpExciteType = 1;
    draft.TmpExciteWave = 1;
    draft.TmpExciteFreq = 12.5e6F;  // eight samples to a cycle
    draft.TmpExciteCycles = 1;
    draft.TmpExcitePoints = 20;
  }
};

TEST_F(Excitation, SamplesASineBurst) {
  for (double& sample : draft.TmpExciteWfm) {
    sample = 9;
  }
  CalcExciteWfm();
  const double r = std::sqrt(0.5);
  const double burst[] = {0, r, 1, r, 0, -r, -1, -r, 0};
  for (int i = 0; i <= 8; ++i) {
    EXPECT_NEAR(draft.TmpExciteWfm(i), burst[i], 1e-13) << i;
  }
  for (int i = 9; i <= 20; ++i) {
    EXPECT_EQ(draft.TmpExciteWfm(i), 0) << i;
  }
  EXPECT_EQ(draft.TmpExciteWfm(21), 9) << "samples behind the points stay";
}

TEST_F(Excitation, DelaysTheBurstByPartsOfASample) {
  draft.TmpExciteDelay = 34e-9F;  // 3.4 samples: from Int(3.9) to Int(11.9)
  CalcExciteWfm();
  const auto start = static_cast<float>(static_cast<double>(34e-9F) * 100e6);
  EXPECT_EQ(draft.TmpExciteWfm(2), 0);
  for (int i = 3; i <= 11; ++i) {
    EXPECT_NEAR(draft.TmpExciteWfm(i), std::sin((i - static_cast<double>(start)) * M_PI / 4), 1e-13)
        << i;
  }
  EXPECT_EQ(draft.TmpExciteWfm(12), 0);
}

TEST_F(Excitation, RoundsItsFirstAndLastSampleHalfUp) {
  design.SampleRateHz = 1;
  draft.TmpExciteFreq = 0.125F;
  struct Case {
    float delay, cycles;
    int first, last;
  };
  // Eight samples to a cycle: Int(s + 0.5) to Int(b + s + 0.5).
  for (const Case& one : {Case{2.5F, 1, 3, 11}, Case{0.25F, 1.03125F, 0, 9}}) {
    draft.TmpExciteDelay = one.delay;
    draft.TmpExciteCycles = one.cycles;
    draft.TmpExcitePhase = 0;
    CalcExciteWfm();
    for (int i = 0; i <= 20; ++i) {
      EXPECT_EQ(draft.TmpExciteWfm(i) != 0, i >= one.first && i <= one.last) << i;
    }
  }
}

// Kept: the phase is rounded to a 32-bit float, which shows in the eighth digit.
TEST_F(Excitation, HoldsItsPhaseInThirtyTwoBits) {
  draft.TmpExcitePhase = 30;
  CalcExciteWfm();
  const auto phase = static_cast<float>(M_PI / 6);
  EXPECT_NEAR(draft.TmpExciteWfm(0), std::sin(static_cast<double>(phase)), 1e-15);
  EXPECT_GT(std::abs(draft.TmpExciteWfm(0) - 0.5), 1e-9);
}

// Kept: the burst's length is rounded to a 32-bit float.
TEST_F(Excitation, HoldsItsLengthInThirtyTwoBits) {
  draft.TmpExcitePoints = 65535;
  draft.TmpExciteFreq = 1;
  draft.TmpExciteCycles = 1;
  design.SampleRateHz = 40000.4999;  // 40000.5 as a 32-bit float, so the burst ends one later
  CalcExciteWfm();
  EXPECT_NE(draft.TmpExciteWfm(40001), 0);
  EXPECT_EQ(draft.TmpExciteWfm(40002), 0);
}

TEST_F(Excitation, SquaresTheBurstForWaveTwoOnly) {
  draft.TmpExcitePhase = 10;
  draft.TmpExciteWave = 2;
  CalcExciteWfm();
  const double square[] = {1, 1, 1, 1, -1, -1, -1, -1, 1};
  for (int i = 0; i <= 8; ++i) {
    EXPECT_EQ(draft.TmpExciteWfm(i), square[i]) << i;
  }
  for (const std::int16_t other : Codes{0, 1, 3}) {
    draft.TmpExciteWave = other;
    CalcExciteWfm();
    EXPECT_LT(draft.TmpExciteWfm(0), 0.2) << other;
  }
}

TEST_F(Excitation, HasAZeroWhereASquareCrossesIt) {
  draft.TmpExciteWave = 2;
  CalcExciteWfm();
  EXPECT_EQ(draft.TmpExciteWfm(0), 0);
}

TEST_F(Excitation, StartsAtTheLastPointForADelayBeyondThePoints) {
  draft.TmpExciteDelay = 1;
  draft.TmpExcitePhase = 90;
  CalcExciteWfm();
  EXPECT_EQ(draft.TmpExciteWfm(19), 0);
  EXPECT_NEAR(draft.TmpExciteWfm(20), 1, 1e-12);
  EXPECT_NEAR(draft.TmpExciteWfm(24), -1, 1e-12) << "and runs on behind the points";
}

TEST_F(Excitation, IsNeverLongerThanThePoints) {
  draft.TmpExciteCycles = 1000;
  CalcExciteWfm();
  EXPECT_NEAR(draft.TmpExciteWfm(18), 1, 1e-12);
  EXPECT_EQ(draft.TmpExciteWfm(22), 0);
}

TEST_F(Excitation, OfAnotherSourceIsLeftAlone) {
  for (const std::int16_t type : Codes{0, 2}) {
    draft.TmpExciteType = type;
    draft.TmpExciteWfm(1) = 9;
    CalcExciteWfm();
    EXPECT_EQ(draft.TmpExciteWfm(1), 9) << type;
  }
}

TEST_F(Excitation, FailsAtFrequencyZeroBeforeItClearsAnything) {
  draft.TmpExciteFreq = 0;
  draft.TmpExciteWfm(0) = 9;
  CalcExciteWfm();
  EXPECT_EQ(shownMessages.Lines(),
            Lines{"ERROR in CalcExciteWfm of frmExcite|Error: 11. Division by zero"});
  EXPECT_EQ(draft.TmpExciteWfm(0), 9);
}

TEST_F(Excitation, FailsBehindTheLastIndexWithTheSamplesBefore) {
  draft.TmpExcitePoints = 65535;
  draft.TmpExcitePhase = 90;
  draft.TmpExciteDelay = 65530e-8F;
  CalcExciteWfm();
  EXPECT_EQ(shownMessages.Lines(),
            Lines{"ERROR in CalcExciteWfm of frmExcite|Error: 9. Subscript out of range"});
  EXPECT_GT(draft.TmpExciteWfm(65530), 0.9);
  EXPECT_NE(draft.TmpExciteWfm(65535), 0);
}

TEST_F(Excitation, FailsForADelayBeforeTheFirstSample) {
  draft.TmpExciteDelay = -1e-7F;
  CalcExciteWfm();
  EXPECT_EQ(shownMessages.Lines(),
            Lines{"ERROR in CalcExciteWfm of frmExcite|Error: 9. Subscript out of range"});
}

// Kept: the working waveform itself becomes the normalised one.
TEST_F(Excitation, IsNormalisedToItsLargestMagnitude) {
  draft.TmpExcitePoints = 3;
  draft.TmpExciteWfm(0) = 1;
  draft.TmpExciteWfm(2) = -4;
  draft.TmpExciteWfm(3) = 2;
  draft.TmpExciteWfm(4) = 100;
  NormaliseExcite();
  EXPECT_EQ(draft.TmpExcitePoints, 3);
  EXPECT_EQ(draft.TmpExciteWfm(0), 0.25);
  EXPECT_EQ(draft.TmpExciteWfm(2), -1);
  EXPECT_EQ(draft.TmpExciteWfm(3), 0.5);
  EXPECT_EQ(draft.TmpExciteWfm(4), 100) << "samples behind the points stay";
}

TEST_F(Excitation, WithoutPointsHasOneToShow) {
  draft.TmpExcitePoints = 0;
  draft.TmpExciteWfm(1) = -2;
  HeadlessSurface picture;
  PreviewExcite(picture);
  EXPECT_EQ(draft.TmpExcitePoints, 1);
  const DrawnOperation& trace = picture.Operations().back();
  ASSERT_EQ(trace.points.size(), 2U);
  EXPECT_EQ(trace.points[0].y, 0);
  EXPECT_EQ(trace.points[1].x, 1);
  EXPECT_EQ(trace.points[1].y, -1);
}

TEST_F(Excitation, OfZerosStaysZero) {
  NormaliseExcite();
  EXPECT_EQ(draft.TmpExciteWfm(0), 0);
  EXPECT_EQ(draft.TmpExcitePoints, 20);
}

class ExcitationCopy : public FreshProgram {
 protected:
  ExcitationCopy() {
    design.ExciteType = 1;
    design.ExciteWave = 2;
    design.ExciteFreq = 3;
    design.ExciteCycles = 4;
    design.ExciteDelay = 5;
    design.ExcitePhase = 6;
    design.ExcitePoints = 7;
    design.NoTimePts = 256;
    design.SampleRateHz = 128e6;
    view.TimeWindowPercent = 50;
  }
};

TEST_F(ExcitationCopy, TakesTheSixSettingsAndThePoints) {
  CopyExciteToTemp();
  EXPECT_EQ(draft.TmpExciteType, 1);
  EXPECT_EQ(draft.TmpExciteWave, 2);
  EXPECT_EQ(draft.TmpExciteFreq, 3);
  EXPECT_EQ(draft.TmpExciteCycles, 4);
  EXPECT_EQ(draft.TmpExciteDelay, 5);
  EXPECT_EQ(draft.TmpExcitePhase, 6);
  EXPECT_EQ(draft.TmpExcitePoints, 7);
}

TEST_F(ExcitationCopy, TakesThePointsOfABurstOnly) {
  for (const std::int16_t type : Codes{0, 2}) {
    design.ExciteType = type;
    draft.TmpExcitePoints = 99;
    CopyExciteToTemp();
    EXPECT_EQ(draft.TmpExcitePoints, 99) << type;
  }
}

TEST_F(ExcitationCopy, ChoosesATimeScaleWhenThereIsNone) {
  CopyExciteToTemp();  // 128 samples are one microsecond
  EXPECT_EQ(view.TimeUnit, "usec");
  EXPECT_EQ(view.TimeScale, 1e-6);
}

TEST_F(ExcitationCopy, CutsTheShareOfTheWindowToSamples) {
  view.TimeWindowPercent = 0.6F;  // 1.536 samples: one, 7.8 nanoseconds
  design.SampleRateHz = 1.2e9;    // one sample 0.83 ns, 1.536 of them 1.28 ns
  CopyExciteToTemp();
  EXPECT_EQ(view.TimeUnit, "psec");
}

TEST_F(ExcitationCopy, KeepsATimeScaleThatStands) {
  view.TimeScale = 1;
  view.TimeUnit = "sec";
  CopyExciteToTemp();
  EXPECT_EQ(view.TimeUnit, "sec");
}

TEST_F(ExcitationCopy, KeepsThePointsWhenThereIsNoSampleRate) {
  design.SampleRateHz = 0;
  draft.TmpExcitePoints = 99;
  CopyExciteToTemp();
  EXPECT_EQ(shownMessages.Lines(),
            Lines{"ERROR in CopyExciteToTemp of frmExcite|Error: 11. Division by zero"});
  EXPECT_EQ(draft.TmpExcitePoints, 99);
  EXPECT_EQ(draft.TmpExcitePhase, 6);
}

struct Fallback {
  std::int16_t plot;
  std::int16_t off;
};

TEST_F(ExcitationCopy, GoneTakesTheExcitationPlotsBackToTheImpulse) {
  const Fallback fallbacks[] = {{17, 16}, {27, 26}, {34, 33}, {16, 16}, {26, 26},
                                {33, 33}, {11, 11}, {51, 51}, {0, 0}};
  for (const Fallback& fallback : fallbacks) {
    for (const std::int16_t on : Codes{1, 2, -1}) {
      view.CurrentPlot = fallback.plot;
      EnableConvolve(on);
      EXPECT_EQ(view.CurrentPlot, fallback.plot) << on;
    }
    EnableConvolve(0);
    EXPECT_EQ(view.CurrentPlot, fallback.off);
  }
}

TEST_F(ExcitationCopy, GoneDisablesTheThreeCommands) {
  for (const std::int16_t on : Codes{1, 0, 2}) {
    EnableConvolve(on);
    for (const Item item : {Item::kViewTxExcite, Item::kViewRxExcite, Item::kView2WayExcite}) {
      EXPECT_EQ(window.IsEnabled(item), on != 0) << on;
    }
  }
}

}  // namespace
}  // namespace halvorne::testing
