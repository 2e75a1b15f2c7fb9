#include <QImage>
#include <QPainter>
#include <algorithm>
#include <cmath>
#include <cstdint>
#include <ctime>
#include <string>
#include <vector>

#include "bench_designs.h"
#include "dense_line.h"
#include "engine/design_model.h"
#include "engine/frequency_sweep.h"
#include "platform/main_window.h"
#include "platform/qt/picture_surface.h"
#include "plot/headless_window.h"
#include "plot/plot_select.h"
#include "plot/plot_state.h"
#include "quantities/tuning.h"
#include "quiet_program.h"
#include "subjects.h"

namespace halvorne::bench {
namespace {

constexpr int kImpedance = 11;
constexpr int kTransmitExcitation = 17;

/// What a step may take, from the slider to the picture.
template <int kMilliseconds>
void Allowed(benchmark::State& state) {
  for ([[maybe_unused]] auto once : state) {
    state.counters[kReading] = kMilliseconds * 1000.0;
  }
}

/// A window with a picture that is shown.
class ShownWindow {
 public:
  ShownWindow() : before_(&mainWindow()) {
    picture_.SetSize(kDensePicture, 1);
    window_.SetPicture(picture_);
    SetMainWindow(&window_);
  }
  ~ShownWindow() { SetMainWindow(before_); }
  ShownWindow(const ShownWindow&) = delete;
  ShownWindow& operator=(const ShownWindow&) = delete;

  void Paint() {
    QPainter painter(&seen_);
    picture_.PaintOn(painter, seen_.rect());
  }

 private:
  MainWindow* before_;
  HeadlessWindow window_;
  PictureSurface picture_{SurfaceKind::kMainPicture};
  QImage seen_{kDensePicture, QImage::Format_RGB32};
};

/// Moves the thickness of the first face plate, step by step, with the design as it was behind it.
void Steps(benchmark::State& state, int plotNumber, int form) {
  plot.DesignOpen = true;
  ShownWindow shown;
  MainCalc();
  for (int i = 0; i < design.ExcitePoints; ++i) {
    wave.ExciteRe(i) = std::sin(0.01 * i);
  }
  view.CurrentPlot = static_cast<std::int16_t>(plotNumber);
  PlotSelect(view.CurrentPlot);
  mainWindow().SetPlotTypeIndex(form);
  const std::vector<TunableNumber> numbers = TunableNumbers();
  const auto thickness = std::ranges::find(numbers, "FrontThick(1)", &TunableNumber::field);
  const double start = TunedValue(*thickness);
  Tuning tuning;
  int step = 0;
  const auto move = [&] {
    tuning.Set(*thickness, start * (1 + 0.01 * ++step));
    if (const std::string failure = tuning.Show(); !failure.empty()) {
      state.SkipWithError(failure.c_str());
    }
    shown.Paint();
  };
  move();  // the first one calculates the curve behind too
  for ([[maybe_unused]] auto once : state) {
    constexpr int steps = 5;
    const std::clock_t begin = std::clock();
    for (int i = 0; i < steps; ++i) {
      move();
    }
    state.counters[kReading] =
        static_cast<double>(std::clock() - begin) * 1e6 / CLOCKS_PER_SEC / steps;
  }
  CheckQuiet(state);
}

template <void (*kMake)(), int kPlot, int kForm>
void StepsOf(benchmark::State& state) {
  kMake();
  Steps(state, kPlot, kForm);
}

}  // namespace

std::vector<Row> TuningRows() {
  return {{"tuning, largest", 1, 0.1, Allowed<100>, StepsOf<MakeLargestDesign, kImpedance, 0>,
           Taken::kByReading},
          {"tuning, largest, waveform", 1, 0.2, Allowed<100>,
           StepsOf<MakeLargestDesign, kTransmitExcitation, 0>, Taken::kByReading},
          {"tuning, typical", 1, 0.1, Allowed<30>, StepsOf<MakeTypicalDesign, kImpedance, 0>,
           Taken::kByReading}};
}

}  // namespace halvorne::bench
