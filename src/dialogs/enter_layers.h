#pragma once

#include <QWidget>

// What the commands of the menu Input do around the two large dialogs. What they raise is their
// caller's to report.

namespace halvorne {

/// Fills the draft from the piezoelectric layers and shows frmPiezoEntry modally.
/// @param layer  the layer that it leads to, 1 or 2; 0 for none
void EnterPiezoLayers(QWidget* owner, int layer = 0);

/// Fills the draft from the plates of a side, shows frmFaceEntry modally and takes the draft over
/// when it was accepted; then the design is calculated anew.
/// @param side   "Face" or "Back"
/// @param plate  the plate that it leads to, from 1; 0 for none
void EnterPlates(const char* side, QWidget* owner, int plate = 0);

}  // namespace halvorne
