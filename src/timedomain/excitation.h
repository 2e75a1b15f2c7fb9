#pragma once

#include <cstdint>
#include <string>

#include "platform/surface.h"

namespace halvorne {

/// Copies the committed excitation settings into the draft.
void CopyExciteToTemp();

/// Samples the draft's tone burst into TmpExciteWfm(0 to TmpExcitePoints); for type 1 only.
void CalcExciteWfm();

/// A frequency in Hz as a burst takes it: its magnitude, no more than half the sample rate, and
/// 1 Hz for 0. Raises 6 when it is no 32-bit float.
float BurstFreq(double hertz);

/// A number of points as a burst takes it: its magnitude, rounded half to even, from 64 to 65535.
std::int32_t BurstPoints(double points);

/// Divides the draft's waveform by its largest magnitude, so that its peak is 1; silence stays.
/// TmpExcitePoints of 0 becomes 1.
void NormaliseExcite();

/// NormaliseExcite(), and draws the waveform on a scale of -1.05 to 1.05.
void PreviewExcite(Surface& picture);

/// Commits the draft: its type and what belongs to that, and its waveform as it stands, silent
/// behind TmpExcitePoints. Type 0 leaves an empty waveform.
/// @param fileName, comment  of the excitation's file; taken for type 2 only
void StoreExcite(const std::string& fileName, const std::string& comment);

/// Sets whether the three excitation plots can be chosen. When not and one is on show, CurrentPlot
/// falls back to the impulse response beside it.
void EnableConvolve(std::int16_t on);

}  // namespace halvorne
