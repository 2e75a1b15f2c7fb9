#include "statistics/sample.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace halvorne {
namespace {

constexpr double kNone = std::numeric_limits<double>::quiet_NaN();

}  // namespace

void Moments::Add(double value) {
  ++count_;
  const double off = value - mean_;
  mean_ += off / static_cast<double>(count_);
  squares_ += off * (value - mean_);
}

double Moments::Mean() const {
  return count_ == 0 ? kNone : mean_;
}

double Moments::Deviation() const {
  return count_ < 2 ? kNone : std::sqrt(squares_ / static_cast<double>(count_ - 1));
}

double SampleQuantile(std::span<const double> sorted, double share) {
  if (sorted.empty()) {
    return kNone;
  }
  const double place = share * static_cast<double>(sorted.size() - 1);
  const auto lower = static_cast<std::size_t>(place);
  if (lower + 1 >= sorted.size()) {
    return sorted.back();
  }
  return sorted[lower] + (place - static_cast<double>(lower)) * (sorted[lower + 1] - sorted[lower]);
}

Histogram HistogramOf(std::span<const double> sorted) {
  constexpr double fewest = 10;
  constexpr double most = 60;
  if (sorted.empty()) {
    return {};
  }
  const double span = sorted.back() - sorted.front();
  if (span == 0) {
    return {sorted.front(), 0, {sorted.size()}};
  }
  const double bins =
      std::clamp(std::round(std::sqrt(static_cast<double>(sorted.size()))), fewest, most);
  Histogram histogram{sorted.front(), span / bins,
                      std::vector<std::size_t>(static_cast<std::size_t>(bins), 0)};
  for (const double value : sorted) {
    const auto bin = static_cast<std::size_t>((value - sorted.front()) / span * bins);
    ++histogram.counts[std::min(bin, histogram.counts.size() - 1)];
  }
  return histogram;
}

}  // namespace halvorne
