#include "statistics/distribution.h"

#include <algorithm>
#include <cmath>

#include "statistics/normal.h"

namespace halvorne {
namespace {

double Normal(const Distribution& of, double normal) {
  if (std::isinf(of.from) && std::isinf(of.to)) {
    return of.mean + of.deviation * normal;
  }
  const double lowest = NormalShare((of.from - of.mean) / of.deviation);
  const double highest = NormalShare((of.to - of.mean) / of.deviation);
  const double share = lowest + (highest - lowest) * NormalShare(normal);
  // At a cut that leaves next to nothing the share is rounded to an end of the scale.
  const double within = std::clamp(share, 0x1p-1022, 1 - 0x1p-53);
  return std::clamp(of.mean + of.deviation * NormalQuantile(within), of.from, of.to);
}

/// Inverse of the two parabolas that the share of a triangle consists of.
double Triangular(const Distribution& of, double share) {
  const double width = of.to - of.from;
  const double rise = of.mean - of.from;
  if (share * width <= rise) {
    return of.from + std::sqrt(share * width * rise);
  }
  return of.to - std::sqrt((1 - share) * width * (of.to - of.mean));
}

double Listed(const Distribution& of, double share) {
  const auto count = of.values.size();
  const auto at = static_cast<std::size_t>(share * static_cast<double>(count));
  return of.values[std::min(at, count - 1)];
}

}  // namespace

double ValueAtNormal(const Distribution& distribution, double normal) {
  switch (distribution.kind) {
    case Distribution::Kind::kNormal:
      return Normal(distribution, normal);
    case Distribution::Kind::kUniform:
      return distribution.from + (distribution.to - distribution.from) * NormalShare(normal);
    case Distribution::Kind::kTriangular:
      return Triangular(distribution, NormalShare(normal));
    default:
      return Listed(distribution, NormalShare(normal));
  }
}

}  // namespace halvorne
