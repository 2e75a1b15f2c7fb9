#pragma once

#include <map>
#include <nlohmann/json.hpp>
#include <string>

namespace halvorne::studies {

/// A JSON text and where its values stand.
// NOLINTNEXTLINE(bugprone-exception-escape): a move of the library raises nothing
struct JsonSource {
  nlohmann::json root;
  std::map<std::string, long> lines;  ///< by path, "vary[1].deviation"; "" is the whole
};

/// Reads a text. Raises WrongInput, "3: ...", with the line of what is no JSON, or of a member that
/// stands there twice.
JsonSource ReadJson(const std::string& text);

/// Path of a member or an element.
std::string MemberPath(const std::string& path, const std::string& name);
std::string ElementPath(const std::string& path, std::size_t index);

}  // namespace halvorne::studies
