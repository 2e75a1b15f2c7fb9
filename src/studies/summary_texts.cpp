#include <array>
#include <cmath>
#include <cstdio>
#include <nlohmann/json.hpp>

#include "studies/study_summary.h"

namespace halvorne::studies {
namespace {

using Json = nlohmann::ordered_json;

struct NamedShare {
  const char* name;
  double share;
};

constexpr std::array kShares{NamedShare{"smallest", 0},        NamedShare{"percentile1", 0.01},
                             NamedShare{"percentile5", 0.05},  NamedShare{"percentile25", 0.25},
                             NamedShare{"median", 0.5},        NamedShare{"percentile75", 0.75},
                             NamedShare{"percentile95", 0.95}, NamedShare{"percentile99", 0.99},
                             NamedShare{"largest", 1}};

Json NumberOrNull(double value) {
  return std::isfinite(value) ? Json(value) : Json();
}

Json MeasureJson(const Study& study, const MeasureSummary& measure, double own) {
  Json object{{"count", measure.moments.Count()},
              {"asDesigned", NumberOrNull(own)},
              {"mean", NumberOrNull(measure.moments.Mean())},
              {"deviation", NumberOrNull(measure.moments.Deviation())}};
  for (const NamedShare& share : kShares) {
    object[share.name] = NumberOrNull(SampleQuantile(measure.sorted, share.share));
  }
  Json& influences = object["influences"] = Json::array();
  for (const Influence& influence : measure.influences) {
    influences.push_back({{"field", study.fields[influence.field].name},
                          {"rankCorrelation", NumberOrNull(influence.correlation)}});
  }
  return object;
}

double ShareOf(long count, long runs) {
  return static_cast<double>(count) / static_cast<double>(runs);
}

Json YieldJson(const Study& study, const StudySummary& summary) {
  Json limits = Json::array();
  for (std::size_t k = 0; k < study.limits.size(); ++k) {
    const Limit& limit = study.limits[k];
    Json object{{"measure", study.measures[limit.measure].name}};
    if (limit.atLeast) {
      object["atLeast"] = *limit.atLeast;
    }
    if (limit.atMost) {
      object["atMost"] = *limit.atMost;
    }
    object["kept"] = summary.yield.perLimit[k];
    object["share"] = ShareOf(summary.yield.perLimit[k], summary.runs);
    limits.push_back(std::move(object));
  }
  return {{"passed", summary.yield.passed},
          {"share", ShareOf(summary.yield.passed, summary.runs)},
          {"limits", std::move(limits)}};
}

std::string Short(double value) {
  char digits[32];
  std::snprintf(digits, sizeof digits, "%.5g", value);
  return std::isfinite(value) ? digits : "-";
}

std::string Row(const std::vector<std::string>& cells) {
  constexpr std::size_t first = 24;
  constexpr std::size_t other = 13;
  std::string row;
  for (std::size_t k = 0; k < cells.size(); ++k) {
    std::string cell = cells[k];
    if (k == 0) {
      cell.resize(std::max(first, cell.size() + 1), ' ');
    } else {
      cell.insert(0, other - std::min(other, cell.size()), ' ');
    }
    row += cell;
  }
  return row + "\n";
}

std::string InfluenceText(const Study& study, const StudySummary& summary) {
  constexpr std::size_t most = 3;
  std::string text;
  for (std::size_t k = 0; k < study.measures.size(); ++k) {
    std::vector<std::string> cells{study.measures[k].name};
    std::string fields;
    for (std::size_t n = 0; n < std::min(most, study.fields.size()); ++n) {
      const Influence& influence = summary.measures[k].influences[n];
      char digits[16];
      std::snprintf(digits, sizeof digits, " %+.2f", influence.correlation);
      fields += (n == 0 ? "  " : ", ") + study.fields[influence.field].name +
                (std::isnan(influence.correlation) ? " -" : digits);
    }
    text += Row(cells).substr(0, Row(cells).size() - 1) + fields + "\n";
  }
  return text;
}

std::string YieldText(const Study& study, const StudySummary& summary) {
  std::string text;
  const auto line = [&](const std::string& what, long count) {
    char digits[64];
    std::snprintf(digits, sizeof digits, "%ld of %ld runs, %.2f %%", count, summary.runs,
                  100 * ShareOf(count, summary.runs));
    std::string name = what;
    name.resize(std::max<std::size_t>(48, name.size() + 1), ' ');
    text += name + digits + "\n";
  };
  for (std::size_t k = 0; k < study.limits.size(); ++k) {
    const Limit& limit = study.limits[k];
    line(study.measures[limit.measure].name +
             (limit.atLeast ? ", at least " + Short(*limit.atLeast) : "") +
             (limit.atMost ? ", at most " + Short(*limit.atMost) : ""),
         summary.yield.perLimit[k]);
  }
  line("all limits", summary.yield.passed);
  return text;
}

}  // namespace

std::string SummaryJson(const Study& study, const RunTable& table, const StudySummary& summary) {
  Json object{{"design", study.design},
              {"seed", study.seed},
              {"runs", summary.runs},
              {"failed", summary.failed}};
  Json& errors = object["errors"] = Json::array();
  for (const auto& [text, error] : table.errors) {
    errors.push_back({{"error", text}, {"runs", error.runs}, {"firstRun", error.first}});
  }
  Json& measures = object["measures"] = Json::object();
  for (std::size_t k = 0; k < study.measures.size(); ++k) {
    measures[study.measures[k].name] = MeasureJson(study, summary.measures[k], summary.own[k]);
  }
  if (!study.limits.empty()) {
    object["yield"] = YieldJson(study, summary);
  }
  Json& worst = object["worst"] = Json::array();
  for (std::size_t k = 0; k < summary.yield.worst.size(); ++k) {
    worst.push_back(
        {{"run", summary.yield.worst[k]}, {"file", "worst-" + std::to_string(k + 1) + ".dat"}});
  }
  return object.dump(2, ' ', false, Json::error_handler_t::replace) + "\n";
}

std::string SummaryText(const Study& study, const RunTable& table, const StudySummary& summary) {
  std::string text = std::to_string(summary.runs) + " runs of " + study.design + ", seed " +
                     std::to_string(study.seed) + ", " + std::to_string(summary.failed) +
                     " failed\n\n";
  text += Row({"Measure", "as designed", "mean", "deviation", "5 %", "median", "95 %"});
  for (std::size_t k = 0; k < study.measures.size(); ++k) {
    const MeasureSummary& measure = summary.measures[k];
    text += Row({study.measures[k].name, Short(summary.own[k]), Short(measure.moments.Mean()),
                 Short(measure.moments.Deviation()), Short(SampleQuantile(measure.sorted, 0.05)),
                 Short(SampleQuantile(measure.sorted, 0.5)),
                 Short(SampleQuantile(measure.sorted, 0.95))});
  }
  text += "\nMost influential fields, by rank correlation\n" + InfluenceText(study, summary);
  if (!study.limits.empty()) {
    text += "\nYield\n" + YieldText(study, summary);
  }
  for (const auto& [error, where] : table.errors) {
    text += "\nFailed: " + std::to_string(where.runs) + " runs, the first of them run " +
            std::to_string(where.first) + ": " + error + "\n";
  }
  return text;
}

}  // namespace halvorne::studies
