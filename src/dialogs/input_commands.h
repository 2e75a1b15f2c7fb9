#pragma once

#include <QWidget>

// What the commands of the menu Input do around the two large dialogs. What they raise is their
// caller's to report.

namespace halvorne {

/// Fills the draft from the piezoelectric layers and shows frmPiezoEntry modally.
void EnterPiezoLayers(QWidget* owner);

/// Fills the draft from the plates of a side, shows frmFaceEntry modally and takes the draft over
/// when it was accepted; then the design is calculated anew.
/// @param side  "Face" or "Back"
void EnterPlates(const char* side, QWidget* owner);

}  // namespace halvorne
