#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>

#include "support/fresh_program.h"
#include "timedomain/responses.h"
#include "timedomain/sample_rate.h"
#include "timedomain/wave_state.h"
#include "timedomain/waves.h"

namespace halvorne::testing {
namespace {

constexpr double kTrueTwoPi = 6.283185307179586;

class ImpulseResponse : public FreshProgram {
 protected:
  static void Sweep(double start, double stop, int intervals, int samples) {
    MakeSimpleDesign(intervals, samples);
    design.FreqStart = start;
    design.FreqStop = stop;
    SampleRate();
  }

  static std::vector<double> Envelope() {
    std::vector<double> envelope;
    envelope.reserve(static_cast<std::size_t>(design.NoTimePts));
    for (int i = 0; i < design.NoTimePts; ++i) {
      envelope.push_back(std::hypot(wave.ImpulseRe(i), wave.ImpulseIm(i)));
    }
    return envelope;
  }
};

TEST_F(ImpulseResponse, IsTheSumOfItsFrequenciesWrittenOut) {
  for (const double start : {0.0, 1e6, 2.3e6}) {
    Sweep(start, 9e6, 16, 256);
    const Wave64 curve = RandomWave(17, 23);
    SetCurve(curve);
    Waveform();
    for (int i = 0; i < 256; ++i) {
      Wide sum = 0;
      for (int k = 0; k <= 16; ++k) {
        const long double frequency = start + k * (9e6L - start) / 16;
        const long double angle = 6.28318530717958L * frequency * i / design.SampleRateHz;
        sum += Wide(curve[k]) * std::polar(1.0L, angle);
      }
      sum *= 2.0L / 256;
      EXPECT_NEAR(wave.ImpulseRe(i), static_cast<double>(sum.real()), 1e-13) << start << " " << i;
      EXPECT_NEAR(wave.ImpulseIm(i), static_cast<double>(sum.imag()), 1e-13) << start << " " << i;
    }
  }
}

TEST_F(ImpulseResponse, IsNotShiftedAtOrBelowTheSmallestFrequency) {
  for (const double start : {0.0, 1e-5}) {
    Sweep(start, 9e6, 16, 256);
    SetCurve(RandomWave(17, 29));
    Waveform();
    const double shifted = wave.ImpulseIm(200);
    design.FreqStart = 0;
    Waveform();
    EXPECT_EQ(wave.ImpulseIm(200), shifted) << start;
  }
}

TEST_F(ImpulseResponse, LeavesNoTraceOfALongerOneInItsPadding) {
  Sweep(0, 9e6, 16, 256);
  for (double& sample : wave.ImpulseRe) {
    sample = 5;
  }
  SetCurve(Wave64(17));
  Waveform();
  for (int i = 0; i < 256; ++i) {
    ASSERT_EQ(wave.ImpulseRe(i), 0) << i;
  }
  EXPECT_EQ(wave.ImpulseRe(256), 5) << "samples behind the record aren't touched";
}

TEST_F(ImpulseResponse, DoublesWithItsCurve) {
  Sweep(1e6, 9e6, 16, 256);
  Wave64 curve = RandomWave(17, 31);
  SetCurve(curve);
  Waveform();
  const std::vector<double> once = Envelope();
  for (std::complex<double>& value : curve) {
    value *= 2;
  }
  SetCurve(curve);
  Waveform();
  const std::vector<double> twice = Envelope();
  for (std::size_t i = 0; i < once.size(); ++i) {
    EXPECT_DOUBLE_EQ(twice[i], 2 * once[i]) << i;
  }
}

struct Record {
  int intervals;
  int samples;
};

TEST_F(ImpulseResponse, HoldsTheEnergyOfItsCurve) {
  for (const Record& record : {Record{16, 256}, Record{400, 4096}, Record{16000, 65536}}) {
    Sweep(1e6, 9e6, record.intervals, record.samples);
    const Wave64 curve = RandomWave(record.intervals + 1, 37);
    SetCurve(curve);
    Waveform();
    long double spectral = 0;
    for (const std::complex<double>& value : curve) {
      spectral += std::norm(value);
    }
    long double energy = 0;
    for (const double sample : Envelope()) {
      energy += static_cast<long double>(sample) * sample;
    }
    EXPECT_NEAR(static_cast<double>(energy * record.samples / (4 * spectral)), 1, 1e-9)
        << record.samples;
  }
}

TEST_F(ImpulseResponse, MovesByTheDelayOfAMatchedWindow) {
  Sweep(1e6, 9e6, 400, 4096);
  Wave64 curve = RandomWave(401, 41);
  SetCurve(curve);
  Waveform();
  const std::vector<double> before = Envelope();
  constexpr int kMoved = 37;
  for (int k = 0; k <= 400; ++k) {
    const double frequency = 1e6 + k * 8e6 / 400;
    curve[k] *= std::polar(1.0, -kTrueTwoPi * frequency * kMoved / design.SampleRateHz);
  }
  SetCurve(curve);
  Waveform();
  const std::vector<double> after = Envelope();
  const double peak = *std::max_element(before.begin(), before.end());
  for (int i = 0; i < 4096; ++i) {
    EXPECT_NEAR(after[(i + kMoved) % 4096], before[i], 1e-9 * peak) << i;
  }
}

TEST_F(ImpulseResponse, OfAFlatCurveIsTheDirichletKernel) {
  for (const double start : {0.0, 1e6}) {
    Sweep(start, 9e6, 400, 4096);
    SetCurve(Wave64(401, 1.0));
    Waveform();
    const std::vector<double> envelope = Envelope();
    EXPECT_NEAR(envelope[0], 2 * 401.0 / 4096, 1e-12);
    for (int i = 1; i < 4096; ++i) {
      const double x = kTrueTwoPi / 2 * i / 4096;
      const double kernel = 2.0 / 4096 * std::abs(std::sin(401 * x) / std::sin(x));
      EXPECT_NEAR(envelope[i], kernel, 1e-9 * envelope[0]) << i;
    }
  }
}

TEST_F(ImpulseResponse, NeverExceedsTheSumOfItsAmplitudes) {
  Sweep(1e6, 9e6, 400, 4096);
  const Wave64 curve = RandomWave(401, 43);
  double sum = 0;
  for (const std::complex<double>& value : curve) {
    sum += std::abs(value);
  }
  SetCurve(curve);
  Waveform();
  for (const double sample : Envelope()) {
    EXPECT_LE(sample, 2.0 / 4096 * sum * (1 + 1e-12));
  }
}

TEST_F(ImpulseResponse, FailsForMoreSamplesThanThereIsRoomFor) {
  Sweep(1e6, 9e6, 16, 65536);
  design.NoTimePts = 131072;
  SampleRate();
  Waveform();
  EXPECT_EQ(shownMessages.Lines(),
            std::vector<std::string>{"ERROR in Waveform of FFT|Error: 9. Subscript out of range"});
}

TEST_F(ImpulseResponse, FailsForTheSmallestOfAllCounts) {
  Sweep(1e6, 9e6, 16, 256);
  design.NoTimePts = std::numeric_limits<std::int32_t>::min();
  Waveform();
  EXPECT_EQ(shownMessages.Lines(),
            std::vector<std::string>{"ERROR in Waveform of FFT|Error: 6. Overflow"});
  shownMessages.Forget();
  design.FreqStart = 0;
  Convolve();
  EXPECT_EQ(shownMessages.Lines().back(), "ERROR in Convolve of FFT|Error: 6. Overflow");
}

TEST_F(ImpulseResponse, FailsWhereItsFrequenciesAreShiftedByNothing) {
  Sweep(1e6, 9e6, 16, 256);
  design.FreqStop = design.FreqStart;
  WaveformIFT();
  EXPECT_EQ(shownMessages.Lines(),
            std::vector<std::string>{"ERROR in WaveformIFT of FFT|Error: 11. Division by zero"});
}

TEST_F(ImpulseResponse, ReportsACurveThatOverflowsWhenDoubled) {
  Sweep(1e6, 9e6, 16, 256);
  points.RawData(3).Y1 = 1e308;
  Waveform();
  EXPECT_EQ(shownMessages.Lines(),
            std::vector<std::string>{"ERROR in Waveform of FFT|Error: 6. Overflow"});
}

}  // namespace
}  // namespace halvorne::testing
