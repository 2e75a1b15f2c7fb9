#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>

namespace halvorne {

/// Where a field of the design stands, by its type.
using FieldPlace = std::variant<std::int16_t*, std::int32_t*, float*, double*, bool*, std::string*>;

/// A value that has been read for a field of that type.
using FieldValue = std::variant<std::int16_t, std::int32_t, float, double, bool, std::string>;

/// Reads a text for a field of the type of `place`. Raises WrongInput, with what is wrong,
/// for a text that is no such value.
FieldValue ReadFieldValue(const FieldPlace& place, std::string_view text);

/// A number as a value of a field of the type of `place`. Raises WrongInput, with what is wrong,
/// for one that such a field cannot hold, and where the field is a text.
FieldValue NumberAsFieldValue(const FieldPlace& place, double number);

/// The value that stands in a field.
FieldValue StoredFieldValue(const FieldPlace& place);

/// A value as a number: its own, 0 or 1 of a truth value, 0 of a text.
double NumberOf(const FieldValue& value);

/// Puts a value into the field; both are of one type.
void StoreFieldValue(const FieldPlace& place, const FieldValue& value);

/// Reads a text that is wholly a finite number. Raises WrongInput.
double ReadNumber(std::string_view text);

}  // namespace halvorne
