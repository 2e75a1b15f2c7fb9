#pragma once

#include <span>
#include <string>
#include <vector>

#include "plot/held_designs.h"

namespace halvorne {

/// Title of the question before a file of curves is written over.
inline constexpr const char* kSaveCsvTitle = "Halvorne Save Data";

/// A curve of the plot on show as the columns x, y1, y2 of a table.
struct CsvCurve {
  std::string suffix;       ///< behind the names of its columns
  double sampleRateHz = 0;  ///< above 0: x is time, point / rate, s
  double freqStart = 0;     ///< else frequency, and that of a spectrum, Hz
  double freqStep = 0;
  std::span<const PlotPoint> values;  ///< y before the axis divisor
  bool dualTrace = false;             ///< y2 is a second trace
  std::size_t spectrumPoints = 0;     ///< how many y2 are a spectrum over the sweep; 0: none

  double Frequency(std::size_t point) const {
    return static_cast<double>(point) * freqStep + freqStart;
  }
  double X(std::size_t point) const {
    return sampleRateHz > 0 ? static_cast<double>(point) / sampleRateHz : Frequency(point);
  }
};

/// Name and unit of the plotted values, "Vo/Vi in dB": those of the axes, but for the log forms of
/// acoustical impedances, where the axes keep the names of the plot before.
std::string FirstTraceWords();
std::string SecondTraceWords();

/// The curve of the present design in one of the arrays of `points`.
CsvCurve PresentCurve(const TimePoints& array);
/// The curve of a held design that shows the plot, beside one of the arrays of `points`.
CsvCurve HeldCurve(const HeldDesign& held, const TimePoints& array);

/// Curves beside each other as CSV, each with x of its own, since sweeps and sample rates differ;
/// cells of curves that have ended are empty, and so is y2 without a second trace. Spectra follow
/// behind an empty line as a table of their own, "x,spectrum". All numbers are the shortest that
/// read back the same.
std::string CsvTable(std::span<const CsvCurve> curves);

/// The plot on show with its held designs as CSV: a head of comment lines that names the design,
/// plot, form and units, then the table; of an excitation plot the response's, then those of the
/// impulse and the excitation, each behind a comment line. Held designs that cannot show the plot
/// are named in the head only.
/// @param behindHead  a table that stands between the head and the curves; empty: none
std::string CurvesAsCsv(const std::string& behindHead = "");

}  // namespace halvorne
