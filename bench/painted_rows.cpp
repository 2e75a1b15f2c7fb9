#include "child_program.h"
#include "subjects.h"

namespace halvorne::bench {
namespace {

/// Pieces of work by the names that the probes know.
constexpr char kSweep[] = "sweep";
constexpr char kTransform[] = "transform";
constexpr char kRead[] = "read";
constexpr char kWrite[] = "write";

/// Processor time of a piece of work in a program of its own.
void WorkOf(benchmark::State& state, const char* program, const char* work) {
  for ([[maybe_unused]] auto once : state) {
    const QByteArrayList words = WordsOf(QString::fromUtf8(program), {QString::fromUtf8(work)});
    const double seconds = words.value(0).toDouble();
    if (seconds <= 0) {
      state.SkipWithError("no work done");
      return;
    }
    state.counters[kReading] = seconds * 1e6;
  }
}

template <const char* kWork>
Row BehindAPaint(const char* name) {
  return {name,
          1.05,
          1.02,
          [](benchmark::State& state) { WorkOf(state, HALVORNE_BENCH_FRESH_WORK, kWork); },
          [](benchmark::State& state) { WorkOf(state, HALVORNE_BENCH_PAINTED_WORK, kWork); },
          Taken::kByReading};
}

}  // namespace

std::vector<Row> PaintedRows() {
  return {BehindAPaint<kSweep>("sweep behind a paint"),
          BehindAPaint<kTransform>("transform behind a paint"),
          BehindAPaint<kRead>("file read behind a paint"),
          BehindAPaint<kWrite>("file written behind a paint")};
}

}  // namespace halvorne::bench
