#pragma once

#include <string>

namespace halvorne {

/// Raises the file failure that an errno of the C library stands for: 53 no such file, 76 no such
/// folder, 70 no right to it, 75 anything else.
[[noreturn]] void RaiseFileFailure(int error, const std::string& fileName);

}  // namespace halvorne
