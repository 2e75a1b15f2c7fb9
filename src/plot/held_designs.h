#pragma once

#include <string>
#include <vector>

#include "plot/state_snapshot.h"

// Designs that are held to be compared with the present one. Each stands in a slot of its own,
// which gives it its number and its colour, so that neither changes when another one is dropped.
// They last for the session; nothing is kept on the disk, and no memory is taken while none is
// held.

namespace halvorne {

/// Slots 0 to 5 are the user's.
inline constexpr int kMostHeld = 6;
/// The slot of the design as it was before something that can be taken back.
inline constexpr int kReferenceSlot = 6;
inline constexpr int kHeldSlots = 7;

struct HeldCurves;

struct HeldDesign {
  int slot = 0;
  std::string label;  ///< how it is called on graphs and in menus
  std::unique_ptr<DesignSnapshot> snapshot;
  bool aliasingAccepted = false;       ///< its undersampled waveform was on show when it was held
  std::shared_ptr<HeldCurves> curves;  ///< of the plot they were made for last; null before
};

/// How the held designs are compared with the present one.
struct Comparison {
  bool ScaleToAll = false;  ///< the automatic amplitude scale looks at the held curves too
};

extern Comparison comparison;

/// Holds the present design with its curves in the first free slot and returns that slot. With all
/// slots of the user taken nothing is held: -1.
int Hold();

/// Holds the present design in the reference's slot, in place of what stood there.
/// @param label  how it is called
void HoldReference(const std::string& label);

/// Lets go of the design in a slot; nothing where there is none.
void Drop(int slot);

/// Lets go of the user's held designs. The reference stays: who holds it puts it back.
void DropAll();

/// The design in a slot, null where there is none.
HeldDesign* Held(int slot);

/// The slots that hold a design, in order.
std::vector<int> HeldSlots();

/// True when the user holds as many designs as there are slots.
bool AllSlotsTaken();

/// Title and file of a design as one text, "A probe (probe.dat)".
std::string DesignCaption(const Design& of);

}  // namespace halvorne
