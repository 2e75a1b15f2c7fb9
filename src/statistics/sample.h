#pragma once

#include <cstddef>
#include <span>
#include <vector>

namespace halvorne {

/// Mean and standard deviation of numbers that come one by one (B. P. Welford, Technometrics 4,
/// 1962, 419-420).
class Moments {
 public:
  void Add(double value);

  std::size_t Count() const { return count_; }
  /// NaN of no numbers.
  double Mean() const;
  /// With n - 1 in the denominator; NaN of fewer than two.
  double Deviation() const;

 private:
  std::size_t count_ = 0;
  double mean_ = 0;
  double squares_ = 0;
};

/// The value below which a share of a sample lies, on the line between its neighbours: share 0 is
/// the smallest, 1 the largest (R. J. Hyndman and Y. Fan, The American Statistician 50, 1996,
/// 361-365, definition 7).
/// @param sorted  in ascending order; NaN of none
double SampleQuantile(std::span<const double> sorted, double share);

/// Counts of a sample in bins of one width.
struct Histogram {
  double from = 0;   ///< lower end of the first bin
  double width = 0;  ///< of a bin, 0 where all values are one
  std::vector<std::size_t> counts;
};

/// A histogram from the smallest to the largest value, of as many bins as the square root of their
/// number, 10 to 60.
/// @param sorted  in ascending order
Histogram HistogramOf(std::span<const double> sorted);

}  // namespace halvorne
