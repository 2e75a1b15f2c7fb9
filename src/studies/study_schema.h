#pragma once

#include <string>
#include <vector>

#include "studies/json_lines.h"

namespace halvorne::studies {

/// The published schema of study files.
std::string StudySchema();

/// What of a text does not keep to that schema, "12: vary[1].deviation: ..." each; empty when all
/// does.
std::vector<std::string> AgainstSchema(const JsonSource& source);

/// "12: vary[1].deviation: what", with the line of the innermost value on the path that is there.
std::string AtLine(const JsonSource& source, const std::string& path, const std::string& what);

}  // namespace halvorne::studies
