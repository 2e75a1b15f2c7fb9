#pragma once

#include <string>
#include <vector>

namespace halvorne::testing {

/// Fills every field that a design file stores with random values which its number texts carry
/// whole, texts with double quotes among them, and makes what a reader derives agree with them.
void MakeRandomDesign(unsigned seed, int intervals);

/// "name = value" of every stored field within the design's counts, numbers to the last bit.
std::vector<std::string> StoredFields();

}  // namespace halvorne::testing
