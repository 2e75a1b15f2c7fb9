#pragma once

namespace halvorne::testing {

/// Puts every state of the core back to its start.
void ResetProgram();

/// A small valid single-layer design in `design`: one lossless piezoelectric layer (Kt 0.5,
/// 5 MHz), real loads, no plates, no network, `points` intervals from 1 to 9 MHz, VelDisp 1, and
/// display settings as shipped. Derived values are made; no sweep is run.
void MakeSimpleDesign(int points = 16, int timePoints = 256);

}  // namespace halvorne::testing
