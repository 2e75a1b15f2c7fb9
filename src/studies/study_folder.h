#pragma once

#include <string>
#include <vector>

#include "studies/run_plan.h"
#include "studies/study_runs.h"

namespace halvorne::studies {

/// One of the equal pieces that a study is cut into.
struct Shard {
  long number = 1;  ///< from 1
  long count = 1;

  long First(long runs) const { return (number - 1) * runs / count; }
  long Behind(long runs) const { return number * runs / count; }
};

/// Where a study's results go: its file and its design as they were read, the lines of its runs and
/// what is made of them.
class StudyFolder {
 public:
  explicit StudyFolder(std::string path) : path_(std::move(path)) {}

  /// Makes the folder and puts study and design into it. Raises NotPossible when it cannot be
  /// written, or holds another study and is not to be emptied of it.
  void Prepare(const std::string& study, const std::string& design, bool force) const;

  const std::string& Name() const { return path_; }
  std::string Path(const std::string& name) const { return path_ + "/" + name; }
  std::string StudyFile() const { return Path("study.json"); }
  std::string DesignFile() const { return Path("design.dat"); }
  /// "runs.jsonl", or "runs-2-of-8.jsonl" of a shard.
  std::string RunsFile(const Shard& shard) const;
  /// "curves.f32", or "curves-2-of-8.f32" of a shard.
  std::string CurvesFile(const Shard& shard) const;
  /// The shards whose runs stand in the folder, in the order of their first runs.
  std::vector<Shard> Shards(long runs) const;

  /// Writes a file of the folder, whole or not at all. Raises NotPossible.
  void Write(const std::string& name, std::string_view bytes) const;

 private:
  void Empty() const;

  std::string path_;
};

/// A whole file. Raises NotPossible.
std::string ReadWholeFile(const std::string& name);

/// The lines of the runs of a shard and the curves of the kept ones, as far as they have come. A
/// line counts once its end is there and, of a kept run, its curves before it: what stands behind
/// the last one that counts is cut off when the file is opened, so that a run of the program that
/// was ended at any moment is continued where it stood.
class RunsWriter {
 public:
  /// Opens the files, or makes them. Raises NotPossible when that cannot be done, another program
  /// writes them or they hold something else.
  RunsWriter(const StudyFolder& folder, const Shard& shard, const Study& study,
             std::size_t curveSize);
  ~RunsWriter();
  RunsWriter(const RunsWriter&) = delete;
  RunsWriter& operator=(const RunsWriter&) = delete;

  /// The first run that is missing.
  long Next() const { return next_; }

  void Add(long run, const RunResult& result);
  /// Writes what was added. Raises NotPossible when there is no room; the files are then as they
  /// were after the last Flush().
  void Flush();

  /// Closes the files in a copy of the process, whose lock on them would outlive this one.
  void LetGo();

 private:
  void FindWholeRuns();

  std::string linesName_;
  std::string curvesName_;
  KeptRuns kept_;
  long first_;
  std::size_t curveBytes_;
  int lines_ = -1;
  int curves_ = -1;
  long linesSize_ = 0;
  long curvesSize_ = 0;
  long next_ = 0;
  std::string newLines_;
  std::string newCurves_;
};

/// Number of the run that a line is of; -1 of something else.
long RunOfLine(const std::string& line);

}  // namespace halvorne::studies
