#include <QProcessEnvironment>
#include <QTemporaryDir>
#include <filesystem>

#include "bench_designs.h"
#include "child_program.h"
#include "engine/frequency_sweep.h"
#include "persistence/design_file.h"
#include "subjects.h"

namespace halvorne::bench {
namespace {

/// A copy of the program folder, so that the setup file of the built one stays as it is, with a
/// file of the largest design in it.
class ProgramFolder {
 public:
  ProgramFolder() {
    std::filesystem::copy(HALVORNE_BENCH_PROGRAM_FOLDER, folder_.path().toStdString(),
                          std::filesystem::copy_options::recursive);
    MakeLargestDesign();
    MainCalc();
    WriteDesignFile(Design().toStdString());
  }
  QString Program() const { return folder_.filePath(QStringLiteral("halvorne")); }
  QString Design() const { return folder_.filePath(QStringLiteral("largest.dat")); }

 private:
  QTemporaryDir folder_;
};

const ProgramFolder& Folder() {
  static const ProgramFolder folder;
  return folder;
}

/// What the probe tells of a program.
struct Reading {
  double seconds = 0;  ///< processor time up to the first paint
  double kib = 0;      ///< resident size
};

Reading ReadProbe(benchmark::State& state, const QString& program, const QString& design) {
  QProcessEnvironment environment;
  environment.insert(QStringLiteral("LD_PRELOAD"), QStringLiteral(HALVORNE_BENCH_PROBE));
  environment.insert(QStringLiteral("HALVORNE_BENCH_DESIGN"), design);
  environment.insert(QStringLiteral("HALVORNE_BENCH_ACTION"), QStringLiteral("mnuViewTxExcite"));
  const QByteArrayList words = WordsOf(program, environment);
  if (words.size() != 2) {
    state.SkipWithError("no first paint");
    return {};
  }
  return {words[0].toDouble(), words[1].toDouble()};
}

enum class Subject { kEmptyWindow, kIdle, kLargestDesign };

Reading Probe(benchmark::State& state, Subject subject) {
  const bool empty = subject == Subject::kEmptyWindow;
  return ReadProbe(state, empty ? QStringLiteral(HALVORNE_BENCH_EMPTY_WINDOW) : Folder().Program(),
                   subject == Subject::kLargestDesign ? Folder().Design() : QString());
}

template <Subject kSubject>
void Start(benchmark::State& state) {
  for ([[maybe_unused]] auto once : state) {
    state.counters[kReading] = Probe(state, kSubject).seconds * 1e6;
  }
}

template <Subject kSubject>
void Memory(benchmark::State& state) {
  for ([[maybe_unused]] auto once : state) {
    state.counters[kReading] = Probe(state, kSubject).kib;
  }
}

}  // namespace

std::vector<Row> WindowRows() {
  constexpr auto emptyStart = Start<Subject::kEmptyWindow>;
  constexpr auto emptyMemory = Memory<Subject::kEmptyWindow>;
  return {{"start to first paint", 2.5, 2, emptyStart, Start<Subject::kIdle>, Taken::kByReading},
          {"memory, idle, KiB", 1.8, 1.3, emptyMemory, Memory<Subject::kIdle>, Taken::kByReading},
          {"memory, largest, KiB", 3, 2.2, emptyMemory, Memory<Subject::kLargestDesign>,
           Taken::kByReading}};
}

}  // namespace halvorne::bench
