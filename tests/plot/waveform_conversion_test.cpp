#include <cmath>
#include <gtest/gtest.h>

#include "plot/conversions.h"
#include "plot/plot_state.h"
#include "support/fresh_program.h"

namespace halvorne {
namespace {

constexpr int kTimePoints = 32;
constexpr int kIntervals = 4;

class WaveformConversionTest : public testing::FreshProgram {
 protected:
  WaveformConversionTest() {
    testing::MakeSimpleDesign(kIntervals, kTimePoints);
    for (int i = 0; i < kTimePoints; ++i) {
      const double envelope = std::exp(-0.1 * (i - 6) * (i - 6)) + 1e-6;
      wave.ImpulseRe(i) = envelope * std::cos(1.1 * i);
      wave.ImpulseIm(i) = envelope * std::sin(1.1 * i);
    }
    for (int i = 0; i <= kIntervals; ++i) {
      wave.ImpulseSpec(i) = -10.0 - i;
      wave.ResponseSpec(i) = -20.0 * i;
      points.RawData(i) = {3.0 * (i + 1), -4.0 * (i + 1)};
    }
  }

  void Convert(int index, int plotNumber = 16) {
    view.CurrentPlot = static_cast<std::int16_t>(plotNumber);
    WfmConvert(static_cast<std::int16_t>(index), view.CurrentPlot, wave.ImpulseRe, wave.ImpulseIm,
               wave.ImpulseSpec, points.PlotData);
  }

