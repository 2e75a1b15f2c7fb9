#include "child_program.h"
#include "subjects.h"

namespace halvorne::bench {
namespace {

/// Processor time of a sweep in a program of its own.
void SweepOf(benchmark::State& state, const char* program) {
  for ([[maybe_unused]] auto once : state) {
    const QByteArrayList words = WordsOf(QString::fromUtf8(program));
    const double seconds = words.value(0).toDouble();
    if (seconds <= 0) {
      state.SkipWithError("no sweep");
      return;
    }
    state.counters[kReading] = seconds * 1e6;
  }
}

void FreshSweep(benchmark::State& state) {
  SweepOf(state, HALVORNE_BENCH_FRESH_SWEEP);
}
void PaintedSweep(benchmark::State& state) {
  SweepOf(state, HALVORNE_BENCH_PAINTED_SWEEP);
}

}  // namespace

std::vector<Row> PaintedRows() {
  return {{"sweep behind a paint", 1.05, 1.02, FreshSweep, PaintedSweep, Taken::kByReading}};
}

}  // namespace halvorne::bench
