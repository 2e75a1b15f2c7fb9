#pragma once

// Decibels of many values at once, by the formulas of log10() in platform/numbers.h.

namespace halvorne {

/// 10 log10 of `count` powers, in place; 0 counts as 1e-38.
void PowersToLevels(double* values, long count);
/// 20 log10 of `count` amplitudes without their signs, in place; 0 counts as 1e-38.
void AmplitudesToLevels(double* values, long count);
/// 10^(level / 20) of `count` levels in dB, by the exponential. The two arrays don't overlap.
void LevelsToAmplitudes(const double* levels, double* amplitudes, long count);

}  // namespace halvorne
