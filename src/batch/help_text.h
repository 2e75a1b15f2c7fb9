#pragma once

#include <string>

namespace halvorne::batch {

/// How the program is called: commands, options, exit status.
std::string HelpText();

/// The fields that --set knows, and what follows from setting them.
std::string FieldsHelpText();

}  // namespace halvorne::batch
