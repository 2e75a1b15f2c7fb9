#pragma once

#include <string>

#include "engine/design_model.h"

namespace halvorne {

/// The words of a network's row (1 to 20) behind its number, "1. Series R 50 Ohms", values in the
/// units of the element's dialog. An unknown code has no words behind the number.
std::string GetElNetString(const NetworkRows& network, int row);

}  // namespace halvorne
