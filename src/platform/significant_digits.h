#pragma once

#include <array>
#include <bit>
#include <cstdint>
#include <optional>

namespace halvorne {

/// The leading decimal digits of a number: number ≈ digits × 10^(exponent - count + 1).
struct SignificantDigits {
  std::uint64_t digits = 0;  ///< as many as were asked for, the first not 0
  int exponent = 0;          ///< power of ten of the first digit
};

namespace significant_digits {

/// Whole numbers of 128 bits, an extension of both compilers.
__extension__ using Wide = unsigned __int128;

inline constexpr int kFractionBits = 52;
inline constexpr int kExponentBias = 1023;
/// Zeros in front of a mantissa that is shifted as far as a sum in its word leaves it.
inline constexpr int kMantissaShift = 10;
/// The largest power of five in 63 bits: times the 53 bits of a number it still is exact.
inline constexpr int kLastPower = 27;

/// 5^n, shifted until its first bit is 1, and what this adds to the power of two.
struct PowerOfFive {
  std::uint64_t shifted;
  int shift;
};

consteval std::array<PowerOfFive, kLastPower + 1> PowersOfFive() {
  std::array<PowerOfFive, kLastPower + 1> powers{};
  std::uint64_t power = 1;
  for (int n = 0; n <= kLastPower; ++n, power *= 5) {
    const int zeros = std::countl_zero(power);
    powers[n] = {power << zeros, zeros + kMantissaShift + kFractionBits - 64 - n};
  }
  return powers;
}
inline constexpr auto kPowersOfFive = PowersOfFive();

inline constexpr int kFirstDecade = -21;
inline constexpr int kLastDecade = 15;

/// 10^kFirstDecade to 10^kLastDecade, each the nearest number, since 10^21 is exact.
consteval std::array<double, kLastDecade - kFirstDecade + 1> Decades() {
  std::array<double, kLastDecade - kFirstDecade + 1> decades{};
  double power = 1;
  for (int n = 0; n <= -kFirstDecade; ++n, power *= 10) {
    decades[-n - kFirstDecade] = 1 / power;
    if (n <= kLastDecade) {
      decades[n - kFirstDecade] = power;
    }
  }
  return decades;
}
inline constexpr auto kDecades = Decades();

consteval std::array<std::uint64_t, 17> PowersOfTen() {
  std::array<std::uint64_t, 17> powers{1};
  for (std::size_t i = 1; i < powers.size(); ++i) {
    powers[i] = powers[i - 1] * 10;
  }
  return powers;
}
inline constexpr auto kPowersOfTen = PowersOfTen();

}  // namespace significant_digits

/// The first `count` decimal digits of a number, rounded to the nearest, a tie to even: what the
/// library's conversion finds, several times as fast.
///
/// @param value  any number; nothing is returned outside 10^(count - 27) to 10^(count - 1)
/// @param count  7 or 15
inline std::optional<SignificantDigits> LeadingDigits(double value, int count) {
  using namespace significant_digits;
  const auto bits = std::bit_cast<std::uint64_t>(value);
  const int power = static_cast<int>(bits >> kFractionBits) - kExponentBias;  // 2^power <= value
  // 1233 / 4096 is near enough to log10(2) for the powers that are left below.
  int exponent = power * 1233 >> 12;
  int scale = count - 1 - exponent;
  if (scale < 1 || scale > kLastPower) {
    return std::nullopt;
  }
  // Where the nearest number to a power of ten is not the power itself, its digits are rounded to
  // those of the power whichever side it lies on.
  const int further = value >= kDecades[exponent + 1 - kFirstDecade] ? 1 : 0;
  exponent += further;
  scale -= further;
  // value x 10^scale without any rounding, its whole part in the upper word from bit `shift` on.
  const std::uint64_t mantissa = (bits << kMantissaShift | std::uint64_t{1} << 62) << 1 >> 1;
  const Wide product = Wide{mantissa} * kPowersOfFive[scale].shifted;
  const auto upper = static_cast<std::uint64_t>(product >> 64);
  const int shift = kPowersOfFive[scale].shift - power;
  const std::uint64_t odd = upper >> shift & 1;
  const std::uint64_t rest = static_cast<std::uint64_t>(product) != 0 ? 1 : 0;
  // A half is rounded up unless it is exact and the number before it even.
  const std::uint64_t belowHalf = (std::uint64_t{1} << (shift - 1)) - 1;
  std::uint64_t digits = (upper + belowHalf + (odd | rest)) >> shift;
  if (digits == kPowersOfTen[count]) [[unlikely]] {
    digits = kPowersOfTen[count - 1];
    ++exponent;
  }
  return SignificantDigits{digits, exponent};
}

}  // namespace halvorne
