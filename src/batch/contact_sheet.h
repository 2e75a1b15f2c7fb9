#pragma once

#include <QImage>

#include "batch/commands.h"

namespace halvorne::batch {

/// All plots of the open design that its window would offer, each in its first data form, on one
/// sheet. A plot that cannot be shown leaves its place empty and counts as a failure.
///
/// @param missing  receives the numbers of those plots, "16, 17"; empty when there are none
QImage ContactSheet(Session& session, std::string& missing);

}  // namespace halvorne::batch
