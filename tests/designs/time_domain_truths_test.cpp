// What waveforms and measurements of a sweep must be by theory.

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>

#include "designs/shipped_design.h"
#include "engine/design_model.h"
#include "engine/frequency_sweep.h"
#include "engine/piezo_section.h"
#include "plot/plot_select.h"
#include "plot/plot_state.h"
#include "timedomain/sample_rate.h"

namespace halvorne::testing {
namespace {

void Show(std::int16_t plotNumber, std::int16_t form) {
  setup.PlotFormMemory(plotNumber) = form;
  view.CurrentPlot = plotNumber;
  PlotSelect(plotNumber);
}

class MatchedWindow : public ShippedDesign, public ::testing::WithParamInterface<std::string> {
 protected:
  MatchedWindow() { Open(GetParam()); }

  static std::vector<double> Envelope(std::int16_t plotNumber) {
    Show(plotNumber, 1);
    std::vector<double> envelope;
    for (long i = 0; i < design.NoTimePts; ++i) {
      envelope.push_back(points.PlotData(i).Y1);
    }
    return envelope;
  }

  /// A lossless plate of the load's impedance and the area before it, `samples` of delay thick.
  static void AppendWindow(std::size_t samples) {
    const double area = design.FrontArea(design.NoFace);
    const int k = ++design.NoFace;
    AcousticMaterial& window = design.FaceMatl(k);
    window.Velocity = 2000;
    window.Density = design.ZFrontLoad / 2000;
    window.Loss = 0;
    window.LossFreq = 1;
    design.FrontThick(k) = 2000 * static_cast<double>(samples) / design.SampleRateHz;
    design.FrontArea(k) = area;
  }

  static void ExpectMoved(const std::vector<double>& after, const std::vector<double>& before,
                          std::size_t samples) {
    const double peak = *std::max_element(before.begin(), before.end());
    ASSERT_GT(peak, 0);
    for (std::size_t i = 0; i < before.size(); ++i) {
      ASSERT_NEAR(after[(i + samples) % before.size()], before[i], 1e-9 * peak) << i;
    }
  }
};

INSTANTIATE_TEST_SUITE_P(All, MatchedWindow, ::testing::ValuesIn(kArchetypes), DesignName);

TEST_P(MatchedWindow, DelaysTheImpulsesByItsTransitTimeAndTheEchoByTwice) {
  Sweep();
  const std::vector<double> transmitted = Envelope(16);
  const std::vector<double> received = Envelope(26);
  const std::vector<double> echo = Envelope(33);
  constexpr std::size_t kSamples = 37;
  AppendWindow(kSamples);
  Sweep();
  ExpectMoved(Envelope(16), transmitted, kSamples);
  ExpectMoved(Envelope(26), received, kSamples);
  ExpectMoved(Envelope(33), echo, 2 * kSamples);
  EXPECT_TRUE(shownMessages.Lines().empty());
}

/// A weakly coupled layer of 5 MHz between its own impedance and a load, without any resistance in
/// the circuit: its one-way curves are sines of the frequency, its two-way curve a squared sine.
class SineCurve : public FreshProgram {
 protected:
  SineCurve() {
    MakeSimpleDesign(3960);
    design.PZMatl(1).Kt = 0.01;
    design.ZBackLoad = 3e7;
    design.TermTx = 0;
    design.TermRx = 1e-3;
    design.FreqStart = 0.05e6;
    design.FreqStop = 9.95e6;
    SampleRate();
    PiezoConstants();
    std::fill_n(design.ZBackRe.begin(), design.NoFreqPts + 1, design.ZBackLoad);
    PrelimCalc();
    MainCalc();
  }

  /// The cells of a level: centre and width in MHz, width in percent of the centre.
  static void ExpectBand(int row, double lowerAngle) {
    // sin(pi f / 10 MHz) reaches its level at this angle and at pi less it.
    const double width = 10 - 20 * lowerAngle / M_PI;
    const auto& cells = measured.CFBWText[static_cast<std::size_t>(row)];
    EXPECT_NEAR(std::stod(cells[1]), 5, 1.5e-3);
    EXPECT_NEAR(std::stod(cells[2]), width, 1.5e-3);
    EXPECT_NEAR(std::stod(cells[3]), width * 20, 0.03);
  }
};

TEST_F(SineCurve, ShowsItsBandsInTheGrid) {
  constexpr double kLevels[] = {0.5, 0.1, 0.01};
  for (int k = 0; k < 3; ++k) {
    SCOPED_TRACE(kLevels[k]);
    for (const std::int16_t oneWay : {std::int16_t{14}, std::int16_t{24}}) {
      Show(oneWay, 0);
      if (kLevels[k] > 0.0157) {  // the third level lies outside the sweep
        ExpectBand(3 + k, std::asin(kLevels[k]));
      }
    }
    Show(31, 0);
    ExpectBand(3 + k, std::asin(std::sqrt(kLevels[k])));
  }
  EXPECT_TRUE(shownMessages.Lines().empty());
}

}  // namespace
}  // namespace halvorne::testing
