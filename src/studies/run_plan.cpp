#include "studies/run_plan.h"

#include <algorithm>

#include "quantities/refusals.h"
#include "statistics/normal.h"
#include "statistics/random_numbers.h"

namespace halvorne::studies {
namespace {

using Kind = Distribution::Kind;

/// Stream of the numbers that choose which curves are kept; fields have those from 0.
constexpr std::uint32_t kKeptStream = ~0U;

Distribution InUnitsOfField(const VariedField& varied) {
  const double own = NumberOf(StoredFieldValue(varied.field.place));
  Distribution distribution = varied.distribution;
  if (varied.percent) {
    if (own == 0) {
      throw WrongInput(varied.where +
                       ": the design's own value is 0, of which per cent are no spread");
    }
    const double unit = own / 100;
    for (double* number :
         {&distribution.mean, &distribution.deviation, &distribution.from, &distribution.to}) {
      *number *= unit;
    }
    for (double& value : distribution.values) {
      value *= unit;
    }
    if (unit < 0) {
      std::swap(distribution.from, distribution.to);
      distribution.deviation = -distribution.deviation;
    }
  }
  if (varied.meanIsOwn) {
    distribution.mean = own;
  }
  return distribution;
}

}  // namespace

RunPlan::RunPlan(const Study& study) : study_(study) {
  for (const VariedField& varied : study.fields) {
    distributions_.push_back(InUnitsOfField(varied));
  }
}

std::vector<double> RunPlan::Values(long run) const {
  const auto number = static_cast<std::uint64_t>(run);
  std::vector<double> normals(distributions_.size());
  for (std::size_t k = 0; k < normals.size(); ++k) {
    normals[k] = NormalQuantile(UniformNumber(study_.seed, number, static_cast<std::uint32_t>(k)));
  }
  for (const CorrelatedGroup& group : study_.groups) {
    std::vector<double> independent;
    for (const std::size_t k : group.fields) {
      independent.push_back(normals[k]);
    }
    const std::vector<double> together = Correlated(group.factor, independent);
    for (std::size_t k = 0; k < together.size(); ++k) {
      normals[group.fields[k]] = together[k];
    }
  }
  // The last grid runs fastest, as the last wheel of a counter does.
  std::uint64_t cell = number;
  std::vector<double> values(distributions_.size());
  for (std::size_t k = values.size(); k-- > 0;) {
    const Distribution& distribution = distributions_[k];
    if (distribution.kind == Kind::kGrid) {
      values[k] = distribution.values[cell % distribution.values.size()];
      cell /= distribution.values.size();
    } else {
      values[k] = ValueAtNormal(distribution, normals[k]);
    }
  }
  return values;
}

std::vector<Setting> RunPlan::SettingsOf(const std::vector<double>& values) const {
  std::vector<Setting> settings;
  for (std::size_t k = 0; k < values.size(); ++k) {
    try {
      settings.push_back(SettingOf(study_.fields[k].field, values[k]));
    } catch (const WrongInput& wrong) {
      throw WrongInput(study_.fields[k].name + ": " + wrong.what());
    }
  }
  return settings;
}

KeptRuns::KeptRuns(const Study& study)
    : seed_(study.seed), runs_(study.runs), kept_(std::min(study.runs, kMost)) {}

long KeptRuns::Chosen(long stretch) const {
  const long first = FirstOf(stretch);
  const auto length = static_cast<double>(FirstOf(stretch + 1) - first);
  const double share = UniformNumber(seed_, static_cast<std::uint64_t>(stretch), kKeptStream);
  return first + static_cast<long>(share * length);
}

bool KeptRuns::Holds(long run) const {
  return run < runs_ && Chosen(StretchOf(run)) == run;
}

long KeptRuns::CountBelow(long run) const {
  if (run >= runs_) {
    return kept_;
  }
  const long stretch = StretchOf(run);
  return stretch + (Chosen(stretch) < run ? 1 : 0);
}

}  // namespace halvorne::studies
