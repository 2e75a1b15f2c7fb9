#pragma once

#include <array>
#include <cstdint>

#include "engine/design_model.h"

namespace halvorne {

/// What the design holds of the plates of one side.
struct PlateSideFields {
  std::int16_t& count;
  PlateMaterials& materials;
  ChainValues& thick;  ///< index 0 is half a piezoelectric layer
  ChainValues& area;   ///< index 0 is half a piezoelectric layer
  bool& velDispOn;
  int slotOffset;        ///< dispersion slot of plate n is n + slotOffset
  void (*updateView)();  ///< enables the side's dispersion plot or moves on from it
};

/// The side that entry.PlateSide names; the front one unless it is "Back".
PlateSideFields PlateSideInForce();

/// Dispersion slots of that side's ten plates.
std::array<int, kMaxPlates> PlateSlots();

/// Fills the draft from that side; all ten plates, whatever their number.
void TakePlatesIntoDraft();
/// Moves the draft's plates into that side. Those beyond their number keep their old data.
void TakePlatesFromDraft();

}  // namespace halvorne
