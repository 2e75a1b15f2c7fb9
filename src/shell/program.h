#pragma once

#include <string>

#include "platform/program_folder.h"

namespace halvorne {

/// The desktop program from its start-up window to its end. The application object must exist.
///
/// @param place   the program's folder; the user's own is filled at the first start
/// @param design  design file to open once the window stands; empty for none
/// @return exit status
int RunProgram(const ProgramPlace& place, const std::string& design = {});

}  // namespace halvorne
