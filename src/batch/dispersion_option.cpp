#include "batch/dispersion_option.h"

#include <cmath>

#include "batch/input_source.h"
#include "batch/stops.h"
#include "engine/design_model.h"
#include "persistence/dispersion_file.h"
#include "persistence/file_names.h"
#include "quantities/field_values.h"

namespace halvorne::batch {
namespace {

constexpr const char* kPiezoSlots = "piezo";

int SlotNumber(const std::string& word) {
  const double number = ReadNumber(word);
  if (number < 0 || number >= kDispersionSlots || number != std::trunc(number)) {
    throw WrongCommandLine("there is no slot " + word + ", only 0 to 21 and " + kPiezoSlots);
  }
  return static_cast<int>(number);
}

/// Switches the dispersion of a slot's layers on, as their dialog has it before it takes a file.
void SwitchOn(int slot) {
  const bool isBack = slot >= kBackSlot;
  const int plate = isBack ? slot - kBackSlot : slot;
  const int plates = isBack ? design.NoBack : design.NoFace;
  if (plate > plates) {
    throw WrongCommandLine("--dispersion: the design has " + std::to_string(plates) +
                           (isBack ? " backplates" : " faceplates") + ", so slot " +
                           std::to_string(slot) + " belongs to none");
  }
  (plate == 0 ? design.PZVelDispOn : isBack ? design.BackVelDispOn : design.FaceVelDispOn) = true;
}

}  // namespace

DispersionInput ReadDispersionInput(const std::string& text) {
  const std::size_t sign = text.find('=');
  try {
    if (sign == std::string::npos || sign + 1 == text.size()) {
      throw WrongCommandLine("it is not of the form SLOT=FILE");
    }
    const std::string word = text.substr(0, sign);
    const std::string fileName = text.substr(sign + 1);
    if (word == kPiezoSlots) {
      return {{0, kBackSlot}, fileName};
    }
    return {{SlotNumber(word)}, fileName};
  } catch (const WrongCommandLine& wrong) {
    throw WrongCommandLine("--dispersion " + text + ": " + wrong.what());
  }
}

void ApplyDispersion(const std::vector<DispersionInput>& inputs) {
  for (const DispersionInput& input : inputs) {
    for (const int slot : input.slotNumbers) {
      SwitchOn(slot);
    }
    const bool isPiezo = input.slotNumbers.front() % kBackSlot == 0;
    const InputSource source(input.fileName);
    const bool whole = ReadDispersionFile(
        source.Name(), isPiezo ? "Open Velocity Dispersion File" : "open velocity dispersion file",
        input.slotNumbers);
    for (const int slot : input.slotNumbers) {
      if (whole) {
        ExtractFileName(input.fileName, design.VelDispNames(slot, 0));
      }
    }
  }
}

}  // namespace halvorne::batch
