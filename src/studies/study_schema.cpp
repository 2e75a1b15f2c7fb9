#include "studies/study_schema.h"

#include <algorithm>
#include <cctype>
#include <string_view>
#include <valijson/adapters/nlohmann_json_adapter.hpp>
#include <valijson/schema.hpp>
#include <valijson/schema_parser.hpp>
#include <valijson/validation_results.hpp>
#include <valijson/validator.hpp>

#include "studies/study_schema_text.h"

namespace halvorne::studies {
namespace {

using Adapter = valijson::adapters::NlohmannJsonAdapter;

/// "<root>", "[vary]", "[1]" as a path.
std::string PathOf(const std::vector<std::string>& context) {
  std::string path;
  for (std::size_t k = 1; k < context.size(); ++k) {
    const std::string name = context[k].substr(1, context[k].size() - 2);
    const bool index = std::ranges::all_of(name, [](unsigned char c) { return std::isdigit(c); });
    if (index) {
      path.append("[").append(name).append("]");
    } else {
      path = MemberPath(path, name);
    }
  }
  return path;
}

/// The name that a complaint ends in, "...constraints: 'deviaton'."; empty without one.
std::string NameAtEnd(const std::string& text) {
  const std::size_t end = text.rfind('\'');
  const std::size_t begin = end == std::string::npos || end == 0 ? end : text.rfind('\'', end - 1);
  return begin == std::string::npos || begin == end ? "" : text.substr(begin + 1, end - begin - 1);
}

/// The library's complaint in words for people.
std::string Words(const std::string& complaint, const nlohmann::json& value) {
  if (complaint.starts_with("Failed to match against any enum")) {
    return value.dump() + " is none of the words that can stand here";
  }
  if (complaint.starts_with("Value type not permitted")) {
    return std::string("a ") + value.type_name() + " cannot stand here";
  }
  if (complaint.starts_with("Missing required property")) {
    return std::string("'").append(NameAtEnd(complaint)).append("' is missing");
  }
  if (complaint.starts_with("Object contains a property")) {
    return std::string("there is no '").append(NameAtEnd(complaint)).append("' here");
  }
  std::string words = complaint;
  words.front() = static_cast<char>(std::tolower(static_cast<unsigned char>(words.front())));
  if (words.ends_with('.')) {
    words.pop_back();
  }
  return words;
}

/// The value at a path as the library tells it.
const nlohmann::json& ValueAt(const nlohmann::json& root, const std::vector<std::string>& context) {
  const nlohmann::json* value = &root;
  for (std::size_t k = 1; k < context.size(); ++k) {
    const std::string name = context[k].substr(1, context[k].size() - 2);
    value = value->is_array() ? &value->at(std::stoul(name)) : &value->at(name);
  }
  return *value;
}

}  // namespace

std::string StudySchema() {
  return kStudySchemaText;
}

std::string AtLine(const JsonSource& source, const std::string& path, const std::string& what) {
  std::string there = path;
  while (!source.lines.contains(there)) {
    const std::size_t cut = there.find_last_of(".[");
    there = cut == std::string::npos ? "" : there.substr(0, cut);
  }
  std::string text = std::to_string(source.lines.at(there)).append(": ");
  if (!path.empty()) {
    text.append(path).append(": ");
  }
  return text + what;
}

std::vector<std::string> AgainstSchema(const JsonSource& source) {
  const nlohmann::json text = nlohmann::json::parse(kStudySchemaText);
  valijson::Schema schema;
  valijson::SchemaParser().populateSchema(Adapter(text), schema);
  valijson::ValidationResults results;
  valijson::Validator().validate(schema, Adapter(source.root), &results);
  std::vector<std::string> complaints;
  valijson::ValidationResults::Error error;
  while (results.popError(error)) {
    // These only say once more, further out, what was told of the innermost value.
    if (!error.description.starts_with("Failed to validate")) {
      complaints.push_back(AtLine(source, PathOf(error.context),
                                  Words(error.description, ValueAt(source.root, error.context))));
    }
  }
  return complaints;
}

}  // namespace halvorne::studies
