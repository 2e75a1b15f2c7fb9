#include "plot/held_designs.h"

#include <array>
#include <utility>

#include "persistence/file_names.h"

namespace halvorne {

Comparison comparison;

namespace {

std::array<std::unique_ptr<HeldDesign>, kHeldSlots> slots;

/// Whether an undersampled waveform of the present design may be shown without asking once more.
bool WaveformIsOnShow() {
  return IsTimePlot(setup.PreviousPlot) && !plot.Outdated && !wave.WaveformInvalid;
}

void HoldIn(int slot, std::string label) {
  auto held = std::make_unique<HeldDesign>();
  held->slot = slot;
  held->label = std::move(label);
  held->snapshot = TakeDesign();
  held->aliasingAccepted = WaveformIsOnShow();
  slots.at(static_cast<std::size_t>(slot)) = std::move(held);
}

int FirstFreeSlot() {
  for (int slot = 0; slot < kMostHeld; ++slot) {
    if (Held(slot) == nullptr) {
      return slot;
    }
  }
  return -1;
}

}  // namespace

int Hold() {
  const int slot = FirstFreeSlot();
  if (slot >= 0) {
    HoldIn(slot, std::to_string(slot + 1) + ": " + DesignCaption(design));
  }
  return slot;
}

void HoldReference(const std::string& label) {
  HoldIn(kReferenceSlot, label);
}

void Drop(int slot) {
  if (slot >= 0 && slot < kHeldSlots) {
    slots[static_cast<std::size_t>(slot)].reset();
  }
}

void DropAll() {
  for (int slot = 0; slot < kMostHeld; ++slot) {
    Drop(slot);
  }
}

HeldDesign* Held(int slot) {
  return slot >= 0 && slot < kHeldSlots ? slots[static_cast<std::size_t>(slot)].get() : nullptr;
}

std::vector<int> HeldSlots() {
  std::vector<int> taken;
  for (int slot = 0; slot < kHeldSlots; ++slot) {
    if (Held(slot) != nullptr) {
      taken.push_back(slot);
    }
  }
  return taken;
}

bool AllSlotsTaken() {
  return FirstFreeSlot() < 0;
}

std::string DesignCaption(const Design& of) {
  std::string file;
  ExtractFileName(of.DataFileName, file);
  if (of.DesignTitle.empty() || file.empty()) {
    return of.DesignTitle.empty() && file.empty() ? "Design" : of.DesignTitle + file;
  }
  return of.DesignTitle + " (" + file + ")";
}

}  // namespace halvorne
