#include <QGuiApplication>
#include <algorithm>
#include <benchmark/benchmark.h>
#include <string_view>
#include <vector>

#include "quiet_program.h"
#include "subjects.h"

// All rows of the table of speeds. Without other wishes on the command line every row is measured
// nine times, in an order that mixes all of them, so that a slow moment of the machine meets the
// program and its yardstick alike.
//
// With --check the runs are short, and the program fails when a row has become slower than it has
// been.

namespace {

/// Takes an option of this program's own out of the command line.
bool TakeOption(std::vector<char*>& arguments, std::string_view option) {
  return std::erase_if(arguments, [option](const char* argument) { return argument == option; }) !=
         0;
}

}  // namespace

int main(int argc, char** argv) {
  using namespace halvorne::bench;
  char interleaved[] = "--benchmark_enable_random_interleaving=true";
  char medians[] = "--benchmark_report_aggregates_only=true";
  char nineTimes[] = "--benchmark_repetitions=9";
  char shortRuns[] = "--benchmark_min_time=0.1";
  char threeTimes[] = "--benchmark_repetitions=3";
  char shortestRuns[] = "--benchmark_min_time=0.02";
  std::vector<char*> asked(argv + 1, argv + argc);
  const bool check = TakeOption(asked, "--check");
  std::vector<char*> arguments = {argv[0], interleaved, medians, check ? threeTimes : nineTimes,
                                  check ? shortestRuns : shortRuns};
  arguments.insert(arguments.end(), asked.begin(), asked.end());
  int count = static_cast<int>(arguments.size());
  arguments.push_back(nullptr);
  benchmark::Initialize(&count, arguments.data());
  if (benchmark::ReportUnrecognizedArguments(count, arguments.data())) {
    return 2;
  }
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QGuiApplication application(count, argv);
  const QuietProgram program;
  std::vector<Row> rows;
  for (const auto subject : {SweepRows, PaintedRows, BatchRows, TransformRows, DesignFileRows,
                             RedrawRows, TuningRows, WindowRows}) {
    const std::vector<Row> more = subject();
    rows.insert(rows.end(), more.begin(), more.end());
  }
  return Measure(rows, check) ? 0 : 1;
}
