#pragma once

#include <cstdint>

#include "plot/plot_state.h"

namespace halvorne {

/// Scales RawData by the loss of the load medium; nothing unless AttenOn.
/// @param dBFactor  10 for power ratios, 20 for amplitudes
/// @param passes    1 one way, 2 two ways
void AttenCalc(std::int16_t dBFactor, std::int16_t passes);

/// Magnitude and phase in degrees of source(k), k = i + offset, into destination(i), i = 0..count.
/// Kept: a negative real number has phase 0.
void PolarConvert(std::int32_t count, const Bounded<PlotPoint, 0, kLastFreqPoint>& source,
                  Bounded<PlotPoint, 0, kLastFreqPoint>& destination, double offset);

/// Unwraps RawData's phase or turns it into delay in seconds, by PhaseDisplayOption.
void PhaseDelay();

/// Impedance forms (plots 11, 21, 41, 42).
void ReImConvert(std::int16_t index);

/// Factor of the decibels of a plot of LinLogConvert(): 10 for ratios of powers, 20 for
/// amplitudes; 0 for all other plots.
std::int16_t LinLogFactor(int plotNumber);

/// Fills MeasBuf(0..NoFreqPts) with what the band of a plot of LinLogConvert() is measured on: the
/// gathered values, of the insertion loss their inverse. Failures go up to the caller.
void FillBandBuffer();

/// Linear or log forms (plots 12 to 15, 22 to 25, 31, 32) and their band measures.
void LinLogConvert(std::int16_t index, std::int16_t dBFactor);

/// The nine waveform forms and their pulse and band measures.
void WfmConvert(std::int16_t index, std::int16_t plotNumber, const TimeCurve& re,
                const TimeCurve& im, const TimeCurve& spectrum, TimePoints& destination);

/// Dispersion plots: gathers again, since their list of forms picks the layer.
void VDispConvert();

/// Clamps PlotData to magnitudes from 1e-38 to 1e38; a zero stays zero.
void LimitPdata();

/// Extrema of array(first..last), starting at -1e100 and 1e100.
void ArrayMaxMin(const MeasureBuffer& array, std::int32_t first, std::int32_t last, double& max,
                 double& min);

}  // namespace halvorne
