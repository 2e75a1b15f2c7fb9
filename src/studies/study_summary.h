#pragma once

#include <string>
#include <vector>

#include "statistics/sample.h"
#include "studies/run_table.h"
#include "studies/study.h"

namespace halvorne::studies {

/// How strongly a field and a measure go together.
struct Influence {
  std::size_t field;   ///< index of Study::fields
  double correlation;  ///< of their ranks
};

/// What the runs say of a measure.
struct MeasureSummary {
  Moments moments;
  std::vector<double> sorted;         ///< its values in ascending order
  std::vector<Influence> influences;  ///< the strongest first
};

/// What the runs keep of the limits.
struct YieldSummary {
  long passed = 0;             ///< runs that keep all of them
  std::vector<long> perLimit;  ///< runs that keep each
  std::vector<long> worst;     ///< the worst calculated runs, the very worst first
};

struct StudySummary {
  long runs = 0;
  long failed = 0;
  std::vector<double> own;  ///< measures of the design as it was opened
  std::vector<MeasureSummary> measures;
  YieldSummary yield;
};

/// Makes the summary of a study.
///
/// A run that failed, or does not have a measure, keeps no limit of it. The worst run is that which
/// misses a limit by most, or keeps it by least, counted in standard deviations of the measure.
StudySummary Summarise(const Study& study, const RunTable& table, std::vector<double> own);

/// As JSON, for scripts.
std::string SummaryJson(const Study& study, const RunTable& table, const StudySummary& summary);
/// As a text, for people.
std::string SummaryText(const Study& study, const RunTable& table, const StudySummary& summary);

}  // namespace halvorne::studies
