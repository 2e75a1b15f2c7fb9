#include "platform/significant_digits.h"

#include <array>
#include <bit>

namespace halvorne {
namespace {

/// Whole numbers of 128 bits, an extension of both compilers.
__extension__ using Wide = unsigned __int128;

constexpr int kFractionBits = 52;
constexpr int kExponentBias = 1023;
/// The largest power of five in 63 bits: times the 53 bits of a number it still is exact.
constexpr int kLastPower = 27;

template <int kBase, int kLast>
constexpr auto Powers() {
  std::array<std::uint64_t, kLast + 1> powers{1};
  for (int i = 1; i <= kLast; ++i) {
    powers[i] = powers[i - 1] * kBase;
  }
  return powers;
}
constexpr auto kPowersOfFive = Powers<5, kLastPower>();
constexpr auto kPowersOfTen = Powers<10, 15>();

/// The nearest whole number to value / 2^shift, a tie to even.
std::uint64_t ShiftedToNearest(Wide value, int shift) {
  const auto whole = static_cast<std::uint64_t>(value >> shift);
  const Wide rest = value - (Wide{whole} << shift);
  const Wide half = Wide{1} << (shift - 1);
  return whole + (rest > half || (rest == half && whole % 2 != 0) ? 1 : 0);
}

}  // namespace

std::optional<SignificantDigits> LeadingDigits(double value, int count) {
  const auto bits = std::bit_cast<std::uint64_t>(value);
  const int power = static_cast<int>(bits >> kFractionBits) - kExponentBias;  // 2^power <= value
  constexpr std::uint64_t implicitBit = std::uint64_t{1} << kFractionBits;
  const std::uint64_t mantissa = (bits & (implicitBit - 1)) | implicitBit;
  // 1233 / 4096 is near enough to log10(2) for the powers that are left below.
  int exponent = power * 1233 >> 12;
  const int scale = count - 1 - exponent;
  if (scale < 1 || scale > kLastPower) {
    return std::nullopt;
  }
  // value x 10^scale without any rounding; ten times too much when the first digit was one further.
  const auto scaled = [&](int tens) {
    return ShiftedToNearest(Wide{mantissa} * kPowersOfFive[tens], kFractionBits - power - tens);
  };
  std::uint64_t digits = scaled(scale);
  if (digits >= kPowersOfTen[count]) {
    ++exponent;
    digits = scaled(scale - 1);
  }
  return SignificantDigits{digits, exponent};
}

}  // namespace halvorne
