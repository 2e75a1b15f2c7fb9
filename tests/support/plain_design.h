#pragma once

namespace halvorne::testing {

/// VelDisp 1 at all points of the sweep.
void NeutralDispersion();

/// One lossless layer (kt 0.5, half-wave frequency 5 MHz), real loads, no plates, no network,
/// 1 to 9 MHz, in a `design` that stands at its start. Nothing is derived.
void MakePlainDesign(int intervals = 16);

}  // namespace halvorne::testing
