#pragma once

#include <string>

namespace halvorne::batch {

/// The open design in words, for people: layers, loads, network, sweep, excitation.
std::string DesignSummary();

}  // namespace halvorne::batch
