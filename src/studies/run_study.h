#pragma once

#include <string>

#include "studies/study.h"
#include "studies/study_folder.h"

namespace halvorne::studies {

/// Calculates the runs of a shard that its files in the folder do not hold yet, in worker
/// processes. The study's design is open, with the study's settings. Raises NotPossible when
/// something cannot be written; what was written stays whole.
/// @param jobs  how many processes
/// @return how many runs stood there already
long CalculateRuns(const Study& study, const StudyFolder& folder, const Shard& shard, int jobs);

/// Joins the shards of a study into one file of runs. Raises NotPossible, with the runs that are
/// missing, when they are not whole; nothing has changed then.
void JoinShards(const Study& study, const StudyFolder& folder);

/// Makes summary, pictures and worst designs of a study whose runs are whole.
/// @return the summary as text
std::string CompleteStudy(const Study& study, const StudyFolder& folder);

}  // namespace halvorne::studies
