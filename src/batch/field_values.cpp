#include "batch/field_values.h"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <cmath>
#include <limits>
#include <type_traits>

#include "batch/stops.h"

namespace halvorne::batch {
namespace {

std::string Quoted(std::string_view text) {
  return std::string("'").append(text).append("'");
}

template <class Integer>
Integer ReadInteger(std::string_view text) {
  const double value = ReadNumber(text);
  if (value != std::trunc(value)) {
    throw WrongCommandLine(Quoted(text) + " is not a whole number");
  }
  if (value < std::numeric_limits<Integer>::min() || value > std::numeric_limits<Integer>::max()) {
    throw WrongCommandLine(Quoted(text) + " is too large");
  }
  return static_cast<Integer>(value);
}

float ReadSingle(std::string_view text) {
  const double value = ReadNumber(text);
  if (std::abs(value) > std::numeric_limits<float>::max()) {
    throw WrongCommandLine(Quoted(text) + " is too large");
  }
  return static_cast<float>(value);
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
  throw WrongCommandLine(Quoted(text) + " is neither true nor false");
}

std::string ReadText(std::string_view text) {
  if (text.find_first_of("\"\r\n") != std::string_view::npos) {
    throw WrongCommandLine("a text of a design holds no double quote and no line end");
  }
  return std::string(text);
}

}  // namespace

double ReadNumber(std::string_view text) {
  const std::string_view digits = text.starts_with('+') ? text.substr(1) : text;
  double value = 0;
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
  if (error == std::errc::result_out_of_range) {
    throw WrongCommandLine(Quoted(text) + " is beyond the range of numbers");
  }
  if (error != std::errc() || end != digits.data() + digits.size() || !std::isfinite(value)) {
    throw WrongCommandLine(Quoted(text) + " is not a number");
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
        } else if constexpr (std::is_same_v<Type, float>) {
          return ReadSingle(text);
        } else if constexpr (std::is_same_v<Type, double>) {
          return ReadNumber(text);
        } else {
          return ReadInteger<Type>(text);
        }
      },
      place);
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

}  // namespace halvorne::batch
