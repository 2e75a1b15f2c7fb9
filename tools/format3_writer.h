#pragma once

#include <string>

namespace halvorne::tools {

/// Writes the design as versions 3 of the program did: without format number, complex loads and
/// dispersion, and with the loads in force where later versions have the relative ones.
void WriteFormat3(const std::string& fileName);

}  // namespace halvorne::tools
