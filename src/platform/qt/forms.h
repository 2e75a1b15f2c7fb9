#pragma once

#include <cstdint>
#include <string_view>

namespace halvorne {

/// Number of loaded windows of that name, case ignored.
std::int32_t FormCount(std::string_view name) noexcept;

/// Unloads the windows of that name; none is fine.
void UnloadForm(std::string_view name);

}  // namespace halvorne
