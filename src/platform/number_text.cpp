#include "platform/number_text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <clocale>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <cstring>

#include "platform/digit_text.h"
#include "platform/failure.h"
#include "platform/significant_digits.h"

namespace halvorne {
namespace {

/// Digits with the point behind the first exponent + 1 of them, -4 <= exponent <= 14; those before
/// the point are written even where they are zeros at the end. Stores more than it needs, since a
/// copy of fixed length costs less than one that has to be counted.
inline char* WriteFixed(char* out, const DigitText& digits, int exponent) {
  if (exponent < 0) {
    constexpr std::array zeros = {'0', '.', '0', '0', '0'};
    std::memcpy(out, zeros.data(), zeros.size());
    out += 1 - exponent;
    StoreDigits(digits, out);
    return out + digits.count;
  }
  const int whole = exponent + 1;
  StoreWithPoint(digits, whole, out);
  return out + (digits.count > whole ? digits.count + 1 : whole);
}

/// Digits with the point behind the first, and a power of ten of two digits.
char* WriteScientific(char* out, const DigitText& digits, int exponent) {
  out = WriteFixed(out, digits, 0);
  *out++ = 'E';
  *out++ = exponent < 0 ? '-' : '+';
  const int power = std::abs(exponent);
  *out++ = static_cast<char>('0' + power / 10);
  *out++ = static_cast<char>('0' + power % 10);
  return out;
}

inline char* WriteDigits(char* out, const SignificantDigits& number, int most) {
  const DigitText digits = ToText(number.digits, most);
  const bool fixed = number.exponent >= -4 && number.exponent < most;
  return fixed ? WriteFixed(out, digits, number.exponent)
               : WriteScientific(out, digits, number.exponent);
}

char* WriteByLibrary(char* out, double value, int digits) {
  char* const end =
      std::to_chars(out, out + kNumberTextMax, value, std::chars_format::general, digits).ptr;
  // The exponent, if any, is among the last five characters.
  for (char* at = end - 1; at > out && end - at <= 5; --at) {
    if (*at == 'e') {
      *at = 'E';
      break;
    }
  }
  return end;
}

/// @param digits  the most that are written
/// @param whole   whole numbers below it in magnitude need no more than these
inline char* WriteGeneral(char* out, double value, int digits, double whole) {
  const double magnitude = std::fabs(value);
  if (magnitude < whole) {
    const auto number = static_cast<std::int64_t>(value);
    if (static_cast<double>(number) == value) {
      if (number >= 0 && number < 10) {
        *out = static_cast<char>('0' + number);
        return out + 1;
      }
      return std::to_chars(out, out + kNumberTextMax, number).ptr;
    }
  }
  if (const auto leading = LeadingDigits(magnitude, digits)) {
    *out = '-';
    return WriteDigits(out + (value < 0 ? 1 : 0), *leading, digits);
  }
  return WriteByLibrary(out, value, digits);
}

/// A decimal number: value = 0.d1 d2 d3 ... x 10^exponent, digits without leading zeros.
struct Decimal {
  bool negative = false;
  std::string digits;  ///< empty for zero
  int exponent = 0;
};

Decimal ToDecimal(double value) {
  Decimal decimal;
  decimal.negative = std::signbit(value);
  if (value == 0) {
    return decimal;
  }
  char text[kNumberTextMax];
  const char* const end =
      std::to_chars(text, text + sizeof text, std::fabs(value), std::chars_format::scientific, 14)
          .ptr;
  decimal.digits.assign(1, text[0]);
  decimal.digits.append(text + 2, text + 16);
  std::from_chars(text + (text[17] == '+' ? 18 : 17), end, decimal.exponent);
  ++decimal.exponent;
  return decimal;
}

/// Rounds to `places` digits after the point, half away from zero.
void RoundTo(Decimal& decimal, int places) {
  const int keep = decimal.exponent + places;
  if (keep >= static_cast<int>(decimal.digits.size())) {
    return;
  }
  if (keep < 0) {
    decimal.digits.clear();
    return;
  }
  const bool up = decimal.digits[static_cast<std::size_t>(keep)] >= '5';
  decimal.digits.resize(static_cast<std::size_t>(keep));
  if (!up) {
    return;
  }
  auto at = decimal.digits.rbegin();
  while (at != decimal.digits.rend() && *at == '9') {
    *at++ = '0';
  }
  if (at != decimal.digits.rend()) {
    ++*at;
  } else {
    decimal.digits.insert(decimal.digits.begin(), '1');
    ++decimal.exponent;
  }
}

char DigitAt(const Decimal& decimal, int place) {
  return place >= 0 && place < static_cast<int>(decimal.digits.size())
             ? decimal.digits[static_cast<std::size_t>(place)]
             : '0';
}

/// A pattern taken apart: literal text before, digit picture, exponent digits, literal text after.
struct Picture {
  std::string_view before, whole, fraction, after;
  bool point = false;
  int exponentDigits = 0;
};

Picture TakeApart(std::string_view pattern) {
  const auto isDigit = [](char c) { return c == '0' || c == '#'; };
  const auto isPicture = [&](char c) { return isDigit(c) || c == '.'; };
  const char* const begin = std::find_if(pattern.begin(), pattern.end(), isPicture);
  const char* point = std::find_if_not(begin, pattern.end(), isDigit);
  Picture picture;
  picture.before = std::string_view(pattern.begin(), begin);
  picture.whole = std::string_view(begin, point);
  const char* end = point;
  if (point != pattern.end() && *point == '.') {
    picture.point = true;
    end = std::find_if_not(point + 1, pattern.end(), isDigit);
    picture.fraction = std::string_view(point + 1, end);
  }
  if (std::string_view(end, pattern.end()).starts_with("E+0")) {
    const char* const digits = end + 2;
    end = std::find_if(digits, pattern.end(), [](char c) { return c != '0'; });
    picture.exponentDigits = static_cast<int>(end - digits);
  }
  picture.after = std::string_view(end, pattern.end());
  return picture;
}

std::string WholeAndFraction(const Decimal& decimal, const Picture& picture) {
  std::string text;
  const int required =
      static_cast<int>(std::count(picture.whole.begin(), picture.whole.end(), '0'));
  const int digits = decimal.digits.empty() ? 0 : std::max(decimal.exponent, 0);
  for (int left = std::max(required, digits); left > 0; --left) {
    text += DigitAt(decimal, decimal.exponent - left);
  }
  if (!picture.point) {
    return text;
  }
  text += '.';
  std::string fraction;
  for (int place = 0; place < static_cast<int>(picture.fraction.size()); ++place) {
    fraction += DigitAt(decimal, decimal.exponent + place);
  }
  const std::size_t always = picture.fraction.rfind('0') + 1;  // 0 where there is none
  while (fraction.size() > always && fraction.back() == '0') {
    fraction.pop_back();
  }
  return text + fraction;
}

}  // namespace

char* WriteNumber(char* out, double value) {
  return WriteGeneral(out, value, 15, 1e15);
}
char* WriteNumber(char* out, float value) {
  return WriteGeneral(out, double{value}, 7, 1e7);
}

std::string NumberText(double value) {
  char text[kNumberTextMax];
  return {text, WriteNumber(text, value)};
}

std::string NumberText(float value) {
  char text[kNumberTextMax];
  return {text, WriteNumber(text, value)};
}

std::string SpacedNumberText(double value) {
  const std::string text = NumberText(value);
  return text.front() == '-' ? text : " " + text;
}

std::string Format(double value, std::string_view pattern) {
  const Picture picture = TakeApart(pattern);
  Decimal decimal = ToDecimal(Finite(value));
  const int places = static_cast<int>(picture.fraction.size());
  std::string exponentText;
  if (picture.exponentDigits > 0) {
    int exponent = decimal.digits.empty() ? 0 : decimal.exponent - 1;
    decimal.exponent -= exponent;
    RoundTo(decimal, places);
    if (decimal.exponent > 1) {  // 9.9996 became 10.000
      ++exponent;
      decimal.exponent = 1;
    }
    std::string digits = std::to_string(std::abs(exponent));
    digits.insert(0,
                  static_cast<std::size_t>(
                      std::max(0, picture.exponentDigits - static_cast<int>(digits.size()))),
                  '0');
    exponentText = (exponent < 0 ? "E-" : "E+") + digits;
  } else {
    RoundTo(decimal, places);
  }
  const bool zero = decimal.digits.find_first_not_of('0') == std::string::npos;
  std::string text = decimal.negative && !zero ? "-" : "";
  text += picture.before;
  text += WholeAndFraction(decimal, picture);
  text += exponentText;
  text += picture.after;
  return text;
}

double SafeVal(std::string_view text) {
  return SafeVal(text, std::localeconv()->decimal_point);
}

double SafeVal(std::string_view text, std::string_view point) {
  while (!text.empty() && text.front() == ' ') {
    text.remove_prefix(1);
  }
  while (!text.empty() && text.back() == ' ') {
    text.remove_suffix(1);
  }
  std::string number(text);
  if (const auto at = number.find(point); at != std::string::npos) {
    number.replace(at, point.size(), 1, '.');
  }
  if (number.starts_with('+')) {
    number.erase(0, 1);
    if (number.starts_with('-')) {
      return 0;
    }
  }
  if (number.find_first_not_of("-.0123456789eE+") != std::string::npos) {
    return 0;  // "inf" and "nan" are no numbers here
  }
  double value = 0;
  const char* const end = number.data() + number.size();
  const auto [stop, error] = std::from_chars(number.data(), end, value);
  return error == std::errc() && stop == end ? value : 0;
}

}  // namespace halvorne
