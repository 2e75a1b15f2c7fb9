#include "studies/study_summary.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>
#include <utility>

#include "statistics/correlation.h"

namespace halvorne::studies {
namespace {

std::vector<double> Present(const std::vector<double>& values) {
  std::vector<double> present;
  std::ranges::copy_if(values, std::back_inserter(present),
                       [](double v) { return !std::isnan(v); });
  return present;
}

/// The values of a field in the runs that have the measure.
std::vector<double> Where(const std::vector<double>& values, const std::vector<double>& measure) {
  std::vector<double> there;
  for (std::size_t k = 0; k < values.size(); ++k) {
    if (!std::isnan(measure[k])) {
      there.push_back(values[k]);
    }
  }
  return there;
}

MeasureSummary SummaryOf(const RunTable& table, const std::vector<double>& measure) {
  MeasureSummary summary;
  summary.sorted = Present(measure);
  for (const double value : summary.sorted) {
    summary.moments.Add(value);
  }
  for (std::size_t field = 0; field < table.fields.size(); ++field) {
    const double correlation = RankCorrelation(Where(table.fields[field], measure), summary.sorted);
    summary.influences.push_back({field, correlation});
  }
  std::ranges::stable_sort(summary.influences, std::greater(), [](const Influence& influence) {
    return std::isnan(influence.correlation) ? -1 : std::abs(influence.correlation);
  });
  std::ranges::sort(summary.sorted);
  return summary;
}

/// By how much a value keeps a limit; negative when it misses it.
double Margin(const Limit& limit, double value) {
  const double infinity = std::numeric_limits<double>::infinity();
  return std::min(limit.atLeast ? value - *limit.atLeast : infinity,
                  limit.atMost ? *limit.atMost - value : infinity);
}

/// A spread to measure margins by, 1 where there is none.
double UnitOf(const MeasureSummary& summary) {
  const double deviation = summary.moments.Deviation();
  return deviation > 0 ? deviation : 1;
}

YieldSummary YieldOf(const Study& study, const RunTable& table,
                     const std::vector<MeasureSummary>& measures) {
  YieldSummary yield{0, std::vector<long>(study.limits.size(), 0), {}};
  std::vector<std::pair<double, long>> margins;
  for (std::size_t run = 0; run < table.failed.size(); ++run) {
    double least = std::numeric_limits<double>::infinity();
    bool known = true;
    for (std::size_t k = 0; k < study.limits.size(); ++k) {
      const std::size_t measure = study.limits[k].measure;
      const double margin = Margin(study.limits[k], table.measures[measure][run]);
      known = known && !std::isnan(table.measures[measure][run]);
      yield.perLimit[k] += margin >= 0 ? 1 : 0;
      least = std::min(least, margin / UnitOf(measures[measure]));
    }
    yield.passed += known && least >= 0 ? 1 : 0;
    // A run without the measure is a bad one too, behind those that failed altogether.
    if (!table.failed[run]) {
      margins.emplace_back(known ? least : -std::numeric_limits<double>::infinity(),
                           static_cast<long>(run));
    }
  }
  const auto count = static_cast<std::ptrdiff_t>(std::min(study.worst, margins.size()));
  std::ranges::partial_sort(margins, margins.begin() + count);
  for (std::ptrdiff_t k = 0; k < count; ++k) {
    yield.worst.push_back(margins[static_cast<std::size_t>(k)].second);
  }
  return yield;
}

}  // namespace

StudySummary Summarise(const Study& study, const RunTable& table, std::vector<double> own) {
  StudySummary summary{study.runs, table.Failed(), std::move(own), {}, {}};
  for (const std::vector<double>& measure : table.measures) {
    summary.measures.push_back(SummaryOf(table, measure));
  }
  summary.yield = YieldOf(study, table, summary.measures);
  return summary;
}

}  // namespace halvorne::studies
