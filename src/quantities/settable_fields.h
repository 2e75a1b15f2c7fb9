#pragma once

#include <functional>
#include <string>
#include <vector>

#include "quantities/field_values.h"

namespace halvorne {

/// Indexes of an element; those that a field does not have are 0.
struct Indexes {
  long first = 0;
  long second = 0;
};

/// Bounds of an index, inclusive.
struct IndexBounds {
  long first;
  long last;
};

/// What a value must be beyond its type, and the words for it.
struct Rule {
  const char* words;
  bool (*holds)(double);
};

/// A row of the table of fields. Its name shows "()" where indexes stand.
struct Field {
  std::string name;
  std::vector<IndexBounds> bounds;  ///< one for each index
  std::function<FieldPlace(Indexes)> place;
  unsigned derived = 0;  ///< what it takes along, a sum of Derived
  const Rule* rule = nullptr;
};

/// All fields of the design that can be named.
const std::vector<Field>& SettableFields();

}  // namespace halvorne
