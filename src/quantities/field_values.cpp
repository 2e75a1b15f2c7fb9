#include "quantities/field_values.h"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <cmath>
#include <limits>
#include <type_traits>

#include "quantities/refusals.h"

namespace halvorne {
namespace {

std::string Quoted(std::string_view text) {
  return std::string("'").append(text).append("'");
}

/// A number's own words for a complaint about it.
std::string Shown(double value) {
  char digits[32];
  return Quoted({digits, std::to_chars(std::begin(digits), std::end(digits), value).ptr});
}

template <class Integer>
Integer WholeNumber(double value, const std::string& shown) {
  if (value != std::trunc(value)) {
    throw WrongInput(shown + " is not a whole number");
  }
  if (value < std::numeric_limits<Integer>::min() || value > std::numeric_limits<Integer>::max()) {
    throw WrongInput(shown + " is too large");
  }
  return static_cast<Integer>(value);
}

float Single(double value, const std::string& shown) {
  if (std::abs(value) > std::numeric_limits<float>::max()) {
    throw WrongInput(shown + " is too large");
  }
  return static_cast<float>(value);
}

/// A number as a value of a type that holds numbers.
template <class Type>
Type NumberAs(double value, const std::string& shown) {
  if constexpr (std::is_same_v<Type, float>) {
    return Single(value, shown);
  } else if constexpr (std::is_same_v<Type, double>) {
    return value;
  } else {
    return WholeNumber<Type>(value, shown);
  }
}

bool ReadTruth(std::string_view text) {
  std::string lower(text);
  std::ranges::transform(lower, lower.begin(), [](unsigned char c) { return std::tolower(c); });
  if (lower == "true" || lower == "#true#" || lower == "-1" || lower == "1") {
    return true;
  }
  if (lower == "false" || lower == "#false#" || lower == "0") {
    return false;
  }
  throw WrongInput(Quoted(text) + " is neither true nor false");
}

std::string ReadText(std::string_view text) {
  if (text.find_first_of("\"\r\n") != std::string_view::npos) {
    throw WrongInput("a text of a design holds no double quote and no line end");
  }
  return std::string(text);
}

}  // namespace

double ReadNumber(std::string_view text) {
  const std::string_view digits = text.starts_with('+') ? text.substr(1) : text;
  double value = 0;
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
  if (error == std::errc::result_out_of_range) {
    throw WrongInput(Quoted(text) + " is beyond the range of numbers");
  }
  if (error != std::errc() || end != digits.data() + digits.size() || !std::isfinite(value)) {
    throw WrongInput(Quoted(text) + " is not a number");
  }
  return value;
}

FieldValue ReadFieldValue(const FieldPlace& place, std::string_view text) {
  return std::visit(
      [text](auto* field) -> FieldValue {
        using Type = std::remove_pointer_t<decltype(field)>;
        if constexpr (std::is_same_v<Type, bool>) {
          return ReadTruth(text);
        } else if constexpr (std::is_same_v<Type, std::string>) {
          return ReadText(text);
        } else {
          return NumberAs<Type>(ReadNumber(text), Quoted(text));
        }
      },
      place);
}

FieldValue NumberAsFieldValue(const FieldPlace& place, double number) {
  return std::visit(
      [number](auto* field) -> FieldValue {
        using Type = std::remove_pointer_t<decltype(field)>;
        if constexpr (std::is_same_v<Type, std::string>) {
          throw WrongInput("the field is a text");
        } else if constexpr (std::is_same_v<Type, bool>) {
          if (number != 0 && number != 1) {
            throw WrongInput(Shown(number) + " is neither 0 nor 1");
          }
          return number == 1;
        } else {
          if (!std::isfinite(number)) {
            throw WrongInput(Shown(number) + " is not a number");
          }
          return NumberAs<Type>(number, Shown(number));
        }
      },
      place);
}

FieldValue StoredFieldValue(const FieldPlace& place) {
  return std::visit([](const auto* field) -> FieldValue { return *field; }, place);
}

double NumberOf(const FieldValue& value) {
  return std::visit(
      [](const auto& held) -> double {
        if constexpr (std::is_same_v<std::decay_t<decltype(held)>, std::string>) {
          return 0;
        } else {
          return static_cast<double>(held);
        }
      },
      value);
}

void StoreFieldValue(const FieldPlace& place, const FieldValue& value) {
  std::visit(
      [&value](auto* field) { *field = std::get<std::remove_pointer_t<decltype(field)>>(value); },
      place);
}

}  // namespace halvorne
