#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "batch/field_values.h"

namespace halvorne::batch {

/// A field of the design that was named with a value for it, both found right.
struct Setting {
  FieldPlace place;
  FieldValue value;
  unsigned derived;  ///< what it takes along, a sum of Derived
};

/// Reads "NAME=VALUE", where NAME is a field of the design, with indexes in parentheses where it
/// is an array and a member behind a point where it is a record: "FrontThick(1)=0.00012",
/// "ElNet(1,2)=5e-6", "PZMatl(1).Velocity=4350". Raises WrongCommandLine, with what is wrong.
Setting ReadSetting(const std::string& text);

/// Stores the values in order, then makes derived values anew.
void ApplySettings(std::span<const Setting> settings);

/// The names of all fields with the bounds of their indexes, "ElNet(1 to 20, 1 to 6)".
std::vector<std::string> FieldNames();

}  // namespace halvorne::batch
