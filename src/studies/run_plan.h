#pragma once

#include <vector>

#include "quantities/settings.h"
#include "studies/study.h"

namespace halvorne::studies {

/// What each run of a study gives the design: it depends on the study, the opened design and the
/// run's number alone.
class RunPlan {
 public:
  /// Takes per cent and means from the design as it stands. Raises WrongInput where the design's
  /// own value is 0 and the spread is in per cent of it.
  explicit RunPlan(const Study& study);

  /// The values of the varied fields in a run, in their order.
  std::vector<double> Values(long run) const;

  /// The same as settings. Raises WrongInput, with the field's name, for a value that the field
  /// cannot hold.
  std::vector<Setting> SettingsOf(const std::vector<double>& values) const;

 private:
  const Study& study_;
  std::vector<Distribution> distributions_;  ///< in the units of the fields
};

/// Which runs keep their curves for the bands: all of a small study; of a large one, one from each
/// of equal stretches, drawn by the seed.
class KeptRuns {
 public:
  static constexpr long kMost = 2000;

  explicit KeptRuns(const Study& study);

  bool Holds(long run) const;
  /// How many of the runs below `run` are kept.
  long CountBelow(long run) const;

 private:
  long FirstOf(long stretch) const { return stretch * runs_ / kept_; }
  long StretchOf(long run) const { return ((run + 1) * kept_ - 1) / runs_; }
  long Chosen(long stretch) const;

  std::uint64_t seed_;
  long runs_;
  long kept_;
};

}  // namespace halvorne::studies
