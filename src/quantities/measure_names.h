#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace halvorne {

/// What a measure says about its plot.
enum class MeasureKind {
  kBandwidth,          ///< Hz, between the outermost crossings of a level
  kCentre,             ///< Hz, the middle of these
  kRelativeBandwidth,  ///< per cent of the centre
  kLowerEdge,          ///< Hz
  kUpperEdge,          ///< Hz
  kPeak,               ///< dB, the largest value
  kPeakFrequency,      ///< Hz, where it stands
  kPulseWidth,         ///< s
  kPulsePeak,          ///< the largest magnitude, in the plot's own linear unit
  kLeastLoss,          ///< dB
  kValue,              ///< of the first trace at a point, in the unit of the form
  kSecondValue         ///< of the second trace
};

/// A number that is read off a plot of the design.
struct Measure {
  std::string name;       ///< as it was written
  std::string_view unit;  ///< empty where it is that of the plot
  MeasureKind kind = MeasureKind::kPeak;
  int plot = 0;
  int form = 0;   ///< index in the plot's list
  int level = 0;  ///< index of kMeasureLevels
  double at = 0;  ///< Hz, or s on a plot over time
};

/// A name that a measure may have, for the help.
struct MeasureName {
  std::string_view name;
  std::string_view unit;
  std::string_view meaning;
};

/// All names, in the order in which the help shows them.
std::span<const MeasureName> MeasureNames();

/// What is measured where nobody says what: centre, bandwidth and relative bandwidth of the
/// two-way transfer function at its three levels, its peak and the frequency of that.
std::vector<Measure> UsualMeasures();

/// Reads NAME[:PLOT[.FORM]][@X], "bandwidth6", "peak:14", "value:11.2@5e6". Raises WrongInput, with
/// what is wrong.
Measure ReadMeasure(const std::string& text);

}  // namespace halvorne
