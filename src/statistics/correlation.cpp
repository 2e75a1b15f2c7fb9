#include "statistics/correlation.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <numeric>

namespace halvorne {

std::optional<Matrix2> CholeskyFactor(const Matrix2& matrix) {
  // A pivot that is only rounding: the matrix is singular to working precision.
  constexpr double smallest = 1e-12;
  const std::size_t n = matrix.size();
  Matrix2 factor(n, std::vector<double>(n, 0));
  for (std::size_t i = 0; i < n; ++i) {
    for (std::size_t j = 0; j <= i; ++j) {
      double rest = matrix[i][j];
      for (std::size_t k = 0; k < j; ++k) {
        rest -= factor[i][k] * factor[j][k];
      }
      if (i != j) {
        factor[i][j] = rest / factor[j][j];
      } else if (rest > smallest) {
        factor[i][i] = std::sqrt(rest);
      } else {
        return std::nullopt;
      }
    }
  }
  return factor;
}

std::vector<double> Correlated(const Matrix2& factor, std::span<const double> independent) {
  std::vector<double> correlated(independent.size(), 0);
  for (std::size_t i = 0; i < correlated.size(); ++i) {
    for (std::size_t k = 0; k <= i; ++k) {
      correlated[i] += factor[i][k] * independent[k];
    }
  }
  return correlated;
}

std::vector<double> Ranks(std::span<const double> sample) {
  std::vector<std::size_t> order(sample.size());
  std::iota(order.begin(), order.end(), std::size_t{0});
  std::ranges::stable_sort(order, {}, [sample](std::size_t k) { return sample[k]; });
  std::vector<double> ranks(sample.size());
  for (std::size_t first = 0; first < order.size();) {
    std::size_t behind = first;
    while (behind < order.size() && sample[order[behind]] == sample[order[first]]) {
      ++behind;
    }
    for (std::size_t k = first; k < behind; ++k) {
      ranks[order[k]] = static_cast<double>(first + behind + 1) / 2;
    }
    first = behind;
  }
  return ranks;
}

double RankCorrelation(std::span<const double> x, std::span<const double> y) {
  const std::vector<double> a = Ranks(x);
  const std::vector<double> b = Ranks(y);
  const double mean = (static_cast<double>(a.size()) + 1) / 2;
  double ab = 0;
  double aa = 0;
  double bb = 0;
  for (std::size_t k = 0; k < a.size(); ++k) {
    ab += (a[k] - mean) * (b[k] - mean);
    aa += (a[k] - mean) * (a[k] - mean);
    bb += (b[k] - mean) * (b[k] - mean);
  }
  return aa > 0 && bb > 0 ? ab / std::sqrt(aa * bb) : std::numeric_limits<double>::quiet_NaN();
}

}  // namespace halvorne
