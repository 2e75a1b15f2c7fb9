#include "row.h"

#include <cstdio>
#include <map>

#include "platform/vector_registers.h"

namespace halvorne::bench {
namespace {

constexpr const char* kYardstick = "/yardstick";
constexpr const char* kOurs = "/ours";

/// Reports as usual and keeps the medians.
class MedianKeeper : public benchmark::ConsoleReporter {
 public:
  void ReportRuns(const std::vector<Run>& runs) override {
    for (const Run& run : runs) {
      failed_ = failed_ || run.error_occurred;
      if (run.aggregate_name == "median") {
        const auto reading = run.counters.find(kReading);
        medians_[run.run_name.function_name] =
            reading != run.counters.end() ? reading->second.value : run.GetAdjustedCPUTime();
      }
    }
    ConsoleReporter::ReportRuns(runs);
  }

  bool Failed() const { return failed_; }
  double Median(const std::string& name) const {
    const auto found = medians_.find(name);
    return found == medians_.end() ? 0 : found->second;
  }

 private:
  std::map<std::string, double> medians_;
  bool failed_ = false;
};

void Register(const std::string& name, void (*function)(benchmark::State&), Taken taken) {
#ifndef __clang_analyzer__  // it takes for a leak what the library's registry keeps
  // Program and yardstick alike begin as in a process without the toolkit, whose painting would
  // slow both and hide in their ratio.
  const auto clean = [function](benchmark::State& state) {
    CleanVectorRegisters();
    function(state);
  };
  auto* const measurement =
      benchmark::RegisterBenchmark(name.c_str(), clean)->Unit(benchmark::kMicrosecond);
  if (taken == Taken::kByReading) {
    measurement->Iterations(1);
  }
#endif
}

}  // namespace

bool Measure(const std::vector<Row>& rows) {
  for (const Row& row : rows) {
    Register(row.name + kYardstick, row.yardstick, row.taken);
    Register(row.name + kOurs, row.ours, row.taken);
  }
  MedianKeeper keeper;
  benchmark::RunSpecifiedBenchmarks(&keeper);
  std::printf("\n| %-22s | %14s | %10s | %5s | %5s | %5s |\n", "row", "yardstick", "ours", "ratio",
              "first", "goal");
  std::printf("|%.24s|%.15s:|%.11s:|%.6s:|%.6s:|%.6s:|\n", "------------------------",
              "---------------", "-----------", "------", "------", "------");
  for (const Row& row : rows) {
    const double yardstick = keeper.Median(row.name + kYardstick);
    const double ours = keeper.Median(row.name + kOurs);
    if (yardstick > 0 && ours > 0) {
      std::printf("| %-22s | %14.1f | %10.1f | %5.2f | %5.2f | %5.2f |\n", row.name.c_str(),
                  yardstick, ours, ours / yardstick, row.first, row.goal);
    }
  }
  return !keeper.Failed();
}

}  // namespace halvorne::bench
