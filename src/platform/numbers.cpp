#include "platform/numbers.h"

#include <limits>

#include "platform/failure.h"

namespace halvorne {

double log10(double& value) {
  if (value < 0) {
    value = -value;
  }
  if (value == 0) {
    value = 1e-38;
  }
  return std::log(value) / std::log(10.0);
}

namespace {

template <class Integer>
Integer Rounded(double value) {
  const double rounded = std::nearbyint(value);  // the rounding mode in force is half to even
  constexpr auto low = static_cast<double>(std::numeric_limits<Integer>::min());
  constexpr auto high = static_cast<double>(std::numeric_limits<Integer>::max());
  if (!(rounded >= low && rounded <= high)) {
    RaiseOverflow();
  }
  return static_cast<Integer>(rounded);
}

}  // namespace

std::int16_t ToInt16(double value) {
  return Rounded<std::int16_t>(value);
}
std::int32_t ToInt32(double value) {
  return Rounded<std::int32_t>(value);
}

float ToSingle(double value) {
  const auto single = static_cast<float>(value);
  if (!std::isfinite(single)) {
    RaiseOverflow();
  }
  return single;
}

}  // namespace halvorne
