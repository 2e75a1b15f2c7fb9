#include <algorithm>
#include <cmath>
#include <fftw3.h>
#include <memory>
#include <vector>

#include "bench_designs.h"
#include "plot/conversions.h"
#include "quiet_program.h"
#include "subjects.h"
#include "timedomain/plot_points.h"
#include "timedomain/responses.h"
#include "timedomain/transform.h"
#include "timedomain/wave_state.h"

namespace halvorne::bench {
namespace {

constexpr int kSamples = 65536;

/// A transform of FFTW's on split arrays, planned once with measurements.
class SplitTransform {
 public:
  SplitTransform() : re(fftw_alloc_real(kSamples)), im(fftw_alloc_real(kSamples)) {
    fftw_iodim dimension = {kSamples, 1, 1};
    plan_ = fftw_plan_guru_split_dft(1, &dimension, 0, nullptr, re, im, re, im, FFTW_MEASURE);
  }
  ~SplitTransform() {
    fftw_destroy_plan(plan_);
    fftw_free(re);
    fftw_free(im);
  }
  SplitTransform(const SplitTransform&) = delete;
  SplitTransform& operator=(const SplitTransform&) = delete;

  void Execute() const { fftw_execute(plan_); }

  double* re;
  double* im;

 private:
  fftw_plan plan_;
};

const SplitTransform& Yardstick() {
  static const SplitTransform transform;
  return transform;
}

/// A smooth pulse, anew before each transform, since unscaled transforms in a row would overflow.
void FillPulse(double* re, double* im) {
  static const std::vector<double> pulse = [] {
    std::vector<double> values(kSamples);
    for (int i = 0; i < kSamples; ++i) {
      values[i] = std::exp(-1e-4 * i) * std::sin(0.3 * i);
    }
    return values;
  }();
  std::copy(pulse.begin(), pulse.end(), re);
  std::copy(pulse.rbegin(), pulse.rend(), im);
}

template <int kTimes>
void FftwTransforms(benchmark::State& state) {
  const SplitTransform& transform = Yardstick();
  for ([[maybe_unused]] auto once : state) {
    state.PauseTiming();
    FillPulse(transform.re, transform.im);
    state.ResumeTiming();
    for (int i = 0; i < kTimes; ++i) {
      transform.Execute();
    }
    benchmark::ClobberMemory();
  }
}

void OurTransform(benchmark::State& state) {
  for ([[maybe_unused]] auto once : state) {
    state.PauseTiming();
    FillPulse(wave.ImpulseRe.data(), wave.ImpulseIm.data());
    state.ResumeTiming();
    FFTCalc(wave.ImpulseRe, wave.ImpulseIm, kSamples);
    benchmark::ClobberMemory();
  }
  CheckQuiet(state);
}

/// A curve with a band in its middle and a delay, without the time of a sweep.
void SetCurve() {
  for (int k = 0; k <= design.NoFreqPts; ++k) {
    const double x = 6.0 * k / design.NoFreqPts - 3;
    const double amplitude = std::exp(-x * x);
    points.RawData(k) = {amplitude * std::cos(0.05 * k), -amplitude * std::sin(0.05 * k)};
  }
}

/// What choosing an excitation plot calculates, with spectrum, up to the point where it is drawn.
void ExcitationPlot(benchmark::State& state) {
  constexpr std::int16_t kTransmit = 17;
  constexpr std::int16_t kWaveformAndSpectrum = 6;
  MakeLargestDesign();
  SetCurve();
  for ([[maybe_unused]] auto once : state) {
    Waveform();
    Convolve();
    WfmConvert(kWaveformAndSpectrum, kTransmit, wave.ImpulseRe, wave.ImpulseIm, wave.ImpulseSpec,
               points.PlotDataImpulse);
    WfmConvert(kWaveformAndSpectrum, kTransmit, wave.ExciteRe, wave.ExciteIm, wave.ExciteSpec,
               points.PlotDataExcite);
    WfmConvert(kWaveformAndSpectrum, kTransmit, wave.ResponseRe, wave.ResponseIm, wave.ResponseSpec,
               points.PlotData);
    benchmark::ClobberMemory();
  }
  CheckQuiet(state);
}

}  // namespace

std::vector<Row> TransformRows() {
  return {{"transform, 65536", 3, 0.85, FftwTransforms<1>, OurTransform},
          {"excitation plot, 65536", 6, 1.2, FftwTransforms<4>, ExcitationPlot}};
}

}  // namespace halvorne::bench
