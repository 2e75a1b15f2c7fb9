#pragma once

#include <array>

namespace halvorne {

/// Sines and cosines of the angles i x step, as the library gives them for the product rounded to a
/// double, to 4e-16.
///
/// One short table holds the first row of angles; a row further up is that table turned by the
/// row's first angle (angle addition theorem). What rounding the product adds to an angle is turned
/// in as well: the values are those of the rounded angle, which far up differs by some 1e-11.
class Phasors {
 public:
  static constexpr int kRow = 256;

  /// @param step  rad
  explicit Phasors(double step);

  /// Fills the values of one row, i = first to first + kRow - 1.
  void Fill(int first, double* cosines, double* sines) const;

 private:
  using Row = std::array<double, kRow>;

  double step_;
  Row angle_;
  Row cosine_;
  Row sine_;
};

}  // namespace halvorne
