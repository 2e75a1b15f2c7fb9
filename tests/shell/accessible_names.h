#pragma once

#include <QWidget>
#include <string>
#include <vector>

namespace halvorne::testing {

/// What people who can't see a window miss in it: controls, on all its pages, without a name that a
/// screen reader could say, without an objectName, or boxes and lists of the same name, which can't
/// be told apart.
std::vector<std::string> NamingFaults(const QWidget& window);

}  // namespace halvorne::testing
