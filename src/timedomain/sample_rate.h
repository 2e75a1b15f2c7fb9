#pragma once

#include <cstdint>

namespace halvorne {

/// Derives FreqStep, SampleRateHz, TimeWindow and the limits' texts from the sweep and the point
/// counts; on an excitation plot of a function generator makes the sampled burst anew.
void SampleRate();

/// Warns when the sample rate can't carry the sweep's upper limit.
/// @param invalid  set to false when the waveform may be made, to true when the user cancelled
void ValidIFT(bool& invalid);

/// Index of the last sample, NoTimePts - 1. Raises 6 where that is no number of 32 bits.
std::int32_t LastSample();

/// 10^-digits x Fix(10^digits x value).
/// Kept: in spite of its name it cuts the digits off towards zero.
double Roundit(double value, std::int32_t digits);

}  // namespace halvorne
