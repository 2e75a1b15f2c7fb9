#pragma once

#include <string>

#include "platform/program_folder.h"

namespace halvorne {

/// The design file that a word of the command line names, by its whole path; empty for an empty
/// word. Where the folder that the program was started in is gone the name stays as it is.
std::string DesignNamedAtStart(const char* word);

/// The desktop program from its start-up window to its end. The application object must exist.
///
/// @param place   the program's folder; the user's own is filled at the first start
/// @param design  design file to open once the window stands; empty for none
/// @return exit status
int RunProgram(const ProgramPlace& place, const std::string& design = {});

}  // namespace halvorne
