#pragma once

#include "studies/study_folder.h"
#include "studies/study_runs.h"
#include "studies/study_summary.h"

namespace halvorne::studies {

/// Draws the band of each plot, "plot-31-1.png": median and percentiles at each abscissa over the
/// kept runs, and the design's own curve. Raises NotPossible.
void DrawBands(const Study& study, const StudyFolder& folder, StudyRuns& runs);

/// Draws how each measure is spread, "histogram-bandwidth6.png". Raises NotPossible.
void DrawHistograms(const Study& study, const StudyFolder& folder, const StudySummary& summary);

}  // namespace halvorne::studies
