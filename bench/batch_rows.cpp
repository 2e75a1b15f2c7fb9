#include <QProcess>
#include <QTemporaryDir>
#include <fstream>
#include <sys/resource.h>

#include "bench_designs.h"
#include "engine/design_model.h"
#include "engine/frequency_sweep.h"
#include "persistence/design_file.h"
#include "quiet_program.h"
#include "subjects.h"

namespace halvorne::bench {
namespace {

constexpr int kVariants = 1000;

/// Microseconds of processor time in a record of use.
double Microseconds(const rusage& usage) {
  return static_cast<double>(usage.ru_utime.tv_sec + usage.ru_stime.tv_sec) * 1e6 +
         static_cast<double>(usage.ru_utime.tv_usec + usage.ru_stime.tv_usec);
}

double UsedBy(int who) {
  rusage usage{};
  getrusage(who, &usage);
  return Microseconds(usage);
}

/// A file of the typical design, and lists of variants of it.
class BatchFolder {
 public:
  BatchFolder() {
    MakeTypicalDesign();
    MainCalc();
    WriteDesignFile(Path("typical.dat").toStdString());
    WriteList("one.txt", 1);
    WriteList("all.txt", kVariants);
  }
  QString Path(const char* name) const { return folder_.filePath(QString::fromLatin1(name)); }

 private:
  void WriteList(const char* name, int count) const {
    std::ofstream list(Path(name).toStdString());
    for (int k = 0; k < count; ++k) {
      list << "FrontThick(1)=" << 1e-4 + 1e-8 * k << '\n';
    }
  }

  QTemporaryDir folder_;
};

const BatchFolder& Folder() {
  static const BatchFolder folder;
  return folder;
}

/// Processor time of a run of the batch program with a list of variants, in microseconds.
double TimeOfVariants(benchmark::State& state, const char* list) {
  const double before = UsedBy(RUSAGE_CHILDREN);
  const int status = QProcess::execute(
      QStringLiteral(HALVORNE_BENCH_PROGRAM_FOLDER "/halvorne-batch"),
      {QStringLiteral("measure"), Folder().Path("typical.dat"), QStringLiteral("--variants"),
       Folder().Path(list), QStringLiteral("-o"), Folder().Path("out.json")});
  if (status != 0) {
    state.SkipWithError("halvorne-batch failed");
  }
  return UsedBy(RUSAGE_CHILDREN) - before;
}

/// What the variants may take: 1.15 of their bare sweeps and 0.2 ms each.
void AllowedTime(benchmark::State& state) {
  constexpr double share = 1.15;
  constexpr double each = 200;
  MakeTypicalDesign();
  for ([[maybe_unused]] auto once : state) {
    const double before = UsedBy(RUSAGE_THREAD);
    for (int k = 0; k < kVariants; ++k) {
      MainCalc();
      benchmark::ClobberMemory();
    }
    state.counters[kReading] = share * (UsedBy(RUSAGE_THREAD) - before) + each * kVariants;
  }
  CheckQuiet(state);
}

/// Beyond start-up: what a list of one variant takes is taken off.
void Variants(benchmark::State& state) {
  for ([[maybe_unused]] auto once : state) {
    const double all = TimeOfVariants(state, "all.txt");
    state.counters[kReading] = all - TimeOfVariants(state, "one.txt");
  }
}

}  // namespace

std::vector<Row> BatchRows() {
  return {{"1000 variants", 1, 0.6, AllowedTime, Variants, Taken::kByReading}};
}

}  // namespace halvorne::bench
