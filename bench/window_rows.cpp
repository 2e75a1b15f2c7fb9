#include <QProcessEnvironment>
#include <QTemporaryDir>
#include <ctime>
#include <filesystem>

#include "bench_designs.h"
#include "child_program.h"
#include "dense_line.h"
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
  double seconds = 0;      ///< processor time up to the first paint
  double kib = 0;          ///< resident size
  double stepSeconds = 0;  ///< processor time of one step of resizing
};

/// @param action  what is chosen of the design's menus
/// @param steps   how often the window is then made larger
Reading ReadProbe(benchmark::State& state, const QString& program, const QString& design,
                  const char* action, int steps) {
  QProcessEnvironment environment;
  environment.insert(QStringLiteral("LD_PRELOAD"), QStringLiteral(HALVORNE_BENCH_PROBE));
  environment.insert(QStringLiteral("HALVORNE_BENCH_DESIGN"), design);
  environment.insert(QStringLiteral("HALVORNE_BENCH_ACTION"), QLatin1String(action));
  environment.insert(QStringLiteral("HALVORNE_BENCH_STEPS"), QString::number(steps));
  const QByteArrayList words = WordsOf(program, {}, environment);
  if (words.size() != 3) {
    state.SkipWithError("no first paint");
    return {};
  }
  return {words[0].toDouble(), words[1].toDouble(), words[2].toDouble()};
}

enum class Subject { kEmptyWindow, kIdle, kLargestDesign };

Reading Probe(benchmark::State& state, Subject subject) {
  const bool empty = subject == Subject::kEmptyWindow;
  return ReadProbe(state, empty ? QStringLiteral(HALVORNE_BENCH_EMPTY_WINDOW) : Folder().Program(),
                   subject == Subject::kLargestDesign ? Folder().Design() : QString(),
                   "mnuViewTxExcite", 0);
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

void OnePolylineRead(benchmark::State& state) {
  DenseLine line;
  for ([[maybe_unused]] auto once : state) {
    constexpr int times = 5;
    const std::clock_t start = std::clock();
    for (int i = 0; i < times; ++i) {
      line.DrawOnce();
    }
    state.counters[kReading] =
        static_cast<double>(std::clock() - start) * 1e6 / CLOCKS_PER_SEC / times;
  }
}

/// One step of a window that is drawn larger with the mouse: a waveform of 65536 samples with its
/// envelope, laid out, drawn and painted anew.
void ResizeStep(benchmark::State& state) {
  for ([[maybe_unused]] auto once : state) {
    state.counters[kReading] =
        ReadProbe(state, Folder().Program(), Folder().Design(), "mnuViewTxWfm", 40).stepSeconds *
        1e6;
  }
}

}  // namespace

std::vector<Row> WindowRows() {
  constexpr auto emptyStart = Start<Subject::kEmptyWindow>;
  constexpr auto emptyMemory = Memory<Subject::kEmptyWindow>;
  return {{"resize, 2 x 65536", 0.5, 0.2, OnePolylineRead, ResizeStep, Taken::kByReading},
          {"start to first paint", 2.5, 1.5, emptyStart, Start<Subject::kIdle>, Taken::kByReading},
          {"memory, idle, KiB", 1.8, 1.25, emptyMemory, Memory<Subject::kIdle>, Taken::kByReading},
          {"memory, largest, KiB", 3, 1.9, emptyMemory, Memory<Subject::kLargestDesign>,
           Taken::kByReading}};
}

}  // namespace halvorne::bench
