#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace halvorne::batch {

/// Up to five of the names that somebody who wrote `written` may have meant, the nearest first:
/// those that hold it or that it holds, then those that differ in few letters, case ignored.
std::vector<std::string> NearNames(std::string_view written, const std::vector<std::string>& names);

/// The same as the end of a complaint, "; near it are 'PZT-4', 'PZT-8'"; empty when there is none.
std::string NearNamesHint(std::string_view written, const std::vector<std::string>& names);

}  // namespace halvorne::batch
