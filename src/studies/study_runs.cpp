#include "studies/study_runs.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <nlohmann/json.hpp>

#include "engine/design_model.h"
#include "engine/frequency_sweep.h"
#include "persistence/design_file.h"
#include "platform/failure.h"
#include "quantities/refusals.h"
#include "timedomain/view.h"

namespace halvorne::studies {
namespace {

using Json = nlohmann::ordered_json;

/// Most points of a curve that are kept: more than a picture shows.
constexpr double kMostPoints = 2001;
constexpr double kFewestPoints = 2;

/// Frequencies of the sweep, or the times that a plot over time shows, or what the study says.
std::vector<double> Abscissae(const StudyPlot& plot) {
  const bool time = IsTimePlot(plot.plot);
  const double shown = time ? design.TimeWindow * view.TimeWindowPercent / 100 : design.FreqStop;
  const double from = plot.from.value_or(time ? 0 : design.FreqStart);
  const double to = plot.to.value_or(shown);
  const double each = time ? Quotient(1, design.SampleRateHz) : design.FreqStep;
  if (!(from < to) || !(each > 0)) {
    throw WrongInput("of plot " + std::to_string(plot.plot) + " there is nothing between " +
                     std::to_string(from) + " and " + std::to_string(to));
  }
  const int points =
      static_cast<int>(std::clamp(std::round((to - from) / each) + 1, kFewestPoints, kMostPoints));
  std::vector<double> abscissae;
  abscissae.reserve(static_cast<std::size_t>(points));
  for (int k = 0; k < points; ++k) {
    abscissae.push_back(k + 1 == points ? to : from + (to - from) * k / (points - 1));
  }
  return abscissae;
}

Json NumberOrNull(double value) {
  return std::isnan(value) ? Json() : Json(value);
}

}  // namespace

StudyRuns::StudyRuns(const Study& study)
    : study_(study), plan_(study), kept_(study), measures_(study.measures) {
  for (const StudyPlot& plot : study.plots) {
    abscissae_.push_back(Abscissae(plot));
    curveSize_ += abscissae_.back().size();
  }
}

void StudyRuns::Sweep(const std::vector<double>& values) {
  opened_.Apply(plan_.SettingsOf(values));
  PrelimCalc();
  MainCalc();
}

std::vector<float> StudyRuns::TakeCurves() const {
  std::vector<float> curves;
  curves.reserve(curveSize_);
  for (std::size_t k = 0; k < study_.plots.size(); ++k) {
    const StudyPlot& plot = study_.plots[k];
    const bool there = MakePlotData(plot.plot, plot.form);
    for (const double x : abscissae_[k]) {
      curves.push_back(there ? static_cast<float>(PlotValueAt(plot.plot, x, false))
                             : std::numeric_limits<float>::quiet_NaN());
    }
  }
  return curves;
}

std::string StudyRuns::LineOf(long run, const std::vector<double>& fields,
                              const std::vector<double>& measures, const std::string& error) const {
  Json line{{"run", run}, {"fields", Json::object()}};
  for (std::size_t k = 0; k < fields.size(); ++k) {
    line["fields"][study_.fields[k].name] = fields[k];
  }
  if (!error.empty()) {
    line["error"] = error;
  } else {
    Json& taken = line["measures"] = Json::object();
    for (std::size_t k = 0; k < measures.size(); ++k) {
      taken[study_.measures[k].name] = NumberOrNull(measures[k]);
    }
  }
  return line.dump(-1, ' ', false, Json::error_handler_t::replace) + "\n";
}

RunResult StudyRuns::Calculate(long run) {
  CaughtMessages boxes(study_.acceptAliasing);
  const std::vector<double> fields = plan_.Values(run);
  std::vector<double> measures(study_.measures.size());
  RunResult result;
  std::string error;
  try {
    Sweep(fields);
    measures_.Take(measures);
    if (kept_.Holds(run) && boxes.First().empty()) {
      result.curves = TakeCurves();
    }
  } catch (const std::exception& wrong) {
    error = wrong.what();
  }
  opened_.PutBack();
  if (!boxes.First().empty()) {
    error = boxes.First();
  }
  if (kept_.Holds(run) && (!error.empty() || result.curves.empty())) {
    result.curves.assign(curveSize_, std::numeric_limits<float>::quiet_NaN());
  }
  result.line = LineOf(run, fields, measures, error);
  return result;
}

RunResult StudyRuns::Failed(long run, const std::string& why) const {
  RunResult result{LineOf(run, plan_.Values(run), {}, why), {}};
  if (kept_.Holds(run)) {
    result.curves.assign(curveSize_, std::numeric_limits<float>::quiet_NaN());
  }
  return result;
}

std::vector<double> StudyRuns::OwnMeasures() {
  const CaughtMessages boxes(study_.acceptAliasing);
  std::vector<double> measures(study_.measures.size());
  PrelimCalc();
  MainCalc();
  measures_.Take(measures);
  opened_.PutBack();
  return measures;
}

std::vector<float> StudyRuns::OwnCurves() {
  const CaughtMessages boxes(study_.acceptAliasing);
  PrelimCalc();
  MainCalc();
  std::vector<float> curves = TakeCurves();
  opened_.PutBack();
  return curves;
}

std::string StudyRuns::DesignFileOf(long run) {
  const CaughtMessages boxes(study_.acceptAliasing);
  const std::string stamp = design.CalcDateTime;
  const std::string title = design.DesignTitle;
  std::string bytes;
  try {
    Sweep(plan_.Values(run));
    // The same study leaves the same bytes, whenever it is calculated.
    design.CalcDateTime = stamp;
    design.DesignTitle = title + ", run " + std::to_string(run);
    bytes = DesignFileText();
  } catch (const WrongInput&) {
    bytes.clear();  // a run that failed has no design
  }
  opened_.PutBack();
  design.DesignTitle = title;
  return bytes;
}

}  // namespace halvorne::studies
