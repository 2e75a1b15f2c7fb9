#pragma once

#include <string>

#include "platform/main_window.h"

namespace halvorne::batch {

/// Everything that the window shows beside the curves themselves, as one JSON object.
std::string Inspection(const MainWindow& window);

}  // namespace halvorne::batch
