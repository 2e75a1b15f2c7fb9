#include "batch/measurements.h"

#include <cmath>
#include <nlohmann/json.hpp>
#include <string>
#include <system_error>
#include <vector>

#include "batch/design_session.h"
#include "batch/output.h"
#include "batch/spool.h"
#include "batch/stops.h"
#include "engine/frequency_sweep.h"
#include "platform/files/line_reader.h"
#include "quantities/caught_messages.h"
#include "quantities/measuring.h"
#include "quantities/opened_design.h"

namespace halvorne::batch {
namespace {

using Json = nlohmann::ordered_json;

std::string LineOf(const Json& object) {
  // A text of a design may be in any encoding.
  return object.dump(-1, ' ', false, Json::error_handler_t::replace) + "\n";
}

MeasureList WantedMeasures(const Request& request) {
  return MeasureList(request.measures.empty() ? UsualMeasures() : request.measures);
}

void AddMeasures(const MeasureList& list, std::vector<double>& values, Json& object) {
  values.resize(list.Measures().size());
  list.Take(values);
  for (std::size_t k = 0; k < values.size(); ++k) {
    object[list.Measures()[k].name] = std::isnan(values[k]) ? Json() : Json(values[k]);
  }
}

/// The words of a line; double quotes hold blanks together and do not stay.
std::vector<std::string> WordsOf(const std::string& line) {
  std::vector<std::string> words;
  bool inside = false;
  bool quoted = false;
  for (const char c : line) {
    if (c == '"') {
      quoted = !quoted;
    }
    const bool parts = (c == ' ' || c == '\t') && !quoted;
    if (!parts && !inside) {
      words.emplace_back();
    }
    inside = !parts;
    if (inside && c != '"') {
      words.back() += c;
    }
  }
  if (quoted) {
    throw WrongCommandLine("a double quote is not closed");
  }
  return words;
}

std::vector<Setting> SettingsOf(const std::string& line) {
  std::vector<Setting> settings;
  for (const std::string& word : WordsOf(line)) {
    if (word == "--set") {
      continue;  // as on the command line
    }
    try {
      settings.push_back(ReadSetting(word));
    } catch (const WrongCommandLine& wrong) {
      throw WrongCommandLine(word + ": " + wrong.what());
    }
  }
  return settings;
}

bool IsPassedOver(const std::string& line) {
  const std::size_t first = line.find_first_not_of(" \t");
  return first == std::string::npos || line[first] == '#';
}

/// The variants of the open design, one after the other.
class Variants {
 public:
  explicit Variants(const Request& request)
      : boxes_(request.acceptAliasing), measures_(WantedMeasures(request)) {}

  std::string Measured(const std::string& line, long number) {
    Json object{{"line", number}};
    boxes_.Forget();
    try {
      Calculate(SettingsOf(line));
      AddMeasures(measures_, values_, object);
    } catch (const std::exception& wrong) {
      object = {{"line", number}, {"error", wrong.what()}};
    }
    opened_.PutBack();
    if (!boxes_.First().empty()) {
      object = {{"line", number}, {"error", boxes_.First()}};
    }
    return LineOf(object);
  }

  bool LoadsFlattened() const { return loadsFlattened_; }

 private:
  void Calculate(const std::vector<Setting>& settings) {
    loadsFlattened_ = opened_.Apply(settings) || loadsFlattened_;
    PrelimCalc();
    MainCalc();
  }

  CaughtMessages boxes_;
  OpenedDesign opened_;
  MeasureList measures_;
  std::vector<double> values_;
  bool loadsFlattened_ = false;
};

void WriteVariants(const Session& session) try {
  const std::string& name = session.request.variants;
  LineReader reader(name);
  Spool spool(session);
  Variants variants(session.request);
  std::string line;
  while (reader.Next(line)) {
    if (reader.WasTooLong()) {
      spool.Add(LineOf({{"line", reader.Number()},
                        {"error", "the line is longer than " +
                                      std::to_string(LineReader::kMostBytes) + " bytes"}}));
    } else if (!IsPassedOver(line)) {
      spool.Add(variants.Measured(line, reader.Number()));
    }
  }
  spool.Finish();
  if (variants.LoadsFlattened()) {
    TellFlatLoads();
  }
} catch (const std::system_error& refused) {
  throw CommandFailed(session.request.variants + " could not be read: " + refused.code().message());
}

}  // namespace

void WriteMeasurements(const Session& session) {
  if (!session.request.variants.empty()) {
    WriteVariants(session);
    return;
  }
  std::vector<double> values;
  Json object = Json::object();
  AddMeasures(WantedMeasures(session.request), values, object);
  WriteOutput(session, LineOf(object));
}

std::string MeasuresHelpText() {
  std::string text =
      "Measures for --measure NAME, unrounded; null where the plot does not have it. L is a "
      "level,\n"
      "6, 20 or 40 dB below the peak, 3, 10 or 20 dB for ratios of powers (plots 13, 15, 23, 25):\n"
      "bandwidth6. X is a frequency in Hz, or a time in s on a plot over time. They are of the\n"
      "two-way transfer function, plot 31, or of the plot told here, unless another is named "
      "behind\n"
      "a colon: bandwidth3:13, peak:14, pulseWidth20:34. A number behind a point is the form:\n"
      "pulseWidth6:33.0 is that of the waveform and not of its envelope.\n"
      "\n";
  constexpr std::size_t nameColumn = 22;
  constexpr std::size_t unitColumn = 12;
  for (const MeasureName& row : MeasureNames()) {
    std::string name(row.name);
    std::string unit(row.unit);
    name.resize(nameColumn, ' ');
    unit.resize(unitColumn, ' ');
    text.append("  ").append(name).append(unit).append(row.meaning).append("\n");
  }
  return text +
         "\n"
         "Without --measure: centre, bandwidth and relativeBandwidth at 6, 20 and 40 dB, peak and\n"
         "peakFrequency.\n";
}

}  // namespace halvorne::batch
