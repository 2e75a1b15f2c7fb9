#pragma once

#include <string>
#include <vector>

#include "quantities/caught_messages.h"
#include "quantities/measuring.h"
#include "quantities/opened_design.h"
#include "studies/run_plan.h"

namespace halvorne::studies {

/// What a run leaves behind.
struct RunResult {
  std::string line;           ///< of JSON, with its end
  std::vector<float> curves;  ///< of a kept run: the points of each plot, NaN where there are none
};

/// Calculates the runs of a study of the open design.
class StudyRuns {
 public:
  /// Raises as RunPlan does.
  explicit StudyRuns(const Study& study);

  /// Calculates a run; the design is as it was opened before and behind it. Nothing of this is
  /// raised: what is wrong with a run is told in its line.
  RunResult Calculate(long run);

  /// The line of a run that could not be calculated at all.
  RunResult Failed(long run, const std::string& why) const;

  /// The design as it was opened, calculated anew: its measures, and the curve of each plot.
  std::vector<double> OwnMeasures();
  std::vector<float> OwnCurves();

  /// Bytes of the design file of a run.
  std::string DesignFileOf(long run);

  /// The abscissae of a plot's curve, in Hz or s.
  std::vector<double> AbscissaeOf(std::size_t plot) const { return abscissae_[plot]; }
  /// Numbers in RunResult::curves.
  std::size_t CurveSize() const { return curveSize_; }

 private:
  void Sweep(const std::vector<double>& values);
  std::string LineOf(long run, const std::vector<double>& fields,
                     const std::vector<double>& measures, const std::string& error) const;
  std::vector<float> TakeCurves() const;

  const Study& study_;
  RunPlan plan_;
  KeptRuns kept_;
  MeasureList measures_;
  OpenedDesign opened_;
  std::vector<std::vector<double>> abscissae_;
  std::size_t curveSize_ = 0;
};

}  // namespace halvorne::studies
