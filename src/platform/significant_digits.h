#pragma once

#include <cstdint>
#include <optional>

namespace halvorne {

/// The leading decimal digits of a number: number ≈ digits × 10^(exponent - count + 1).
struct SignificantDigits {
  std::uint64_t digits = 0;  ///< as many as were asked for, the first not 0
  int exponent = 0;          ///< power of ten of the first digit
};

/// The first `count` decimal digits of a number, rounded to the nearest, a tie to even: what the
/// library's conversion finds, several times as fast.
///
/// @param value  any number; nothing is returned outside 10^(count - 27) to 10^(count - 1)
/// @param count  7 or 15
std::optional<SignificantDigits> LeadingDigits(double value, int count);

}  // namespace halvorne
