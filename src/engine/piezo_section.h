#pragma once

#include <cstdint>

#include "engine/section_formulas.h"
#include "engine/two_port.h"

namespace halvorne {

/// Fills PZFa, PZCo, PZRp, PZM0 of each layer in use from its material, thickness and area.
///
/// Krimholtz, Leedom, Matthaei, Electronics Letters 6 (1970) 398-399: the quantities of the
/// equivalent circuit that do not depend on frequency. A failing layer (thickness or electrical
/// loss of 0) keeps its four old constants, and so do the layers behind it; box "ERROR in
/// PiezoConstants of CALCS".
void PiezoConstants();

/// What TPiezo takes from the design for layer 1 or 2.
formulas::LayerConstants<double> ConstantsOf(std::int16_t layer);

/// Writes the electro-acoustic section of a layer at sweep.Freq, sweep.Omega: lossy clamped
/// capacitance and motional reactance in series, then the ideal transformer to the layer's centre.
///
/// @param layer  1 or 2
/// @param re,im  the section's chain matrix; port 1 electrical, port 2 acoustic
/// Fails with "ERROR in TPiezo of CALCS"; a failure before the first entry leaves both matrices.
void TPiezo(std::int16_t layer, Matrix& re, Matrix& im);

/// Folds the piezoelectric stack into the running product and leaves the stack's matrix in ElecRe,
/// ElecIm; two layers join in series (hybrid parameters add) or in parallel (admittances add).
void AcoustoElec();

}  // namespace halvorne
