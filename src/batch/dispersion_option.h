#pragma once

#include <string>
#include <vector>

namespace halvorne::batch {

/// A velocity dispersion file and the slots that it is for.
struct DispersionInput {
  std::vector<int> slotNumbers;  ///< 0 to 21
  std::string fileName;
};

/// Reads "SLOT=FILE", where SLOT is a dispersion slot from 0 to 21 or "piezo", the slots 0 and 11
/// together. Raises WrongCommandLine.
DispersionInput ReadDispersionInput(const std::string& text);

/// Takes the files into the open design as the dialogs do, with their boxes, and switches the
/// dispersion of their layers on. Raises WrongCommandLine for a plate that the design does not
/// have.
void ApplyDispersion(const std::vector<DispersionInput>& inputs);

}  // namespace halvorne::batch
