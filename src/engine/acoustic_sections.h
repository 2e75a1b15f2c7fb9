#pragma once

#include <cstdint>

namespace halvorne {

/// Folds one lossy acoustic line into the running product, at point sweep.FreqIndex.
///
/// @param slot      dispersion slot of the layer, 0 to 21
/// @param z         characteristic impedance including the relative area, Rayl m^2
/// @param delay     transit time, s
/// @param loss      loss at the reference frequency, Np
/// @param lossFreq  reference frequency of the loss, Hz
/// @param lossExp   exponent of the loss's frequency law
/// Kept: the dispersion factor scales the phase and the C entry only, so the determinant is not 1
/// where it differs from 1. Fails with "ERROR in Tline of CALCS".
void Tline(std::int16_t slot, double z, double delay, double loss, double lossFreq, float lossExp);

/// Folds the rear branch's admittance YRear into the running product as a shunt.
void RearPort();

/// Sets the loads in force at all points from the nominal loads and, where a side is complex, its
/// normalised values. A side that is real forgets its file name and comment.
void CmplxLoad();

/// Sets the loads in force at all points to the flat nominal loads.
/// Kept: flags and file names stay, so a complex load is flat until the next CmplxLoad.
void ComplexLoad();

}  // namespace halvorne
