#pragma once

#include <QWidget>
#include <string>
#include <vector>

namespace halvorne::testing {

/// What an eye would find wrong with the controls that a window shows: texts that are cut off,
/// controls that lie over one another or leave their frame. Empty when all is well.
std::vector<std::string> LayoutFaults(const QWidget& window);

}  // namespace halvorne::testing
