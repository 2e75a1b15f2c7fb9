#include <cmath>
#include <gtest/gtest.h>

#include "support/fresh_program.h"
#include "timedomain/responses.h"
#include "timedomain/sample_rate.h"
#include "timedomain/wave_state.h"
#include "timedomain/waves.h"

namespace halvorne::testing {
namespace {

constexpr int kIntervals = 16;
constexpr int kSamples = 256;

class Convolution : public FreshProgram {
 protected:
  static void Sweep(double start, double stop) {
    MakeSimpleDesign(kIntervals, kSamples);
    design.FreqStart = start;
    design.FreqStop = stop;
    SampleRate();
  }

  /// An impulse response of a random curve and a random excitation.
  static void SetWaves() {
    SetCurve(RandomWave(kIntervals + 1, 47));
    Waveform();
    const Wave64 burst = RandomWave(kSamples, 53);
    for (int i = 0; i < kSamples; ++i) {
      wave.ExciteRe(i) = burst[i].real();
    }
  }
};

void ExpectLevel(double level, const Wide& value, int bin) {
  EXPECT_NEAR(level, static_cast<double>(20 * std::log10(std::abs(value))), 1e-9) << bin;
}

// From 70 MHz on the band lies above half the sample rate of 128 MHz.
TEST_F(Convolution, EqualsItsComplexProductWrittenOut) {
  for (const double start : {0.0, 1.3e6, 2e6, 70e6}) {
    Sweep(start, start < 10e6 ? 10e6 : start + 8e6);
    shownMessages.AnswerNext(MessageAnswer::kOk);
    SetWaves();
    const std::vector<Wide> h = DirectSum(Widened(wave.ImpulseRe, wave.ImpulseIm, kSamples), -1);
    const std::vector<Wide> e = [] {
      static TimeCurve none;
      return DirectSum(Widened(wave.ExciteRe, none, kSamples), -1);
    }();
    const int low = static_cast<int>(std::floor(start / design.FreqStep + 0.5));
    std::vector<Wide> product(kSamples);
    std::vector<Wide> analytic(kSamples);
    for (int i = 0; i < kSamples; ++i) {
      product[i] = i >= low && i <= low + kIntervals ? h[i] * e[i] : Wide(0);
      analytic[i] = i < kSamples / 2 ? 2.0L * e[i] : Wide(0);
    }
    const std::vector<Wide> response = DirectSum(product, +1);
    const std::vector<Wide> excitation = DirectSum(analytic, +1);
    Convolve();
    EXPECT_EQ(wave.ConvLoIdx, low);
    EXPECT_EQ(wave.ConvHiIdx, low + kIntervals);
    for (int i = 0; i < kSamples; ++i) {
      EXPECT_NEAR(wave.ResponseRe(i), static_cast<double>(response[i].real() / kSamples), 1e-12);
      EXPECT_NEAR(wave.ResponseIm(i), static_cast<double>(response[i].imag() / kSamples), 1e-12);
      EXPECT_NEAR(wave.ExciteIm(i), static_cast<double>(excitation[i].imag() / kSamples), 1e-12);
    }
    for (int bin = 0; bin <= kIntervals; ++bin) {
      ExpectLevel(wave.ImpulseSpec(bin), h[bin + low], bin);
      ExpectLevel(wave.ExciteSpec(bin), e[bin + low], bin);
      ExpectLevel(wave.ResponseSpec(bin), h[bin + low] * e[bin + low], bin);
    }
  }
}

TEST_F(Convolution, FindsTheBandOfASweepFromZero) {
  Sweep(0, 10e6);
  wave.ConvLoIdx = 9;
  Convolve();
  EXPECT_EQ(wave.ConvLoIdx, 0);
  EXPECT_EQ(wave.ConvHiIdx, kIntervals);
  EXPECT_EQ(wave.ConvLoFreq, 0);
  EXPECT_EQ(wave.ConvHiFreq, 10e6);
}

TEST_F(Convolution, TakesTheLimitsOfASweepFromNextToZeroAsTheyAre) {
  Sweep(1e-5, 10e6);
  Convolve();
  EXPECT_EQ(wave.ConvLoIdx, 0);
  EXPECT_EQ(wave.ConvLoFreq, 1e-5);
  EXPECT_EQ(wave.ConvHiFreq, 10e6) << "not the last bin's, which lies lower by the start";
}

TEST_F(Convolution, FindsTheNearestBinsOfAnyOtherSweep) {
  Sweep(1.3e6, 9.3e6);  // bins of 0.5 MHz: 2.6 is nearest to 3
  Convolve();
  EXPECT_EQ(wave.ConvLoIdx, 3);
  EXPECT_EQ(wave.ConvHiIdx, 19);
  EXPECT_DOUBLE_EQ(wave.ConvLoFreq, 1.5e6);
  EXPECT_DOUBLE_EQ(wave.ConvHiFreq, 9.5e6);
}

TEST_F(Convolution, OfAUnitImpulseIsTheImpulseResponse) {
  Sweep(1e6, 9e6);  // starts on a bin, so the band holds all of the curve
  SetWaves();
  for (double& sample : wave.ExciteRe) {
    sample = 0;
  }
  wave.ExciteRe(0) = 1;
  Convolve();
  for (int i = 0; i < kSamples; ++i) {
    EXPECT_NEAR(wave.ResponseRe(i), wave.ImpulseRe(i), 1e-13) << i;
    EXPECT_NEAR(wave.ResponseIm(i), wave.ImpulseIm(i), 1e-13) << i;
  }
}

TEST_F(Convolution, MakesTheSineOfACosine) {
  Sweep(1e6, 9e6);
  for (int i = 0; i < kSamples; ++i) {
    wave.ExciteRe(i) = std::cos(6.283185307179586 * 10 * i / kSamples);
  }
  Convolve();
  for (int i = 0; i < kSamples; ++i) {
    EXPECT_NEAR(wave.ExciteIm(i), std::sin(6.283185307179586 * 10 * i / kSamples), 1e-12) << i;
  }
}

TEST_F(Convolution, KeepsTheExcitationAndReplacesItsQuadrature) {
  Sweep(1e6, 9e6);
  SetWaves();
  const TimeCurve before = wave.ExciteRe;
  for (double& sample : wave.ExciteIm) {
    sample = 1e9;
  }
  Convolve();
  for (int i = 0; i < kSamples; ++i) {
    ASSERT_EQ(wave.ExciteRe(i), before(i)) << i;
    ASSERT_LT(std::abs(wave.ExciteIm(i)), 10) << i;
  }
  EXPECT_EQ(wave.ExciteIm(kSamples), 1e9) << "samples behind the record aren't touched";
}

TEST_F(Convolution, KeepsAnEarlierPlotsLevelsBehindTheBand) {
  Sweep(1e6, 9e6);
  SetWaves();
  for (TimeCurve* spectrum : {&wave.ImpulseSpec, &wave.ExciteSpec, &wave.ResponseSpec}) {
    for (double& level : *spectrum) {
      level = 777;
    }
  }
  Convolve();
  for (const TimeCurve* spectrum : {&wave.ImpulseSpec, &wave.ExciteSpec, &wave.ResponseSpec}) {
    EXPECT_NE((*spectrum)(kIntervals), 777);
    EXPECT_EQ((*spectrum)(kIntervals + 1), 777);
  }
}

TEST_F(Convolution, OfNothingHasTheLevelOfZero) {
  Sweep(1e6, 9e6);
  Convolve();
  EXPECT_DOUBLE_EQ(wave.ImpulseSpec(0), -380);
  EXPECT_DOUBLE_EQ(wave.ExciteSpec(kIntervals), -380);
  EXPECT_DOUBLE_EQ(wave.ResponseSpec(5), -380);
  EXPECT_TRUE(shownMessages.Shown().empty());
}

TEST_F(Convolution, FailsForABandBehindTheLastIndexAndStopsThere) {
  Sweep(1e6, 9e6);
  design.FreqStart = 65530 * design.FreqStep;  // the rate stays that of the narrower sweep
  wave.ResponseRe(65535) = 3;
  wave.ImpulseSpec(6) = 777;
  wave.ExciteIm(0) = 777;
  Convolve();
  EXPECT_EQ(shownMessages.Lines(),
            std::vector<std::string>{"ERROR in Convolve of FFT|Error: 9. Subscript out of range"});
  EXPECT_EQ(wave.ConvLoIdx, 65530);
  EXPECT_EQ(wave.ConvHiIdx, 65546);
  EXPECT_EQ(wave.ResponseRe(65535), 0) << "the last index is still done";
  EXPECT_DOUBLE_EQ(wave.ImpulseSpec(5), -380);
  EXPECT_EQ(wave.ImpulseSpec(6), 0) << "cleared but not reached";
}

TEST_F(Convolution, FailsForABandAboveTheLastIndexFromItsStart) {
  Sweep(1e6, 9e6);
  design.FreqStart = 70000 * design.FreqStep;
  for (double& sample : wave.ResponseRe) {
    sample = 3;
  }
  for (TimeCurve* spectrum : {&wave.ImpulseSpec, &wave.ExciteSpec, &wave.ResponseSpec}) {
    (*spectrum)(0) = (*spectrum)(kIntervals) = 777;
  }
  Convolve();
  EXPECT_EQ(shownMessages.Lines(),
            std::vector<std::string>{"ERROR in Convolve of FFT|Error: 9. Subscript out of range"});
  EXPECT_EQ(wave.ResponseRe(65535), 0);
  for (const TimeCurve* spectrum : {&wave.ImpulseSpec, &wave.ExciteSpec, &wave.ResponseSpec}) {
    EXPECT_EQ((*spectrum)(0), 0) << "cleared and never reached";
    EXPECT_EQ((*spectrum)(kIntervals), 0);
  }
}

TEST_F(Convolution, FailsWithoutASampleRate) {
  Sweep(1e6, 9e6);
  design.SampleRateHz = 0;
  Convolve();
  EXPECT_EQ(shownMessages.Lines(),
            std::vector<std::string>{"ERROR in Convolve of FFT|Error: 11. Division by zero"});
}

}  // namespace
}  // namespace halvorne::testing
