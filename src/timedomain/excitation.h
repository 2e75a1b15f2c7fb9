#pragma once

#include <cstdint>

namespace halvorne {

/// Copies the committed excitation settings into the draft.
void CopyExciteToTemp();

/// Samples the draft's tone burst into TmpExciteWfm(0 to TmpExcitePoints); for type 1 only.
void CalcExciteWfm();

/// Sets whether the three excitation plots can be chosen. When not and one is on show, CurrentPlot
/// falls back to the impulse response beside it.
void EnableConvolve(std::int16_t on);

}  // namespace halvorne
