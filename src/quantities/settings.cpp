#include "quantities/settings.h"

#include <algorithm>
#include <cctype>

#include "quantities/derived_values.h"
#include "quantities/refusals.h"

namespace halvorne {
namespace {

/// A name as it was written: without its indexes, and these.
struct WrittenName {
  std::string name;
  std::vector<long> indexes;
};

long ReadIndex(std::string_view text) {
  while (text.starts_with(' ')) {
    text.remove_prefix(1);
  }
  return std::get<std::int32_t>(ReadFieldValue(static_cast<std::int32_t*>(nullptr), text));
}

WrittenName SplitName(const std::string& written) {
  const std::size_t open = written.find('(');
  const std::size_t close = written.find(')');
  if (open == std::string::npos && close == std::string::npos) {
    return {written, {}};
  }
  if (open == std::string::npos || close == std::string::npos || close < open) {
    throw WrongInput("its parentheses do not match");
  }
  WrittenName split{written.substr(0, open + 1) + written.substr(close), {}};
  std::string_view inside = std::string_view(written).substr(open + 1, close - open - 1);
  for (std::size_t comma = 0; comma != std::string_view::npos;) {
    comma = inside.find(',');
    split.indexes.push_back(ReadIndex(inside.substr(0, comma)));
    inside.remove_prefix(comma == std::string_view::npos ? inside.size() : comma + 1);
  }
  return split;
}

bool SameButCase(std::string_view a, std::string_view b) {
  return std::ranges::equal(
      a, b, [](unsigned char x, unsigned char y) { return std::tolower(x) == std::tolower(y); });
}

std::string NameWithBounds(const Field& field) {
  std::string bounds;
  for (const IndexBounds& bound : field.bounds) {
    bounds += (bounds.empty() ? "" : ", ") + std::to_string(bound.first) + " to " +
              std::to_string(bound.last);
  }
  std::string name = field.name;
  const std::size_t open = name.find('(');
  return open == std::string::npos ? name : name.insert(open + 1, bounds);
}

const Field& FindField(const std::string& name) {
  const std::vector<Field>& table = SettableFields();
  if (const auto found = std::ranges::find(table, name, &Field::name); found != table.end()) {
    return *found;
  }
  const auto withoutIndex = [](std::string_view text) {
    return text.ends_with("()") ? text.substr(0, text.size() - 2) : text;
  };
  for (const Field& field : table) {
    if (SameButCase(withoutIndex(field.name), withoutIndex(name))) {
      throw WrongInput("the field is called " + NameWithBounds(field));
    }
  }
  throw WrongInput("the design has no such field; 'halvorne-batch help fields' lists all");
}

Indexes CheckIndexes(const Field& field, const std::vector<long>& indexes) {
  if (indexes.size() != field.bounds.size()) {
    throw WrongInput("the field is called " + NameWithBounds(field));
  }
  for (std::size_t k = 0; k < indexes.size(); ++k) {
    if (indexes[k] < field.bounds[k].first || indexes[k] > field.bounds[k].last) {
      throw WrongInput("index " + std::to_string(indexes[k]) + " is out of bounds, " +
                       NameWithBounds(field));
    }
  }
  return {indexes.empty() ? 0 : indexes[0], indexes.size() < 2 ? 0 : indexes[1]};
}

void CheckRule(const NamedField& field, const FieldValue& value) {
  if (field.rule != nullptr && !field.rule->holds(NumberOf(value))) {
    throw WrongInput("the value must be " + std::string(field.rule->words));
  }
}

}  // namespace

NamedField FindNamedField(const std::string& name) {
  const WrittenName written = SplitName(name);
  const Field& field = FindField(written.name);
  return {field.place(CheckIndexes(field, written.indexes)), field.derived, field.rule};
}

Setting SettingOf(const NamedField& field, double number) {
  Setting setting{field.place, NumberAsFieldValue(field.place, number), field.derived};
  CheckRule(field, setting.value);
  return setting;
}

Setting ReadSetting(const std::string& text) {
  const std::size_t equals = text.find('=');
  if (equals == std::string::npos || equals == 0) {
    throw WrongInput("it is not of the form NAME=VALUE");
  }
  const NamedField field = FindNamedField(text.substr(0, equals));
  Setting setting{field.place, ReadFieldValue(field.place, text.substr(equals + 1)), field.derived};
  CheckRule(field, setting.value);
  return setting;
}

bool ApplySettings(std::span<const Setting> settings) {
  unsigned derived = kNothing;
  for (const Setting& setting : settings) {
    StoreFieldValue(setting.place, setting.value);
    derived |= setting.derived;
  }
  return MakeDerivedValues(derived);
}

std::vector<std::string> FieldNames() {
  std::vector<std::string> names;
  for (const Field& field : SettableFields()) {
    names.push_back(NameWithBounds(field));
  }
  return names;
}

}  // namespace halvorne
