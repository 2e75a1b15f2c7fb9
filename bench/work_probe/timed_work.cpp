#include "timed_work.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <ctime>
#include <filesystem>
#include <string>
#include <string_view>
#include <unistd.h>

#include "bench_designs.h"
#include "engine/frequency_sweep.h"
#include "persistence/design_file.h"
#include "quiet_program.h"
#include "timedomain/transform.h"
#include "timedomain/wave_state.h"

namespace halvorne::bench {
namespace {

double ProcessorSeconds() {
  timespec time{};
  clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
  return static_cast<double>(time.tv_sec) + 1e-9 * static_cast<double>(time.tv_nsec);
}

const std::string& File() {
  static const std::string path = (std::filesystem::temp_directory_path() /
                                   ("halvorne-bench-work-" + std::to_string(::getpid()) + ".dat"))
                                      .string();
  return path;
}

/// As many as take longer than to bring back into the caches what the painting has pushed out.
void Transforms() {
  constexpr int kSamples = 65536;
  constexpr int kTimes = 30;
  for (int time = 0; time < kTimes; ++time) {
    for (int i = 0; i < kSamples; ++i) {
      wave.ImpulseRe(i) = i % 7;
      wave.ImpulseIm(i) = i % 5;
    }
    FFTCalc(wave.ImpulseRe, wave.ImpulseIm, kSamples);
  }
}

struct Work {
  std::string_view name;
  void (*run)();
};

constexpr std::array kWorks = std::to_array<Work>({
    {"sweep", [] { MainCalc(); }},
    {"transform", Transforms},
    {"read", [] { ReadDesignFile(File()); }},
    {"write", [] { WriteDesignFile(File()); }},
});

}  // namespace

void PrintTimeOf(const char* name, const std::function<void()>& before) {
  const auto* const work = std::ranges::find(kWorks, name, &Work::name);
  if (work == kWorks.end()) {
    return;
  }
  const QuietProgram program;
  MakeLargestDesign();
  MainCalc();
  WriteDesignFile(File());
  std::array<double, 7> seconds{};
  for (double& time : seconds) {
    before();
    const double start = ProcessorSeconds();
    work->run();
    time = ProcessorSeconds() - start;
  }
  std::filesystem::remove(File());
  auto* const middle = seconds.begin() + seconds.size() / 2;
  std::nth_element(seconds.begin(), middle, seconds.end());
  std::printf("%.9f\n", *middle);
}

}  // namespace halvorne::bench
