#include "plot/axis_end_rounding.h"

#include <algorithm>
#include <cmath>

#include "platform/bounded.h"
#include "platform/failure.h"
#include "platform/numbers.h"
#include "plot/plot_state.h"

namespace halvorne {
namespace {

constexpr Bounded<float, 0, 6> kMantissas{{1, 1.5F, 2, 3, 5, 7.5F, 10}};

void FindExtremes(std::int32_t first, std::int32_t last, const TimePoints& array,
                  const AxisExtremes& others) {
  scale.LeftMax = others.LeftMax;
  scale.LeftMin = others.LeftMin;
  scale.RightMax = others.RightMax;
  scale.RightMin = others.RightMin;
  for (std::int32_t i = first; i <= last; ++i) {
    const float left = ToSingle(array(i).Y1);
    const float right = ToSingle(array(i).Y2);
    scale.LeftMax = std::max(scale.LeftMax, left);
    scale.LeftMin = std::min(scale.LeftMin, left);
    scale.RightMax = std::max(scale.RightMax, right);
    scale.RightMin = std::min(scale.RightMin, right);
  }
  Limit(scale.LeftMax, scale.LeftMin);
  Limit(scale.RightMax, scale.RightMin);
}

void RoundLinearAxis(float& max, float& min, float& magnitude) {
  max = RoundOff(max, true);
  min = RoundOff(min, false);
  AdjustMag(max, min, magnitude);
  if (max != min) {
    return;
  }
  if (max == 0) {
    max = 1;
  }
  max = ToSingle(max > 0 ? max * 1.2 : max * 0.8);
}

void RoundLogAxis(float& max, float& min, float& magnitude) {
  // Kept: the top rises even when it is a whole number of steps, 20 gives 25.
  max = ToSingle((Int(max / 5.0) + 1) * 5);
  min = ToSingle(Int(min / 5.0) * 5);
  magnitude = 1;
  if (max == min) {
    min -= 5;
  }
}

/// One end of an axis between the magnitudes 1e-12 and 1e12; a zero stays zero.
float Bound(float end) {
  if (std::abs(end) > 1e12F) {
    end = ToSingle(Sgn(end) * 1e12);
  }
  if (std::abs(end) < 1e-12F) {
    end = ToSingle(Sgn(end) * 1e-12);
  }
  return end;
}

double Decade(double value) {
  return Int(log10(std::abs(value)));
}

/// The end of an axis whose other end `far` lies a decade or more further from zero.
float NearEnd(float near, float far) {
  return Sgn(near) != Sgn(far) ? ToSingle(std::pow(10.0, Decade(far)) * Sgn(near)) : 0;
}

}  // namespace

void Limit(float& max, float& min) try {
  max = Bound(max);
  min = Bound(min);
  if (max == min) {
    max = ToSingle(max * 1.01);
    min = ToSingle(min * 0.99);
  }
} catch (...) {
  ReportFailure("Limit", "PLOTIT");
}

float RoundOff(float& x, bool up) try {
  if (x == 0) {
    x = 1e-30F;
  }
  const double magnitude = std::abs(double{x});
  const double decade = std::pow(10.0, Int(std::log(magnitude) / std::log(10.0)));
  const float mantissa = ToSingle(magnitude / decade);
  int k = 0;
  while (mantissa > kMantissas(k)) {
    ++k;
  }
  // Kept: towards zero even a mantissa of the table steps down, 5 gives 3; only 1 stays.
  const bool towardsZero = (x > 0) != up;
  if (towardsZero && k > 0) {
    --k;
  }
  return ToSingle(Sgn(x) * kMantissas(k) * decade);
} catch (...) {
  ReportFailure("RoundOff", "PLOTIT");
  return 0;
}

void AdjustMag(float& max, float& min, float& magnitude) try {
  const double maxDecade = Decade(max);
  const double minDecade = Decade(min);
  if (maxDecade > minDecade) {
    min = NearEnd(min, max);
  } else if (maxDecade < minDecade) {
    max = NearEnd(max, min);
  }
  double largest = std::max(std::abs(max), std::abs(min));
  magnitude = ToSingle(std::pow(10.0, 3 * Int(log10(largest) / 3)));
} catch (...) {
  ReportFailure("AdjustMag", "PLOTIT");
}

void AutoRange(std::int32_t first, std::int32_t last, const TimePoints& array,
               const AxisExtremes& others) try {
  FindExtremes(first, last, array, others);
  RoundLinearAxis(scale.LeftMax, scale.LeftMin, scale.LeftMag);
  RoundLinearAxis(scale.RightMax, scale.RightMin, scale.RightMag);
} catch (...) {
  ReportFailure("AutoRange", "PLOTIT");
}

void LogAutoRange(std::int32_t first, std::int32_t last, const TimePoints& array,
                  const AxisExtremes& others) try {
  FindExtremes(first, last, array, others);
  RoundLogAxis(scale.LeftMax, scale.LeftMin, scale.LeftMag);
  RoundLogAxis(scale.RightMax, scale.RightMin, scale.RightMag);
} catch (...) {
  ReportFailure("LogAutoRange", "PLOTIT");
}

}  // namespace halvorne
