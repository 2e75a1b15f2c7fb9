#pragma once

#include <map>
#include <string>
#include <vector>

#include "studies/study.h"

namespace halvorne::studies {

/// The numbers of all runs, read back from their lines.
struct RunTable {
  std::vector<std::vector<double>> fields;    ///< of each varied field, one for each run
  std::vector<std::vector<double>> measures;  ///< NaN where there is none
  std::vector<bool> failed;
  struct Error {
    long runs = 0;
    long first = 0;
  };
  std::map<std::string, Error> errors;  ///< by text; those that came first

  long Failed() const;
};

/// Reads the lines of all runs. Raises NotPossible when the file cannot be read or one is missing.
RunTable ReadRunTable(const std::string& file, const Study& study);

}  // namespace halvorne::studies
