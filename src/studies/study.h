#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "quantities/measure_names.h"
#include "quantities/settings.h"
#include "statistics/correlation.h"
#include "statistics/distribution.h"

namespace halvorne::studies {

/// A field that varies.
struct VariedField {
  std::string name;
  NamedField field = {};
  bool percent = false;    ///< the numbers are per cent of the design's own value
  bool meanIsOwn = false;  ///< the mean is the design's own value
  Distribution distribution = {};
  std::string where = {};  ///< line and path, for complaints
};

/// Fields that vary together.
struct CorrelatedGroup {
  std::vector<std::size_t> fields;  ///< indexes of Study::fields
  Matrix2 factor;                   ///< Cholesky factor of the correlations
};

/// What a good transducer keeps.
struct Limit {
  std::size_t measure = 0;  ///< index of Study::measures
  std::optional<double> atLeast = {};
  std::optional<double> atMost = {};
};

/// A plot whose band is drawn.
struct StudyPlot {
  int plot = 0;
  int form = 0;
  std::optional<double> from = {};  ///< Hz or s; none: as the window shows it
  std::optional<double> to = {};
};

/// A study as its file tells it.
struct Study {
  std::string design;  ///< path as written
  std::vector<Setting> settings = {};
  bool acceptAliasing = false;
  long runs = 0;
  std::uint64_t seed = 1;
  std::vector<VariedField> fields = {};
  std::vector<CorrelatedGroup> groups = {};
  std::vector<Measure> measures = {};
  std::vector<Limit> limits = {};
  std::vector<StudyPlot> plots = {};
  double lowerPercentile = 5;
  double upperPercentile = 95;
  std::size_t worst = 0;
};

/// Reads the text of a study file. Raises WrongInput with a line for each thing that is wrong,
/// "NAME:12: vary[1].deviation: ...".
/// @param name  of the file, for complaints
Study ReadStudy(const std::string& text, const std::string& name);

}  // namespace halvorne::studies
