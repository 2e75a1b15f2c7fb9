#include "studies/study.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "plot/catalogue.h"
#include "quantities/refusals.h"
#include "studies/study_schema.h"

namespace halvorne::studies {
namespace {

using Json = nlohmann::json;
using Kind = Distribution::Kind;

constexpr double kInfinity = std::numeric_limits<double>::infinity();

/// Runs work and puts the place before what it complains about.
template <class Work>
auto At(const JsonSource& source, const std::string& path, Work work) {
  try {
    return work();
  } catch (const WrongInput& wrong) {
    throw WrongInput(AtLine(source, path, wrong.what()));
  }
}

/// A number that may be missing.
std::optional<double> Given(const Json& entry, const char* name) {
  return entry.contains(name) ? std::optional(entry.at(name).get<double>()) : std::nullopt;
}

Kind KindOf(const std::string& word) {
  return word == "normal"       ? Kind::kNormal
         : word == "uniform"    ? Kind::kUniform
         : word == "triangular" ? Kind::kTriangular
         : word == "list"       ? Kind::kList
                                : Kind::kGrid;
}

/// The members that a distribution may have and those that it must have.
struct Members {
  std::vector<std::string> known;
  std::vector<std::string> needed;
};

Members MembersOf(Kind kind, bool hasValues) {
  switch (kind) {
    case Kind::kNormal:
      return {{"mean", "deviation", "from", "to"}, {"deviation"}};
    case Kind::kUniform:
      return {{"from", "to"}, {"from", "to"}};
    case Kind::kTriangular:
      return {{"from", "mode", "to"}, {"from", "mode", "to"}};
    case Kind::kList:
      return {{"values"}, {"values"}};
    default:
      return hasValues ? Members{{"values"}, {"values"}}
                       : Members{{"from", "to", "count"}, {"from", "to", "count"}};
  }
}

void CheckMembers(const Json& entry, const std::string& word, const Members& members) {
  for (const char* name : {"mean", "deviation", "from", "mode", "to", "count", "values"}) {
    if (entry.contains(name) && std::ranges::count(members.known, name) == 0) {
      throw WrongInput("'" + std::string(name) + "' means nothing to " + word);
    }
  }
  for (const std::string& name : members.needed) {
    if (!entry.contains(name)) {
      throw WrongInput("'" + name + "' is missing");
    }
  }
}

std::vector<double> GridValues(double from, double to, std::size_t count) {
  std::vector<double> values;
  for (std::size_t k = 0; k < count; ++k) {
    const double share = static_cast<double>(k) / static_cast<double>(count - 1);
    values.push_back(k + 1 == count ? to : from + share * (to - from));
  }
  return values;
}

void CheckOrder(const Distribution& distribution) {
  const bool ordered = distribution.kind == Kind::kList || distribution.kind == Kind::kGrid ||
                       distribution.from < distribution.to;
  const bool within =
      distribution.kind != Kind::kTriangular ||
      (distribution.from <= distribution.mean && distribution.mean <= distribution.to);
  if (!ordered) {
    throw WrongInput("'from' must be below 'to'");
  }
  if (!within) {
    throw WrongInput("'mode' must be between 'from' and 'to'");
  }
}

Distribution ReadDistribution(const Json& entry) {
  const std::string word = entry.at("distribution");
  const bool hasValues = entry.contains("values");
  Distribution distribution{.kind = KindOf(word)};
  CheckMembers(entry, word, MembersOf(distribution.kind, hasValues));
  distribution.mean = entry.value(distribution.kind == Kind::kTriangular ? "mode" : "mean", 0.0);
  distribution.deviation = entry.value("deviation", 0.0);
  distribution.from = entry.value("from", -kInfinity);
  distribution.to = entry.value("to", kInfinity);
  distribution.values = entry.value("values", std::vector<double>());
  CheckOrder(distribution);
  if (distribution.kind == Kind::kGrid && !hasValues) {
    distribution.values =
        GridValues(distribution.from, distribution.to, entry.at("count").get<std::size_t>());
  }
  return distribution;
}

/// A field that only takes whole numbers cannot be drawn from a continuous distribution.
void CheckType(const VariedField& varied) {
  const FieldPlace& place = varied.field.place;
  if (std::holds_alternative<std::string*>(place)) {
    throw WrongInput("the field is a text");
  }
  const bool continuous =
      std::holds_alternative<double*>(place) || std::holds_alternative<float*>(place);
  const Kind kind = varied.distribution.kind;
  if (!continuous && kind != Kind::kList && kind != Kind::kGrid) {
    throw WrongInput("the field takes whole numbers; it can vary over a list or a grid");
  }
}

VariedField ReadVaried(const JsonSource& source, const Json& entry, const std::string& path) {
  VariedField varied{.name = entry.at("field")};
  varied.field = At(source, MemberPath(path, "field"), [&] { return FindNamedField(varied.name); });
  varied.percent = entry.value("unit", "absolute") == "percent";
  varied.where = AtLine(source, path, varied.name);
  return At(source, path, [&] {
    varied.distribution = ReadDistribution(entry);
    varied.meanIsOwn = varied.distribution.kind == Kind::kNormal && !entry.contains("mean");
    CheckType(varied);
    return varied;
  });
}

void ReadFields(const JsonSource& source, Study& study) {
  const Json& list = source.root.at("vary");
  for (std::size_t k = 0; k < list.size(); ++k) {
    const std::string path = ElementPath("vary", k);
    VariedField varied = ReadVaried(source, list[k], path);
    if (std::ranges::count(study.fields, varied.field.place,
                           [](const VariedField& other) { return other.field.place; }) != 0) {
      throw WrongInput(AtLine(source, path, varied.name + " varies already"));
    }
    study.fields.push_back(std::move(varied));
  }
}

std::size_t FieldIndex(const Study& study, const std::string& name) {
  const auto found = std::ranges::find(study.fields, name, &VariedField::name);
  if (found == study.fields.end()) {
    throw WrongInput("'" + name + "' does not vary");
  }
  if (found->distribution.kind == Kind::kGrid) {
    throw WrongInput("'" + name + "' varies over a grid, which is not drawn");
  }
  for (const CorrelatedGroup& group : study.groups) {
    const auto index = static_cast<std::size_t>(found - study.fields.begin());
    if (std::ranges::count(group.fields, index) != 0) {
      throw WrongInput("'" + name + "' is in a group already");
    }
  }
  return static_cast<std::size_t>(found - study.fields.begin());
}

void CheckSquare(const Matrix2& matrix, std::size_t size) {
  bool square = matrix.size() == size;
  for (const auto& row : matrix) {
    square = square && row.size() == size;
  }
  if (!square) {
    throw WrongInput("the matrix must have " + std::to_string(size) + " rows of as many numbers");
  }
  for (std::size_t i = 0; i < size; ++i) {
    for (std::size_t j = 0; j <= i; ++j) {
      if (matrix[i][j] != matrix[j][i] || (i == j && matrix[i][i] != 1)) {
        throw WrongInput("the matrix must be symmetric, with ones on its diagonal");
      }
    }
  }
}

CorrelatedGroup ReadGroup(const Json& entry, const Study& study) {
  CorrelatedGroup group;
  for (const std::string name : entry.at("fields")) {
    const std::size_t index = FieldIndex(study, name);
    if (std::ranges::count(group.fields, index) != 0) {
      throw WrongInput("'" + name + "' is in a group already");
    }
    group.fields.push_back(index);
  }
  const Matrix2 matrix = entry.at("correlation");
  CheckSquare(matrix, group.fields.size());
  auto factor = CholeskyFactor(matrix);
  if (!factor) {
    throw WrongInput("the matrix is not positive definite: no quantities can be correlated so");
  }
  group.factor = std::move(*factor);
  return group;
}

/// The measure's index; one that is not there yet is added.
std::size_t MeasureIndex(Study& study, const std::string& name) {
  const auto found = std::ranges::find(study.measures, name, &Measure::name);
  const auto index = static_cast<std::size_t>(found - study.measures.begin());
  if (found == study.measures.end()) {
    study.measures.push_back(ReadMeasure(name));
  }
  return index;
}

void ReadMeasuresAndLimits(const JsonSource& source, Study& study) {
  const Json measures = source.root.value("measure", Json::array());
  for (std::size_t k = 0; k < measures.size(); ++k) {
    At(source, ElementPath("measure", k), [&] { return MeasureIndex(study, measures[k]); });
  }
  if (!source.root.contains("measure")) {
    study.measures = UsualMeasures();
  }
  const Json limits = source.root.value("limits", Json::array());
  for (std::size_t k = 0; k < limits.size(); ++k) {
    At(source, ElementPath("limits", k), [&] {
      Limit limit{.measure = MeasureIndex(study, limits[k].at("measure"))};
      limit.atLeast = Given(limits[k], "atLeast");
      limit.atMost = Given(limits[k], "atMost");
      if (!limit.atLeast && !limit.atMost) {
        throw WrongInput("'atLeast' or 'atMost' is missing");
      }
      study.limits.push_back(limit);
      return 0;
    });
  }
}

void ReadPlots(const JsonSource& source, Study& study) {
  const Json plots = source.root.value("plots", Json::array());
  for (std::size_t k = 0; k < plots.size(); ++k) {
    At(source, ElementPath("plots", k), [&] {
      StudyPlot plot{plots[k].at("plot"), plots[k].value("form", 0)};
      plot.from = Given(plots[k], "from");
      plot.to = Given(plots[k], "to");
      // The grammar of measures knows which plots and forms there are.
      ReadMeasure("value:" + std::to_string(plot.plot) + "." + std::to_string(plot.form) + "@0");
      if (plot.from && plot.to && *plot.from >= *plot.to) {
        throw WrongInput("'from' must be below 'to'");
      }
      study.plots.push_back(plot);
      return 0;
    });
  }
  const Json ends = source.root.value("percentiles", Json::array({5, 95}));
  study.lowerPercentile = ends[0];
  study.upperPercentile = ends[1];
  if (study.lowerPercentile >= study.upperPercentile) {
    throw WrongInput(AtLine(source, "percentiles", "the first must be below the second"));
  }
}

void ReadSettings(const JsonSource& source, Study& study) {
  const Json settings = source.root.value("set", Json::object());
  for (const auto& member : settings.items()) {
    const std::string& name = member.key();
    const Json& value = member.value();
    At(source, MemberPath("set", name), [&] {
      study.settings.push_back(
          value.is_string()    ? ReadSetting(name + "=" + value.get<std::string>())
          : value.is_boolean() ? ReadSetting(name + (value.get<bool>() ? "=true" : "=false"))
                               : SettingOf(FindNamedField(name), value.get<double>()));
      return 0;
    });
  }
}

/// Points of all grids together, 1 without one.
double GridPoints(const Study& study) {
  double points = 1;
  for (const VariedField& varied : study.fields) {
    if (varied.distribution.kind == Kind::kGrid) {
      points *= static_cast<double>(varied.distribution.values.size());
    }
  }
  return points;
}

void ReadRuns(const JsonSource& source, Study& study) {
  constexpr double most = 1e7;
  const double points = GridPoints(study);
  const bool grid = std::ranges::any_of(study.fields, [](const VariedField& varied) {
    return varied.distribution.kind == Kind::kGrid;
  });
  if (!source.root.contains("runs") && !grid) {
    throw WrongInput(AtLine(source, "", "'runs' is missing"));
  }
  if (!source.root.contains("runs") && points > most) {
    throw WrongInput(AtLine(source, "vary", "the grids have more than 10000000 points"));
  }
  study.runs = source.root.value("runs", static_cast<long>(std::min(points, most)));
  study.seed = source.root.value("seed", std::uint64_t{1});
  study.worst = source.root.value("worst", std::size_t{0});
  if (study.worst > 0 && study.limits.empty()) {
    throw WrongInput(
        AtLine(source, "worst", "what is worst is judged by 'limits', which are missing"));
  }
}

Study ReadChecked(const JsonSource& source) {
  Study study{.design = source.root.at("design")};
  study.acceptAliasing = source.root.value("acceptAliasing", false);
  ReadSettings(source, study);
  ReadFields(source, study);
  const Json groups = source.root.value("correlated", Json::array());
  for (std::size_t k = 0; k < groups.size(); ++k) {
    study.groups.push_back(
        At(source, ElementPath("correlated", k), [&] { return ReadGroup(groups[k], study); }));
  }
  ReadMeasuresAndLimits(source, study);
  ReadPlots(source, study);
  ReadRuns(source, study);
  return study;
}

}  // namespace

Study ReadStudy(const std::string& text, const std::string& name) {
  try {
    const JsonSource source = ReadJson(text);
    std::string all;
    for (const std::string& complaint : AgainstSchema(source)) {
      if (!all.empty()) {
        all.append("\n").append(name).append(":");
      }
      all += complaint;
    }
    if (!all.empty()) {
      throw WrongInput(all);
    }
    return ReadChecked(source);
  } catch (const WrongInput& wrong) {
    throw WrongInput(name + ":" + wrong.what());
  }
}

}  // namespace halvorne::studies
