#include <QGuiApplication>
#include <benchmark/benchmark.h>
#include <vector>

#include "quiet_program.h"
#include "subjects.h"

// All rows of the table of speeds. Without other wishes on the command line every row is measured
// nine times, in an order that mixes all of them, so that a slow moment of the machine meets the
// program and its yardstick alike.

int main(int argc, char** argv) {
  using namespace halvorne::bench;
  char repetitions[] = "--benchmark_repetitions=9";
  char interleaved[] = "--benchmark_enable_random_interleaving=true";
  char medians[] = "--benchmark_report_aggregates_only=true";
  char shortRuns[] = "--benchmark_min_time=0.1";
  std::vector<char*> arguments = {argv[0], repetitions, interleaved, medians, shortRuns};
  arguments.insert(arguments.end(), argv + 1, argv + argc);
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
  for (const auto subject :
       {SweepRows, PaintedRows, BatchRows, TransformRows, DesignFileRows, RedrawRows, WindowRows}) {
    const std::vector<Row> more = subject();
    rows.insert(rows.end(), more.begin(), more.end());
  }
  return Measure(rows) ? 0 : 1;
}
