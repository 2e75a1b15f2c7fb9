#include "dialogs/plate_side.h"

#include <numeric>

#include "dialogs/entry_state.h"
#include "plot/plot_after_open.h"

namespace halvorne {

PlateSideFields PlateSideInForce() {
  if (entry.PlateSide == "Back") {
    return {design.NoBack,        design.BackMatl, design.BackThick,        design.BackArea,
            design.BackVelDispOn, kBackSlot,       UpdateBackDispersionView};
  }
  return {design.NoFace,           design.FaceMatl,      design.FrontThick,
          design.FrontArea,        design.FaceVelDispOn, 0,
          UpdateFaceDispersionView};
}

std::array<int, kMaxPlates> PlateSlots() {
  std::array<int, kMaxPlates> numbers{};
  std::iota(numbers.begin(), numbers.end(), PlateSideInForce().slotOffset + 1);
  return numbers;
}

void TakePlatesIntoDraft() {
  const PlateSideFields side = PlateSideInForce();
  for (int plate = 1; plate <= kMaxPlates; ++plate) {
    draft.TmpAcMatl(plate) = side.materials(plate);
    draft.TmpPlateThick(plate - 1) = side.thick(plate);
    draft.TmpPlateArea(plate - 1) = side.area(plate);
  }
  draft.TmpNoPlates = side.count;
  draft.TmpPlateVelDispOn = side.velDispOn;
}

void TakePlatesFromDraft() {
  const PlateSideFields side = PlateSideInForce();
  side.count = draft.TmpNoPlates;
  for (int plate = 1; plate <= draft.TmpNoPlates; ++plate) {
    side.materials(plate) = draft.TmpAcMatl(plate);
    side.thick(plate) = draft.TmpPlateThick(plate - 1);
    side.area(plate) = draft.TmpPlateArea(plate - 1);
  }
}

}  // namespace halvorne
