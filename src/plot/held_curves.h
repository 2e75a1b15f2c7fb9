#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "plot/axis_end_rounding.h"
#include "plot/held_designs.h"

namespace halvorne {

/// Points at equal steps of x.
struct Steps {
  double origin = 0;  ///< x of point 0, Hz or s
  double step = 0;
  double X(double point) const { return origin + point * step; }
  double Point(double x) const { return (x - origin) / step; }
};

/// The curves of a held design in the plot and form on show.
struct HeldCurves {
  // What they were made for.
  std::int16_t plotNumber = 0;
  int form = -1;
  std::int16_t phaseOption = 0;

  bool shown = false;                    ///< false: the design cannot show this plot
  std::string why;                       ///< then in words what hinders it
  Steps axis;                            ///< x of the points
  Steps spectrumAxis;                    ///< where the second trace is a spectrum, x of that
  std::vector<PlotPoint> values;         ///< as points.PlotData, in plotted units
  std::vector<PlotPoint> impulseValues;  ///< as points.PlotDataImpulse, of excitation plots
  std::vector<PlotPoint> exciteValues;   ///< as points.PlotDataExcite
  std::size_t spectrumPoints = 0;        ///< how many of the second values are a spectrum's
  bool dualTrace = false;
  Measured measured;  ///< the design's own measurements, in its own units

  /// The values that belong with one of the arrays of `points`.
  const std::vector<PlotPoint>& ValuesBeside(const TimePoints& array) const;
};

/// x of the points of the present plot, and of its spectrum's. Raises 11 without a sample rate.
Steps PresentAxis();
Steps PresentSpectrumAxis();

/// Makes the curves of those held designs that were not made for the plot and form on show. The
/// present state is afterwards what it was, bit by bit; no box is shown. Raises 7 without memory.
void MakeHeldCurves();

/// Extremes of the held curves beside an array of the present plot, of which the points from
/// `first` to `last` are looked at; none while Scale to All is off.
AxisExtremes HeldExtremes(std::int32_t first, std::int32_t last, const TimePoints& array);
/// The same of their spectra, over all of the present sweep.
AxisExtremes HeldSpectrumExtremes(const TimePoints& array);

}  // namespace halvorne
