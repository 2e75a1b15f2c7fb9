#include "studies/run_table.h"

#include <algorithm>
#include <limits>
#include <nlohmann/json.hpp>
#include <system_error>

#include "platform/files/line_reader.h"
#include "quantities/refusals.h"
#include "studies/study_folder.h"

namespace halvorne::studies {
namespace {

using Json = nlohmann::json;

/// Texts of errors that are told apart; what says the same of each run is few.
constexpr std::size_t kMostErrors = 20;

double NumberIn(const Json& object, const std::string& name) {
  const auto found = object.find(name);
  return found != object.end() && found->is_number() ? found->get<double>()
                                                     : std::numeric_limits<double>::quiet_NaN();
}

void AddError(RunTable& table, const std::string& text, long run) {
  if (table.errors.size() < kMostErrors || table.errors.contains(text)) {
    RunTable::Error& error = table.errors[text];
    error.first = error.runs == 0 ? run : error.first;
    ++error.runs;
  }
}

void AddLine(RunTable& table, const Study& study, const std::string& line, long run) {
  const Json object = Json::parse(line);
  const auto at = static_cast<std::size_t>(run);
  for (std::size_t k = 0; k < study.fields.size(); ++k) {
    table.fields[k][at] = NumberIn(object.at("fields"), study.fields[k].name);
  }
  if (object.contains("error")) {
    table.failed[at] = true;
    AddError(table, object.at("error"), run);
    return;
  }
  for (std::size_t k = 0; k < study.measures.size(); ++k) {
    table.measures[k][at] = NumberIn(object.at("measures"), study.measures[k].name);
  }
}

}  // namespace

long RunTable::Failed() const {
  return std::count(failed.begin(), failed.end(), true);
}

RunTable ReadRunTable(const std::string& file, const Study& study) {
  const auto runs = static_cast<std::size_t>(study.runs);
  const std::vector<double> none(runs, std::numeric_limits<double>::quiet_NaN());
  RunTable table{std::vector(study.fields.size(), none),
                 std::vector(study.measures.size(), none),
                 std::vector<bool>(runs, false),
                 {}};
  long run = 0;
  try {
    LineReader reader(file);
    std::string line;
    for (; reader.Next(line); ++run) {
      if (run >= study.runs || RunOfLine(line) != run) {
        throw NotPossible(file + ", line " + std::to_string(reader.Number()) +
                          ": this is not run " + std::to_string(run));
      }
      AddLine(table, study, line, run);
    }
  } catch (const std::system_error& refused) {
    throw NotPossible(file + " could not be read: " + refused.code().message());
  } catch (const Json::exception&) {
    throw NotPossible(file + ", line " + std::to_string(run + 1) + ": this is no run");
  }
  if (run < study.runs) {
    throw NotPossible(file + " ends behind run " + std::to_string(run - 1) + " of " +
                      std::to_string(study.runs));
  }
  return table;
}

}  // namespace halvorne::studies
