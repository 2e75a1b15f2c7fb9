#pragma once

namespace halvorne {

/// Makes the impulse response ImpulseRe, ImpulseIm from the complex curve in points.RawData, as an
/// analytic signal; sets WaveformInvalid, and makes nothing when it is true.
void Waveform();

/// Inverse transform of ImpulseRe, ImpulseIm and shift of its bin 0 to FreqStart.
void WaveformIFT();

/// Convolves the impulse response with the excitation within the sweep's band: fills ExciteIm,
/// ResponseRe, ResponseIm and the three spectra. A band above index 65535 fails with "ERROR in
/// Convolve of FFT" and leaves the response incomplete.
void Convolve();

}  // namespace halvorne
