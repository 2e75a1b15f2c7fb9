#pragma once

#include <cstdint>
#include <string>

namespace halvorne {

/// Where the two large input dialogs stand. It lives longer than a dialog: a dialog that goes to
/// its material browser is unloaded, and the browser loads it anew.
struct EntryState {
  std::int16_t CurPZLayer = 0;  ///< layer on the Material page of frmPiezoEntry, 1 or 2
  std::int16_t CurAcLayer = 0;  ///< plate on the Material page of frmFaceEntry, 1 to 10
  bool PZDBReturn = false;      ///< frmPiezoEntry comes back from its browser: Material page first
  bool AcDBReturn = false;      ///< the same of frmFaceEntry
  std::string PlateSide;        ///< side that frmFaceEntry edits, "Face" or "Back"
  /// How frmFaceEntry was left last, true by its OK; a window's close button changes nothing.
  bool PlatesAccepted = false;
  /// Column of thickness boxes that leads: 1 the wavelengths, 2 the millimetres.
  std::int16_t ThicknessFocus = 0;
};

extern EntryState entry;

}  // namespace halvorne
