#pragma once

#include <array>
#include <bit>
#include <cstdint>
#include <cstring>

namespace halvorne {

/// Bytes behind a text that ReadPlainDecimal may look at.
inline constexpr int kDecimalMargin = 8;

namespace plain_decimal {

inline constexpr int kMostDigits = 19;
inline constexpr int kLastPower = 22;
inline constexpr std::uint64_t kLargestExact = std::uint64_t{1} << 53;

inline constexpr std::array<double, kLastPower + 1> kPowers = {
    1,    1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,  1e9,  1e10, 1e11,
    1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
inline constexpr std::array<std::uint64_t, 9> kWholePowers = {
    1, 10, 100, 1000, 10000, 100000, 1000000, 10000000, 100000000};

inline bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

/// Up to eight digits at the begin of a text.
struct Digits {
  std::uint64_t value;
  int count;
};

/// The same byte in all eight.
constexpr std::uint64_t Bytes(unsigned char byte) {
  return 0x0101010101010101U * byte;
}

/// All bytes at once, the first one lowest: what is no digit shows in its highest bit, and the
/// digits before it are joined two by two (Langdale, Lemire, VLDB J. 28 (2019) 941-960). There is
/// no branch in it, since how many digits a number has can't be foreseen.
inline Digits TakeDigits(const char* at) {
  std::uint64_t bytes;
  std::memcpy(&bytes, at, sizeof bytes);
  bytes ^= Bytes('0');
  const std::uint64_t others = (bytes | (bytes + Bytes(0x80 - 10))) & Bytes(0x80);
  const int count = std::countr_zero(others) / 8;
  const int halfShift = 4 * (8 - count);
  bytes = bytes << halfShift << halfShift;  // zeros in front of the digits
  bytes = bytes * 10 + (bytes >> 8);
  constexpr std::uint64_t pairs = 0x000000FF000000FFU;
  const std::uint64_t value = ((bytes & pairs) * (100 + (std::uint64_t{1000000} << 32)) +
                               (bytes >> 16 & pairs) * (1 + (std::uint64_t{10000} << 32))) >>
                              32;
  return {value, count};
}

/// Appends to a whole number the digits that stand at the begin of a text, and counts them.
/// @return  behind them, or behind so many that they are too many
inline const char* TakeAllDigits(const char* at, std::uint64_t& whole, int& count) {
  Digits next{0, 8};
  for (int most = 0; next.count == 8 && most <= kMostDigits; most += 8) {
    next = TakeDigits(at);
    whole = whole * kWholePowers[next.count] + next.value;
    count += next.count;
    at += next.count;
  }
  return at;
}

/// An exponent of one to three digits behind its letter.
inline const char* TakeExponent(const char* at, int& exponent) {
  const bool negative = *at == '-';
  const Digits digits = TakeDigits(at + (negative || *at == '+' ? 1 : 0));
  if (digits.count == 0 || digits.count > 3) {
    return nullptr;
  }
  exponent = static_cast<int>(digits.value);
  at += digits.count + (negative || *at == '+' ? 1 : 0);
  exponent = negative ? -exponent : exponent;
  return at;
}

}  // namespace plain_decimal

/// Reads a decimal number in the forms that files are full of: sign, digits with at most one point
/// among them, perhaps an exponent; a comma or line end behind it. The value is the nearest number,
/// the same as std::from_chars has: a whole number below 2^53 and a power of ten up to 10^22 are
/// exact, so one product or quotient of both is rounded once (Clinger, PLDI 1990, 92-101).
///
/// @param at  text that ends in kDecimalMargin NULs
/// @return    the separator; null, with `value` as it was, for everything else
inline const char* ReadPlainDecimal(const char* at, double& value) {
  using namespace plain_decimal;
  if constexpr (std::endian::native != std::endian::little) {
    return nullptr;
  }
  const bool negative = *at == '-';
  at += negative ? 1 : 0;
  std::uint64_t whole = 0;
  int count = 0;
  int scale = 0;
  for (; IsDigit(*at) && count <= kMostDigits; ++at, ++count) {
    whole = whole * 10 + static_cast<std::uint64_t>(*at - '0');
  }
  if (*at == '.') {
    const int before = count;
    at = TakeAllDigits(at + 1, whole, count);
    scale = before - count;
  }
  if (count == 0 || count > kMostDigits || whole > kLargestExact) {
    return nullptr;
  }
  if (*at == 'E' || *at == 'e') {
    int exponent = 0;
    at = TakeExponent(at + 1, exponent);
    if (at == nullptr) {
      return nullptr;
    }
    scale += exponent;
  }
  if ((*at != ',' && *at != '\r' && *at != '\n') || scale < -kLastPower || scale > kLastPower) {
    return nullptr;
  }
  const auto exact = static_cast<double>(static_cast<std::int64_t>(whole));
  const double magnitude = scale < 0 ? exact / kPowers[-scale] : exact * kPowers[scale];
  value = negative ? -magnitude : magnitude;
  return at;
}

}  // namespace halvorne
