#pragma once

#include <vector>

namespace halvorne {

/// How a quantity spreads.
struct Distribution {
  enum class Kind {
    kNormal,      ///< mean, deviation, cut off outside of from and to
    kUniform,     ///< from, to
    kTriangular,  ///< from, mode, to
    kList,        ///< each of the values as often as the others
    kGrid         ///< one value after the other
  };

  Kind kind = Kind::kNormal;
  double mean = 0;       ///< of the normal one; the mode of the triangular one
  double deviation = 0;  ///< standard deviation, above 0
  double from = 0;       ///< lowest value, -infinity for none
  double to = 0;         ///< highest value, infinity for none
  std::vector<double> values = {};
};

/// The value below which a share of the quantity lies. Not for a grid.
/// @param normal  the share as a quantile of the standard normal distribution, between about -8.2
///                and 8.2: what correlated quantities are drawn as
double ValueAtNormal(const Distribution& distribution, double normal);

}  // namespace halvorne
