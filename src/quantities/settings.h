#pragma once

#include <span>
#include <string>
#include <vector>

#include "quantities/field_values.h"
#include "quantities/settable_fields.h"

namespace halvorne {

/// A field of the design that was found by its name.
struct NamedField {
  FieldPlace place;
  unsigned derived = 0;        ///< what it takes along, a sum of Derived
  const Rule* rule = nullptr;  ///< null where each value of its type will do
};

/// A field that was named with a value for it, both found right.
struct Setting {
  FieldPlace place;
  FieldValue value;
  unsigned derived;  ///< what it takes along, a sum of Derived
};

/// Finds a field of the design by its name, with indexes in parentheses where it is an array and a
/// member behind a point where it is a record: "FrontThick(1)", "ElNet(1,2)", "PZMatl(1).Velocity".
/// Raises WrongInput, with what is wrong.
NamedField FindNamedField(const std::string& name);

/// A number for a field. Raises WrongInput for one that the field cannot hold.
Setting SettingOf(const NamedField& field, double number);

/// Reads "NAME=VALUE", NAME as in FindNamedField(). Raises WrongInput, with what is wrong.
Setting ReadSetting(const std::string& text);

/// Stores the values in order, then makes derived values anew; returns and raises as
/// MakeDerivedValues() does.
bool ApplySettings(std::span<const Setting> settings);

/// The names of all fields with the bounds of their indexes, "ElNet(1 to 20, 1 to 6)".
std::vector<std::string> FieldNames();

}  // namespace halvorne
