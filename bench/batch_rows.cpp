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
    WriteStudy("one.json", 1);
    WriteStudy("all.json", kVariants);
  }
  QString Path(const char* name) const { return folder_.filePath(QString::fromLatin1(name)); }

 private:
  void WriteList(const char* name, int count) const {
    std::ofstream list(Path(name).toStdString());
    for (int k = 0; k < count; ++k) {
      list << "FrontThick(1)=" << 1e-4 + 1e-8 * k << '\n';
    }
  }

  void WriteStudy(const char* name, int runs) const {
    std::ofstream(Path(name).toStdString())
        << R"({"design": "typical.dat", "runs": )" << runs
        << R"json(, "vary": [{"field": "FrontThick(1)", "distribution": "normal", "deviation": 1,
                              "unit": "percent"}]})json";
  }

  QTemporaryDir folder_;
};

const BatchFolder& Folder() {
  static const BatchFolder folder;
  return folder;
}

/// Processor time of a run of the batch program and of its workers, in microseconds.
double TimeOfBatch(benchmark::State& state, const QStringList& words) {
  const double before = UsedBy(RUSAGE_CHILDREN);
  QProcess batch;
  batch.setStandardOutputFile(QProcess::nullDevice());
  batch.start(QStringLiteral(HALVORNE_BENCH_PROGRAM_FOLDER "/halvorne-batch"), words);
  if (!batch.waitForFinished(-1) || batch.exitCode() != 0) {
    state.SkipWithError("halvorne-batch failed");
  }
  return UsedBy(RUSAGE_CHILDREN) - before;
}

double TimeOfVariants(benchmark::State& state, const char* list) {
  return TimeOfBatch(
      state, {QStringLiteral("measure"), Folder().Path("typical.dat"), QStringLiteral("--variants"),
              Folder().Path(list), QStringLiteral("-o"), Folder().Path("out.json")});
}

double TimeOfStudy(benchmark::State& state, const char* study) {
  const QTemporaryDir out;
  return TimeOfBatch(
      state, {QStringLiteral("study"), Folder().Path(study), QStringLiteral("-o"), out.path()});
}

/// What the runs may take: 1.15 of their bare sweeps, and of variants 0.2 ms each.
template <int kEach>
void AllowedTime(benchmark::State& state) {
  constexpr double share = 1.15;
  MakeTypicalDesign();
  for ([[maybe_unused]] auto once : state) {
    const double before = UsedBy(RUSAGE_THREAD);
    for (int k = 0; k < kVariants; ++k) {
      MainCalc();
      benchmark::ClobberMemory();
    }
    state.counters[kReading] = share * (UsedBy(RUSAGE_THREAD) - before) + 1.0 * kEach * kVariants;
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

/// Beyond start-up, summary and pictures: what a study of one run takes is taken off.
void Study(benchmark::State& state) {
  for ([[maybe_unused]] auto once : state) {
    const double all = TimeOfStudy(state, "all.json");
    state.counters[kReading] = all - TimeOfStudy(state, "one.json");
  }
}

}  // namespace

std::vector<Row> BatchRows() {
  return {{"1000 variants", 1, 0.6, AllowedTime<200>, Variants, Taken::kByReading},
          {"study, 1000 runs", 4, 1, AllowedTime<0>, Study, Taken::kByReading}};
}

}  // namespace halvorne::bench
