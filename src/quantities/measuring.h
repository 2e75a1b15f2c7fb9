#pragma once

#include <span>
#include <vector>

#include "quantities/measure_names.h"

namespace halvorne {

/// Measures that are taken together, each plot gathered once.
class MeasureList {
 public:
  explicit MeasureList(std::vector<Measure> measures);

  const std::vector<Measure>& Measures() const { return measures_; }

  /// Takes all of them from the curves as they stand, unrounded.
  ///
  /// Changes which plot is on show, its gathered and converted data; nothing is drawn. What fails
  /// is shown as a message box of the procedure in which it arose.
  /// @param values  one for each measure, in their order; NaN where the plot does not have it: a
  ///                point outside of it, a band or a pulse that is nowhere above the level, a
  ///                waveform that is refused, a plate that the design has not
  void Take(std::span<double> values) const;

 private:
  std::vector<Measure> measures_;
  std::vector<std::size_t> order_;  ///< plots and forms together
};

/// Puts a plot of the design in one of its forms into points.PlotData, undrawn.
/// @return false when its waveform is refused or the design has no such plate
bool MakePlotData(int plotNumber, int form);

/// A trace of the plot in points.PlotData at a frequency in Hz or a time in s, between two points
/// on the line through them; NaN outside of the plot.
double PlotValueAt(int plotNumber, double x, bool second);

}  // namespace halvorne
