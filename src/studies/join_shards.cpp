#include <algorithm>
#include <fstream>
#include <utility>
#include <vector>

#include "platform/files/line_reader.h"
#include "quantities/refusals.h"
#include "studies/run_study.h"
#include "studies/study_runs.h"

namespace halvorne::studies {
namespace {

/// How far a shard's files have come.
struct Covered {
  Shard shard;
  long first;
  long behind;
};

std::vector<Covered> CoveredBy(const Study& study, const StudyFolder& folder,
                               std::size_t curveSize) {
  std::vector<Covered> all;
  for (const Shard& shard : folder.Shards(study.runs)) {
    // Opened as for writing: a shard that is still at work is told of, a torn line is cut off.
    const RunsWriter writer(folder, shard, study, curveSize);
    all.push_back({shard, shard.First(study.runs), writer.Next()});
  }
  return all;
}

/// "runs 250 to 374", and whose they are where all shards are pieces of one cut.
std::string MissingText(const Study& study, const std::vector<Covered>& all, long first,
                        long last) {
  std::string text = first == last
                         ? "run " + std::to_string(first)
                         : "runs " + std::to_string(first) + " to " + std::to_string(last);
  const long count = all.front().shard.count;
  if (std::ranges::any_of(all, [count](const Covered& c) { return c.shard.count != count; })) {
    return text;
  }
  std::string numbers;
  long many = 0;
  for (Shard shard{1, count}; shard.number <= count; ++shard.number) {
    if (shard.First(study.runs) <= last && shard.Behind(study.runs) > first) {
      numbers += (many == 0 ? "" : ", ") + std::to_string(shard.number);
      ++many;
    }
  }
  return text + (many == 1 ? " (shard " : " (shards ") + numbers + " of " + std::to_string(count) +
         ")";
}

void CheckWhole(const Study& study, const StudyFolder& folder, const std::vector<Covered>& all) {
  std::string missing;
  long next = 0;
  const auto lacks = [&](long behind) {
    if (next < behind) {
      missing += (missing.empty() ? "" : ", ") + MissingText(study, all, next, behind - 1);
    }
  };
  for (const Covered& covered : all) {
    lacks(covered.first);
    next = std::max(next, covered.behind);
  }
  lacks(study.runs);
  if (!missing.empty()) {
    throw NotPossible(folder.Name() + " lacks " + missing);
  }
}

/// Copies the runs of a shard behind those that are there.
void CopyRuns(const Study& study, const StudyFolder& folder, const Covered& covered,
              std::size_t curveSize, RunsWriter& writer) {
  constexpr long together = 256;
  const KeptRuns kept(study);
  LineReader reader(folder.RunsFile(covered.shard));
  std::ifstream curves(folder.CurvesFile(covered.shard), std::ios::binary);
  std::string line;
  for (long run = covered.first; run < covered.behind && reader.Next(line); ++run) {
    RunResult result{line + "\n", {}};
    if (curveSize > 0 && kept.Holds(run)) {
      result.curves.resize(curveSize);
      curves.read(reinterpret_cast<char*>(result.curves.data()),
                  static_cast<std::streamsize>(curveSize * sizeof(float)));
    }
    if (run == writer.Next()) {
      writer.Add(run, result);
    }
    if (run % together == 0) {
      writer.Flush();
    }
  }
  writer.Flush();
}

}  // namespace

void JoinShards(const Study& study, const StudyFolder& folder) {
  const std::size_t curveSize = StudyRuns(study).CurveSize();
  const std::vector<Covered> all = CoveredBy(study, folder, curveSize);
  if (all.empty()) {
    return;  // the runs were not calculated in pieces
  }
  CheckWhole(study, folder, all);
  RunsWriter writer(folder, {}, study, curveSize);
  for (const Covered& covered : all) {
    CopyRuns(study, folder, covered, curveSize, writer);
  }
}

}  // namespace halvorne::studies