  double Envelope(int i) { return std::hypot(wave.ImpulseRe(i), wave.ImpulseIm(i)); }
};

enum class Channel { kRe, kIm, kMagnitude, kEnvelope, kZero, kSpectrum };

struct Form {
  int index;
  Channel first;
  Channel second;
  bool log;
  bool dualTrace;
  Channel pulse;  ///< what the pulse is measured on
};

constexpr Form kForms[] = {
    {0, Channel::kRe, Channel::kZero, false, false, Channel::kMagnitude},
    {1, Channel::kEnvelope, Channel::kZero, false, false, Channel::kEnvelope},
    {2, Channel::kEnvelope, Channel::kZero, true, false, Channel::kEnvelope},
    {3, Channel::kRe, Channel::kIm, false, true, Channel::kMagnitude},
    {4, Channel::kEnvelope, Channel::kMagnitude, false, true, Channel::kEnvelope},
    {5, Channel::kEnvelope, Channel::kMagnitude, true, true, Channel::kEnvelope},
    {6, Channel::kRe, Channel::kSpectrum, false, true, Channel::kMagnitude},
    {7, Channel::kEnvelope, Channel::kSpectrum, false, true, Channel::kEnvelope},
    {8, Channel::kEnvelope, Channel::kSpectrum, true, true, Channel::kEnvelope},
};

double Decibels(double value) {
  return 20 * std::log10(value);
}

TEST_F(WaveformConversionTest, NineFormsOfAWaveform) {
  const auto value = [this](Channel channel, int i) {
    switch (channel) {
      case Channel::kRe:
        return wave.ImpulseRe(i);
      case Channel::kIm:
        return wave.ImpulseIm(i);
      case Channel::kMagnitude:
        return std::fabs(wave.ImpulseRe(i));
      case Channel::kEnvelope:
        return Envelope(i);
      case Channel::kSpectrum:
        return i <= kIntervals ? Decibels(5.0 * (i + 1)) : -500.0;
      default:
        return 0.0;
    }
  };
  for (const Form& form : kForms) {
    SCOPED_TRACE(form.index);
    for (int i = 0; i < kTimePoints; ++i) {
      points.PlotData(i) = {77, 78};
    }
    plot.DualTrace = !form.dualTrace;
    plot.AmplLog = plot.SpectrumShown = false;
    measured.CFBWValid = measured.PulseWidthValid = measured.AttenValid = false;
    Convert(form.index);
    for (int i = 0; i < kTimePoints; ++i) {
      double first = value(form.first, i);
      double second = value(form.second, i);
      if (form.log) {
        first = Decibels(first);
        second = form.second == Channel::kMagnitude ? Decibels(second) : second;
      }
      EXPECT_NEAR(points.PlotData(i).Y1, first, 1e-10) << i;
      EXPECT_NEAR(points.PlotData(i).Y2, second, 1e-10) << i;
      EXPECT_NEAR(plot.MeasBuf(i), value(form.pulse, i), 1e-12) << i;
    }
    const bool spectrum = form.index >= 6;
    EXPECT_EQ(plot.DualTrace, form.dualTrace);
    EXPECT_EQ(plot.AmplLog, form.log);
    EXPECT_EQ(plot.SpectrumShown, spectrum);
    EXPECT_EQ(measured.CFBWValid, spectrum);
    EXPECT_TRUE(measured.PulseWidthValid);
    EXPECT_TRUE(measured.AttenValid);
  }
}

TEST_F(WaveformConversionTest, OnlyTheRecordIsTouched) {
  points.PlotData(kTimePoints) = {77, 78};
  for (const Form& form : kForms) {
    Convert(form.index);
    EXPECT_EQ(points.PlotData(kTimePoints).Y1, 77);
    EXPECT_EQ(points.PlotData(kTimePoints).Y2, 78);
  }
}

TEST_F(WaveformConversionTest, ExcitationPlotsShowTheSpectrumTheyAreGiven) {
  for (const int plotNumber : {17, 27, 34}) {
    Convert(6, plotNumber);
    for (int i = 0; i < kTimePoints; ++i) {
      EXPECT_EQ(points.PlotData(i).Y2, i <= kIntervals ? -10.0 - i : -500.0) << i;
    }
  }
}

TEST_F(WaveformConversionTest, TheBandOfAnExcitationPlotIsTheResponsesWhateverIsConverted) {
  design.NoTimePts = 2;  // leaves the band's amplitudes in the buffer behind the two samples
  Convert(6, 17);
  for (int i = 2; i <= kIntervals; ++i) {
    EXPECT_NEAR(plot.MeasBuf(i), std::pow(0.1, i), 1e-12) << i;
  }
}

TEST_F(WaveformConversionTest, TheBandOfAnImpulsePlotIsTheGatheredCurve) {
  design.NoTimePts = 2;
  Convert(6, 16);
  for (int i = 2; i <= kIntervals; ++i) {
    EXPECT_NEAR(plot.MeasBuf(i), 5.0 * (i + 1), 1e-12) << i;
  }
}

TEST_F(WaveformConversionTest, AnEmptyBinOfTheSpectrumBecomesTheSmallestAmplitude) {
  design.NoTimePts = 2;
  points.RawData(3) = {0, 0};
  Convert(6, 16);
  EXPECT_NEAR(points.PlotData(3).Y2, -760, 1e-10);
  EXPECT_EQ(plot.MeasBuf(3), 1e-38) << "the logarithm writes back";
}

TEST_F(WaveformConversionTest, SilenceIsMinus760Decibels) {
  wave.ImpulseRe(9) = wave.ImpulseIm(9) = 0;
  Convert(5);
  EXPECT_NEAR(points.PlotData(9).Y1, -760, 1e-10);
  EXPECT_NEAR(points.PlotData(9).Y2, -760, 1e-10);
  EXPECT_EQ(plot.MeasBuf(9), 0) << "the pulse is measured on the waveform itself";
}

TEST_F(WaveformConversionTest, AnotherIndexOnlyMeasures) {
  points.PlotData(0) = {77, 78};
  plot.DualTrace = true;
  plot.MeasBuf(3) = 79;
  Convert(9);
  EXPECT_EQ(points.PlotData(0).Y1, 77);
  EXPECT_EQ(plot.MeasBuf(3), 79);
  EXPECT_FALSE(plot.SpectrumShown);
  EXPECT_TRUE(plot.DualTrace);
  EXPECT_TRUE(measured.PulseWidthValid);
}

TEST_F(WaveformConversionTest, AnEnvelopeThatOverflowsFailsAtItsSample) {
  wave.ImpulseRe(5) = 1e200;
  points.PlotData(5) = {77, 78};
  Convert(1);
  EXPECT_EQ(shownMessages.Lines(),
            std::vector<std::string>{"ERROR in WfmConvert of PLOTIT|Error: 6. Overflow"});
  EXPECT_NEAR(points.PlotData(4).Y1, Envelope(4), 1e-12);
  EXPECT_EQ(points.PlotData(5).Y1, 77);
  EXPECT_FALSE(measured.PulseWidthValid);
}

}  // namespace
}  // namespace halvorne
