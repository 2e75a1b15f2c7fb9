#include "quantities/measure_names.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <charconv>
#include <optional>

#include "plot/catalogue.h"
#include "plot/conversions.h"
#include "quantities/field_values.h"
#include "quantities/refusals.h"
#include "timedomain/view.h"

namespace halvorne {
namespace {

using enum MeasureKind;

/// Which plots a measure can be of.
enum class Of { kBand, kPulse, kLoss, kAny };

/// A row of the table of measures: a name, with a level behind it where it has one.
struct Row {
  std::string_view name;
  std::string_view unit;  ///< empty where it is that of the plot
  MeasureKind kind;
  Of of;
  bool hasLevel;
  bool needsPoint;
  int plot;  ///< where none is named; 0 when one must be
  int form;  ///< where none is named
};

constexpr int kTwoWay = 31;
constexpr int kInsertionLoss = 32;
constexpr int kImpulse = 33;
constexpr int kImpedance = 11;
constexpr int kEnvelope = 1;
constexpr int kLog = 1;

constexpr std::array kRows{
    Row{"bandwidth", "Hz", kBandwidth, Of::kBand, true, false, kTwoWay, 0},
    Row{"centre", "Hz", kCentre, Of::kBand, true, false, kTwoWay, 0},
    Row{"relativeBandwidth", "%", kRelativeBandwidth, Of::kBand, true, false, kTwoWay, 0},
    Row{"lowerEdge", "Hz", kLowerEdge, Of::kBand, true, false, kTwoWay, 0},
    Row{"upperEdge", "Hz", kUpperEdge, Of::kBand, true, false, kTwoWay, 0},
    Row{"peak", "dB", kPeak, Of::kBand, false, false, kTwoWay, 0},
    Row{"peakFrequency", "Hz", kPeakFrequency, Of::kBand, false, false, kTwoWay, 0},
    Row{"pulseWidth", "s", kPulseWidth, Of::kPulse, true, false, kImpulse, kEnvelope},
    Row{"pulsePeak", "", kPulsePeak, Of::kPulse, false, false, kImpulse, kEnvelope},
    Row{"insertionLoss", "dB", kLeastLoss, Of::kLoss, false, false, kInsertionLoss, kLog},
    Row{"impedance", "ohms", kValue, Of::kAny, false, true, kImpedance, 0},
    Row{"impedancePhase", "degrees", kSecondValue, Of::kAny, false, true, kImpedance, 0},
    Row{"value", "", kValue, Of::kAny, false, true, 0, 0},
    Row{"secondValue", "", kSecondValue, Of::kAny, false, true, 0, 0},
};

constexpr std::array kNames{
    MeasureName{"bandwidthL", "Hz", "width of the band at -L dB, between its outermost crossings"},
    MeasureName{"centreL", "Hz", "the middle of that band"},
    MeasureName{"relativeBandwidthL", "%", "its width in per cent of its middle"},
    MeasureName{"lowerEdgeL", "Hz", "its lower end"},
    MeasureName{"upperEdgeL", "Hz", "its upper end"},
    MeasureName{"peak", "dB", "the largest value"},
    MeasureName{"peakFrequency", "Hz", "where the largest value stands"},
    MeasureName{"pulseWidthL", "s", "width of the pulse's envelope at -L dB (plot 33)"},
    MeasureName{"pulsePeak", "linear", "largest magnitude of the pulse (plot 33)"},
    MeasureName{"insertionLoss", "dB", "the least two-way insertion loss; with @X that at X"},
    MeasureName{"impedance@X", "ohms", "magnitude of the electrical input impedance"},
    MeasureName{"impedancePhase@X", "degrees", "its phase"},
    MeasureName{"value:N.K@X", "as plotted", "the first trace of plot N in form K at X"},
    MeasureName{"secondValue:N.K@X", "as plotted", "the second trace"},
};

/// A text cut into its parts.
struct Parts {
  std::string name;
  std::string level;
  std::optional<std::string> plot;
  std::optional<std::string> form;
  std::optional<std::string> at;
};

/// Cuts off what stands behind a character, if it is there.
std::optional<std::string> CutBehind(std::string& text, char mark) {
  const std::size_t place = text.find(mark);
  if (place == std::string::npos) {
    return std::nullopt;
  }
  std::string behind = text.substr(place + 1);
  text.erase(place);
  return behind;
}

Parts Split(std::string text) {
  Parts parts;
  parts.at = CutBehind(text, '@');
  parts.plot = CutBehind(text, ':');
  if (parts.plot) {
    parts.form = CutBehind(*parts.plot, '.');
  }
  const std::size_t digits = text.find_last_not_of("0123456789") + 1;
  parts.name = text.substr(0, digits);
  parts.level = text.substr(digits);
  return parts;
}

bool SameButCase(std::string_view a, std::string_view b) {
  return std::ranges::equal(
      a, b, [](unsigned char x, unsigned char y) { return std::tolower(x) == std::tolower(y); });
}

const Row& FindRow(const std::string& name) {
  const auto* row = std::ranges::find(kRows, name, &Row::name);
  if (row != kRows.end()) {
    return *row;
  }
  row =
      std::ranges::find_if(kRows, [&](const Row& other) { return SameButCase(other.name, name); });
  if (row != kRows.end()) {
    throw WrongInput("the measure is called " + std::string(row->name));
  }
  throw WrongInput("there is no such measure; 'halvorne-batch help measures' lists all");
}

int ReadIndex(const std::string& text, const char* what) {
  int index = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), index);
  if (error != std::errc() || end != text.data() + text.size() || index < 0) {
    throw WrongInput("'" + text + "' is no " + what);
  }
  return index;
}

