#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace halvorne {

/// Lists of data forms.
enum class FormList : std::int16_t {
  kNone = 0,
  kImpedance = 1,
  kLinearLog = 2,
  kWaveform = 3,
  kFaceLayers = 4,
  kPiezoLayer = 5,
  kBackLayers = 6,
};

/// What follows the gathering and the attenuation of a plot.
enum class PlotSteps {
  kNoSteps,
  kPolar,
  kPolarPhase,      ///< PolarConvert, PhaseDelay
  kPolarPhaseLoss,  ///< the same, then 0.25 over the magnitude
  kPower,           ///< power of the gathered pair, weighted by the front load
  kImpulse,         ///< Waveform
  kExcitation,      ///< Waveform, Convolve
};

/// A row of the plot catalogue.
struct CataloguePlot {
  std::int16_t number;
  std::string_view title;  ///< without the layer's number of plots 51 and 53
  FormList forms;
  std::int16_t decibelFactor;  ///< of AttenCalc; 0 where no attenuation applies
  std::int16_t passes;         ///< of AttenCalc
  PlotSteps steps;
  bool dualTrace;  ///< false: the plot has no second trace; time plots decide it by their form
};

/// All 23 plots in the order of their numbers.
std::span<const CataloguePlot> Catalogue();

/// The row of a plot, null for a number outside the catalogue.
const CataloguePlot* FindPlot(int number);

/// Sets LeftLabel, LeftUnit, RightLabel, RightUnit and, for time plots, PeakUnit from the plot and
/// the index of PlotType. What its tables don't set stays untouched.
void GetAmplLabels(std::int16_t plotNumber);

/// Clears PlotType and fills it with a list of data forms; any number outside 1 to 6 leaves it
/// empty.
void PlotTypeLoad(std::int16_t listNumber);

}  // namespace halvorne
