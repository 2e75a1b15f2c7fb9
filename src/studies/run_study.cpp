#include "studies/run_study.h"

#include "studies/progress.h"
#include "studies/run_table.h"
#include "studies/study_pictures.h"
#include "studies/study_runs.h"
#include "studies/study_summary.h"
#include "studies/workers.h"

namespace halvorne::studies {

long CalculateRuns(const Study& study, const StudyFolder& folder, const Shard& shard, int jobs) {
  StudyRuns runs(study);
  RunsWriter writer(folder, shard, study, runs.CurveSize());
  const long first = writer.Next();
  const long behind = shard.Behind(study.runs);
  Progress progress(first, behind, study.runs);
  Workers workers(
      jobs, {.letGo = [&writer] { writer.LetGo(); },
             .calculate = [&runs](long run) { return runs.Calculate(run); },
             .failed = [&runs](long run, const std::string& why) { return runs.Failed(run, why); },
             .take = [&writer](long run, const RunResult& result) { writer.Add(run, result); },
             .flush =
                 [&] {
                   writer.Flush();
                   progress.Show(writer.Next());
                 }});
  workers.Run(first, behind);
  return first - shard.First(study.runs);
}

std::string CompleteStudy(const Study& study, const StudyFolder& folder) {
  StudyRuns runs(study);
  const RunTable table = ReadRunTable(folder.RunsFile({}), study);
  const StudySummary summary = Summarise(study, table, runs.OwnMeasures());
  for (std::size_t k = 0; k < summary.yield.worst.size(); ++k) {
    folder.Write("worst-" + std::to_string(k + 1) + ".dat",
                 runs.DesignFileOf(summary.yield.worst[k]));
  }
  DrawHistograms(study, folder, summary);
  if (!study.plots.empty()) {
    DrawBands(study, folder, runs);
  }
  folder.Write("summary.json", SummaryJson(study, table, summary));
  std::string text = SummaryText(study, table, summary);
  folder.Write("summary.txt", text);
  return text;
}

}  // namespace halvorne::studies
