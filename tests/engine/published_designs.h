#pragma once

#include <string>
#include <vector>

namespace halvorne::testing {

/// Names of the published transducer archetypes.
const std::vector<std::string>& PublishedDesignNames();

/// Writes an archetype's inputs into `design`. Constants of the ceramics: TP-226; layer
/// impedances: Desilets, Fraser, Kino 1978; PVDF: Ohigashi 1976; air transducer: Toda 2015.
void MakePublishedDesign(const std::string& name);

/// Takes every loss away: TanDe 1e-9, TanDm 0, plate losses 0.
void MakeLossless();

}  // namespace halvorne::testing
