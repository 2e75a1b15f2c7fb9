#pragma once

#include <array>
#include <bit>
#include <cstdint>
#include <cstring>

#include "platform/significant_digits.h"

#ifdef __SSE2__
#include <emmintrin.h>
#endif

// The digits of a number as characters, and the point among them. On processors with SSE2 all
// sixteen go through one register, which takes two thirds of the time of two words of eight; each
// other processor writes them one by one.

namespace halvorne {

#ifdef __SSE2__

/// Sixteen digits as characters.
struct DigitText {
  __m128i characters;
  int count;  ///< without the zeros at their end, at least 1
};

/// The characters of a number of so many digits, 7 or 15. Halves, fours, pairs, then single digits
/// are taken apart in all places at once; the products are near enough to quotients by 10000, 100
/// and 10 for numbers of eight, four and two digits.
inline DigitText ToText(std::uint64_t number, int digits) {
  constexpr std::uint64_t eight = significant_digits::kPowersOfTen[8];
  number *= significant_digits::kPowersOfTen[16 - digits];
  const __m128i eights = _mm_set_epi64x(static_cast<long long>(number % eight),
                                        static_cast<long long>(number / eight));
  const __m128i upper = _mm_srli_epi64(_mm_mul_epu32(eights, _mm_set1_epi64x(0xD1B71759)), 45);
  const __m128i lower = _mm_sub_epi64(eights, _mm_mul_epu32(upper, _mm_set1_epi64x(10000)));
  const __m128i fours = _mm_or_si128(upper, _mm_slli_epi64(lower, 32));
  const __m128i hundreds = _mm_srli_epi16(_mm_mulhi_epu16(fours, _mm_set1_epi16(0x147B)), 3);
  const __m128i rest = _mm_sub_epi16(fours, _mm_mullo_epi16(hundreds, _mm_set1_epi16(100)));
  const __m128i pairs = _mm_or_si128(hundreds, _mm_slli_epi32(rest, 16));
  const __m128i tens = _mm_mulhi_epu16(pairs, _mm_set1_epi16(0x199A));
  const __m128i ones = _mm_sub_epi16(pairs, _mm_mullo_epi16(tens, _mm_set1_epi16(10)));
  const __m128i single = _mm_or_si128(tens, _mm_slli_epi16(ones, 8));
  const int zeros = _mm_movemask_epi8(_mm_cmpeq_epi8(single, _mm_setzero_si128()));
  const auto others = static_cast<unsigned>(zeros) ^ 0xFFFFU;
  return {_mm_or_si128(single, _mm_set1_epi8('0')), static_cast<int>(std::bit_width(others))};
}

namespace digit_text {

using Bytes = std::array<unsigned char, 16>;

/// As many bytes set as the index says, the first ones.
inline constexpr std::array<Bytes, 16> kFirstBytes = [] {
  std::array<Bytes, 16> masks{};
  for (std::size_t i = 0; i < masks.size(); ++i) {
    for (std::size_t j = 0; j < i; ++j) {
      masks[i][j] = 0xFF;
    }
  }
  return masks;
}();

}  // namespace digit_text

inline void StoreDigits(const DigitText& digits, char* out) {
  std::memcpy(out, &digits.characters, sizeof digits.characters);
}

/// Stores the first 15 digits with the point behind `whole` of them, 1 to 15. Everything comes out
/// of registers: a word read where parts of it were stored just before has to wait for them.
inline void StoreWithPoint(const DigitText& digits, int whole, char* out) {
  __m128i before;
  std::memcpy(&before, &digit_text::kFirstBytes[whole], sizeof before);
  const __m128i later = _mm_slli_si128(digits.characters, 1);
  const __m128i both =
      _mm_or_si128(_mm_and_si128(before, digits.characters), _mm_andnot_si128(before, later));
  std::memcpy(out, &both, sizeof both);
  out[whole] = '.';
}

#else

struct DigitText {
  std::array<char, 16> characters;
  int count;
};

inline DigitText ToText(std::uint64_t number, int digits) {
  DigitText text{};
  number *= significant_digits::kPowersOfTen[16 - digits];
  for (int i = 15; i >= 0; --i, number /= 10) {
    text.characters[i] = static_cast<char>('0' + number % 10);
    if (text.count == 0 && text.characters[i] != '0') {
      text.count = i + 1;
    }
  }
  return text;
}

inline void StoreDigits(const DigitText& digits, char* out) {
  std::memcpy(out, digits.characters.data(), digits.characters.size());
}

inline void StoreWithPoint(const DigitText& digits, int whole, char* out) {
  std::memcpy(out, digits.characters.data(), whole);
  out[whole] = '.';
  std::memcpy(out + whole + 1, digits.characters.data() + whole, 15 - whole);
}

#endif

}  // namespace halvorne
