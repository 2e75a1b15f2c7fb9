#include "timed_sweep.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <ctime>

#include "bench_designs.h"
#include "engine/frequency_sweep.h"
#include "quiet_program.h"

namespace halvorne::bench {
namespace {

double ProcessorSeconds() {
  timespec time{};
  clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
  return static_cast<double>(time.tv_sec) + 1e-9 * static_cast<double>(time.tv_nsec);
}

}  // namespace

void PrintSweepTime(const std::function<void()>& before) {
  const QuietProgram program;
  MakeLargestDesign();
  std::array<double, 7> seconds{};
  for (double& time : seconds) {
    before();
    const double start = ProcessorSeconds();
    MainCalc();
    time = ProcessorSeconds() - start;
  }
  auto* const middle = seconds.begin() + seconds.size() / 2;
  std::nth_element(seconds.begin(), middle, seconds.end());
  std::printf("%.9f\n", *middle);
}

}  // namespace halvorne::bench
