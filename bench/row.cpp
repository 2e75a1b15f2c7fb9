#include "row.h"

#include <algorithm>
#include <cstdio>
#include <iterator>
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

/// What the machine's other work may add to a ratio before a row counts as slower.
constexpr double kMargin = 1.25;

/// How many times the yardstick the program takes now; 0 when the row was not measured.
double RatioNow(const Row& row, const MedianKeeper& keeper) {
  const double yardstick = keeper.Median(row.name + kYardstick);
  return yardstick > 0 ? keeper.Median(row.name + kOurs) / yardstick : 0;
}

void PrintTable(const std::vector<Row>& rows, const MedianKeeper& keeper) {
  std::printf("\n| %-27s | %14s | %10s | %5s | %5s | %5s |\n", "row", "yardstick", "ours", "first",
              "goal", "now");
  std::printf("|%.29s|%.15s:|%.11s:|%.6s:|%.6s:|%.6s:|\n", "-----------------------------",
              "---------------", "-----------", "------", "------", "------");
  for (const Row& row : rows) {
    if (const double now = RatioNow(row, keeper); now > 0) {
      std::printf("| %-27s | %14.1f | %10.1f | %5.2f | %5.2f | %5.2f |\n", row.name.c_str(),
                  keeper.Median(row.name + kYardstick), keeper.Median(row.name + kOurs), row.first,
                  row.goal, now);
    }
  }
}

std::vector<Row> WorseThanFirst(const std::vector<Row>& rows, const MedianKeeper& keeper) {
  std::vector<Row> worse;
  std::ranges::copy_if(rows, std::back_inserter(worse), [&keeper](const Row& row) {
    return RatioNow(row, keeper) > kMargin * row.first;
  });
  return worse;
}

/// A regular expression that names the measurements of the rows.
std::string Filter(const std::vector<Row>& rows) {
  std::string names;
  for (const Row& row : rows) {
    names += (names.empty() ? "" : "|") + row.name;
  }
  return "^(" + names + ")/";
}

}  // namespace

bool Measure(const std::vector<Row>& rows, bool check) {
  for (const Row& row : rows) {
    Register(row.name + kYardstick, row.yardstick, row.taken);
    Register(row.name + kOurs, row.ours, row.taken);
  }
  MedianKeeper keeper;
  benchmark::RunSpecifiedBenchmarks(&keeper);
  PrintTable(rows, keeper);
  if (!check) {
    return !keeper.Failed();
  }
  std::vector<Row> worse = WorseThanFirst(rows, keeper);
  if (!worse.empty()) {
    // A short run beside other work may be wrong once.
    benchmark::RunSpecifiedBenchmarks(&keeper, Filter(worse));
    PrintTable(worse, keeper);
    worse = WorseThanFirst(worse, keeper);
  }
  for (const Row& row : worse) {
    std::fprintf(stderr, "slower than it has been: %s, %.2f in place of %.2f\n", row.name.c_str(),
                 RatioNow(row, keeper), row.first);
  }
  return worse.empty() && !keeper.Failed();
}

}  // namespace halvorne::bench