bool FitsPlot(Of of, int plot) {
  constexpr int voltageReflection = 12;
  constexpr int pressureReflection = 22;
  switch (of) {
    case Of::kBand:  // a reflection coefficient has no band to measure
      return LinLogFactor(plot) != 0 && plot != voltageReflection && plot != pressureReflection;
    case Of::kPulse:
      return IsTimePlot(plot);
    case Of::kLoss:
      return plot == kInsertionLoss;
    default:
      return true;
  }
}

int FormCount(FormList forms) {
  switch (forms) {
    case FormList::kImpedance:
      return 6;
    case FormList::kLinearLog:
      return 2;
    case FormList::kWaveform:
      return 9;
    case FormList::kPiezoLayer:
      return 1;
    default:
      return 10;  // as many plates as there can be
  }
}

void ReadPlot(const Parts& parts, const Row& row, Measure& measure) {
  if (!parts.plot && row.plot == 0) {
    throw WrongInput("the plot is missing, as in value:31.1@5e6");
  }
  measure.plot = parts.plot ? ReadIndex(*parts.plot, "number of a plot") : row.plot;
  measure.form = parts.form ? ReadIndex(*parts.form, "index of a form") : row.form;
  const CataloguePlot* const plot = FindPlot(measure.plot);
  if (plot == nullptr) {
    throw WrongInput("there is no plot " + std::to_string(measure.plot));
  }
  if (!FitsPlot(row.of, measure.plot)) {
    throw WrongInput("plot " + std::to_string(measure.plot) + " has no " + std::string(row.name));
  }
  if (measure.form >= FormCount(plot->forms)) {
    throw WrongInput("plot " + std::to_string(measure.plot) + " has no form " +
                     std::to_string(measure.form));
  }
}

/// Index of a level in dB, which is another one in ratios of powers than in amplitudes.
int ReadLevel(const Parts& parts, const Row& row, int plot) {
  if (!row.hasLevel) {
    if (!parts.level.empty()) {
      throw WrongInput(std::string(row.name) + " has no level");
    }
    return 0;
  }
  constexpr std::array<std::string_view, 3> amplitude{"6", "20", "40"};
  constexpr std::array<std::string_view, 3> power{"3", "10", "20"};
  constexpr int powerFactor = 10;
  const auto& levels = LinLogFactor(plot) == powerFactor ? power : amplitude;
  const auto* const found = std::ranges::find(levels, parts.level);
  if (found == levels.end()) {
    const std::string name(row.name);
    throw WrongInput("of plot " + std::to_string(plot) + " there are " + name +
                     std::string(levels[0]) + ", " + name + std::string(levels[1]) + " and " +
                     name + std::string(levels[2]));
  }
  return static_cast<int>(found - levels.begin());
}

}  // namespace

std::span<const MeasureName> MeasureNames() {
  return kNames;
}

std::vector<Measure> UsualMeasures() {
  std::vector<Measure> measures;
  for (const char* name : {"centre6", "bandwidth6", "relativeBandwidth6", "centre20", "bandwidth20",
                           "relativeBandwidth20", "centre40", "bandwidth40", "relativeBandwidth40",
                           "peak", "peakFrequency"}) {
    measures.push_back(ReadMeasure(name));
  }
  return measures;
}

Measure ReadMeasure(const std::string& text) {
  const Parts parts = Split(text);
  const Row& row = FindRow(parts.name);
  Measure measure{.name = text, .unit = row.unit, .kind = row.kind};
  ReadPlot(parts, row, measure);
  measure.level = ReadLevel(parts, row, measure.plot);
  if (parts.at && row.of == Of::kLoss) {
    measure.kind = kValue;
  } else if (parts.at.has_value() != row.needsPoint) {
    throw WrongInput(row.needsPoint ? "the point is missing, as in " + std::string(row.name) +
                                          (row.plot == 0 ? ":31@5e6" : "@5e6")
                                    : std::string(row.name) + " is of no single point");
  }
  if (parts.at) {
    measure.at = ReadNumber(*parts.at);
  }
  return measure;
}

}  // namespace halvorne
