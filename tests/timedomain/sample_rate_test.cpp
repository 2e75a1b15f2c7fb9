#include "timedomain/sample_rate.h"

#include <cmath>
#include <gtest/gtest.h>

#include "support/fresh_program.h"
#include "timedomain/responses.h"
#include "timedomain/view.h"
#include "timedomain/wave_state.h"

namespace halvorne::testing {
namespace {

using Lines = std::vector<std::string>;

class SampleRates : public FreshProgram {
 protected:
  static void Sweep(double start, double stop, int intervals, int samples) {
    MakeSimpleDesign();
    design.FreqStart = start;
    design.FreqStop = stop;
    design.NoFreqPts = intervals;
    design.NoTimePts = samples;
    SampleRate();
  }
};

TEST_F(SampleRates, AreDerivedFromSweepAndPointCounts) {
  wave.TimeStart = 5;
  Sweep(1e6, 9e6, 16, 256);
  EXPECT_EQ(design.FreqStep, 0.5e6);
  EXPECT_EQ(design.SampleRateHz, 128e6);
  EXPECT_EQ(wave.TimeStart, 0);
  EXPECT_DOUBLE_EQ(design.TimeWindow, 255 / 128e6);
}

TEST_F(SampleRates, MultiplyBeforeTheyDivide) {
  Sweep(0, 0.3, 3, 1000);  // no power of two, with which both orders are the same
  EXPECT_EQ(design.SampleRateHz, 0.3 * 1000 / 3);
  EXPECT_NE(design.SampleRateHz, 0.3 / 3 * 1000);
}

TEST_F(SampleRates, GiveTheLimitsTheirTexts) {
  Sweep(0.25e6, 12.3456e6, 16, 256);
  EXPECT_EQ(wave.FreqStartText, "0.250");
  EXPECT_EQ(wave.FreqStopText, "12.346");
}

TEST_F(SampleRates, FailWithoutIntervalsAndLeaveTheRest) {
  Sweep(1e6, 9e6, 16, 256);
  design.NoFreqPts = 0;
  SampleRate();
  EXPECT_EQ(shownMessages.Lines(), Lines{"ERROR in SampleRate of FFT|Error: 11. Division by zero"});
  EXPECT_EQ(design.SampleRateHz, 128e6);
}

TEST_F(SampleRates, FailWithoutASpanOnceTheRateIsZero) {
  Sweep(1e6, 9e6, 16, 256);
  const double before = design.TimeWindow;
  design.FreqStop = design.FreqStart;
  SampleRate();
  EXPECT_EQ(shownMessages.Lines(), Lines{"ERROR in SampleRate of FFT|Error: 11. Division by zero"});
  EXPECT_EQ(design.SampleRateHz, 0);
  EXPECT_EQ(design.TimeWindow, before);
}

class BurstOnShow : public SampleRates {
 protected:
  BurstOnShow() {
    Sweep(0, 10e6, 100, 1000);  // 100 MHz
    view.CurrentPlot = 17;
    design.ExciteType = 1;
    design.ExciteWave = 1;
    design.ExciteFreq = 25e6F;  // four samples to a cycle
    design.ExciteCycles = 2;
    design.ExcitePoints = 6;
    design.ExciteLength = 6;
    for (double& sample : wave.ExciteRe) {
      sample = 9;
    }
  }
};

TEST_F(BurstOnShow, IsSampledAnewAndTheRestIsZero) {
  SampleRate();
  const double burst[] = {0, 1, 0, -1, 0, 1, 0};
  for (int i = 0; i <= 6; ++i) {
    EXPECT_NEAR(wave.ExciteRe(i), burst[i], 1e-12) << i;
  }
  for (int i = 7; i <= 65535; ++i) {
    ASSERT_EQ(wave.ExciteRe(i), 0) << i;
  }
}

TEST_F(BurstOnShow, LosesTheSamplesBehindItsPointsInTheCopy) {
  design.ExciteCycles = 4;
  design.ExciteDelay = 3e-8F;
  SampleRate();
  EXPECT_NEAR(std::abs(draft.TmpExciteWfm(8)), 1, 1e-6) << "the burst itself runs on";
  EXPECT_EQ(wave.ExciteRe(7), 0);
  EXPECT_EQ(wave.ExciteRe(8), 0);
}

TEST_F(BurstOnShow, IsKeptOnOtherPlotsAndForOtherSources) {
  struct Case {
    std::int16_t plot;
    std::int16_t type;
    bool anew;
  };
  const Case cases[] = {{17, 1, true},  {27, 1, true},  {34, 1, true},
                        {16, 1, false}, {26, 1, false}, {33, 1, false},
                        {11, 1, false}, {17, 0, false}, {17, 2, false}};
  for (const Case& one : cases) {
    view.CurrentPlot = one.plot;
    design.ExciteType = one.type;
    wave.ExciteRe(65535) = 9;
    SampleRate();
    EXPECT_EQ(wave.ExciteRe(65535), one.anew ? 0 : 9) << one.plot << " type " << one.type;
  }
}

TEST_F(BurstOnShow, LongerThanTheWaveformEndsInTheBox) {
  design.ExciteLength = 65536;
  SampleRate();
  EXPECT_EQ(shownMessages.Lines(),
            Lines{"ERROR in SampleRate of FFT|Error: 9. Subscript out of range"});
}

using AliasingGuard = SampleRates;

TEST_F(AliasingGuard, ShowsItsWarningLetterByLetter) {
  Sweep(5e6, 9e6, 100, 256);  // rate 4 MHz x 256 / 100; r = 256 / 56 = 4.5714...
  bool invalid = false;
  ValidIFT(invalid);
  ASSERT_EQ(shownMessages.Shown().size(), 1U);
  const Message& box = shownMessages.Shown().front();
  EXPECT_EQ(box.title, "WARNING:  ALIASING ERROR");
  EXPECT_EQ(box.icon, MessageIcon::kCritical);
  EXPECT_EQ(box.buttons, MessageButtons::kOkCancel);
  EXPECT_EQ(box.defaultAnswer, MessageAnswer::kCancel);
  EXPECT_EQ(box.text,
            "Frequency limits are currently 5 to 9MHz.\r\n"
            "No. of points in frequency and time domains: 100; 256.\r\n"
            "The resultant waveform sample rate is 10.24MHz.\r\n"
            "The time waveform will be undersampled, which will result in aliasing.\r\n"
            "To avoid undersampling, you must enter an upper frequency limit which is\r\n"
            "at least 4.571 x (lower frequency limit).  Using a factor of 2 x (lower\r\n"
            "limit) will result in a more satisfactory waveform plot in most cases.\r\n"
            "\r\n"
            "Choose OK to continue, Cancel to exit.");
}

TEST_F(AliasingGuard, ShowsANegativeFactorAsItIs) {
  Sweep(1.5e6, 9.25e6, 200, 256);  // r = 256 / -144 = -1.777..., rate 7.75 x 1.28
  bool invalid = false;
  ValidIFT(invalid);
  ASSERT_EQ(shownMessages.Shown().size(), 1U);
  const std::string& text = shownMessages.Shown().front().text;
  EXPECT_NE(text.find("currently 1.5 to 9.25MHz.\r\n"), std::string::npos) << text;
  EXPECT_NE(text.find("domains: 200; 256.\r\n"), std::string::npos) << text;
  EXPECT_NE(text.find("rate is 9.92MHz.\r\n"), std::string::npos) << text;
  EXPECT_NE(text.find("at least -1.777 x (lower"), std::string::npos) << text;
}

TEST_F(AliasingGuard, LetsTheEqualSignPassAtFrequencyZero) {
  Sweep(0, 10e6, 128, 256);
  ASSERT_EQ(design.SampleRateHz, 2 * design.FreqStop);
  bool invalid = true;
  ValidIFT(invalid);
  EXPECT_FALSE(invalid);
  EXPECT_TRUE(shownMessages.Shown().empty());
}

TEST_F(AliasingGuard, LooksAtNothingButTheRate) {
  Sweep(1e6, 9e6, 16, 256);
  design.DesignFreq = 1e12;
  bool invalid = true;
  ValidIFT(invalid);
  EXPECT_FALSE(invalid);
  EXPECT_TRUE(shownMessages.Shown().empty());
}

// Kept: the division fails instead of the warning, and the waveform is made.
TEST_F(AliasingGuard, FailsForTwiceAsManySamplesAsIntervalsAboveFrequencyZero) {
  Sweep(1e6, 9e6, 128, 256);
  bool invalid = true;
  ValidIFT(invalid);
  EXPECT_FALSE(invalid);
  EXPECT_EQ(shownMessages.Lines(), Lines{"ERROR in ValidIFT of FFT|Error: 11. Division by zero"});
}

TEST_F(AliasingGuard, TakesTheAnswer) {
  Sweep(5e6, 9e6, 100, 256);
  bool invalid = false;
  shownMessages.AnswerNext(MessageAnswer::kCancel);
  ValidIFT(invalid);
  EXPECT_TRUE(invalid);
  shownMessages.AnswerNext(MessageAnswer::kOk);
  ValidIFT(invalid);
  EXPECT_FALSE(invalid);
}

TEST_F(AliasingGuard, KeepsTheWaveformWhenCancelledAndAsksAgainEachTime) {
  Sweep(5e6, 9e6, 100, 256);
  wave.ImpulseRe(3) = 42;
  Waveform();
  Waveform();
  EXPECT_TRUE(wave.WaveformInvalid);
  EXPECT_EQ(wave.ImpulseRe(3), 42);
  EXPECT_EQ(shownMessages.Shown().size(), 2U);
  shownMessages.AnswerNext(MessageAnswer::kOk);
  Waveform();
  EXPECT_FALSE(wave.WaveformInvalid);
  EXPECT_EQ(wave.ImpulseRe(3), 0);
}

struct Cut {
  double value;
  std::int32_t digits;
  double cut;
};

// Kept: digits are cut off, not rounded.
TEST(Roundit, CutsTowardsZero) {
  const Cut cuts[] = {{1.9999, 3, 1.999}, {-1.9999, 3, -1.999}, {2.5, 0, 2},
                      {-2.5, 0, -2},      {199, -2, 100},       {0.0004, 3, 0}};
  for (const Cut& cut : cuts) {
    EXPECT_DOUBLE_EQ(Roundit(cut.value, cut.digits), cut.cut) << cut.value;
  }
}

TEST_F(AliasingGuard, ReportsARounditThatOverflows) {
  EXPECT_EQ(Roundit(1e300, 100), 0);
  EXPECT_EQ(shownMessages.Lines(), Lines{"ERROR in Roundit of FFT|Error: 6. Overflow"});
}

}  // namespace
}  // namespace halvorne::testing
