#pragma once

#include <cstdint>
#include <string>

#include "engine/design_model.h"

namespace halvorne {

/// Waveforms at SampleRateHz, their spectra, and what SampleRate derives for the axes.
struct Wave {
  TimeCurve ImpulseRe, ImpulseIm;                   ///< impulse response, analytic
  TimeCurve ExciteRe;                               ///< excitation, real
  TimeCurve ExciteIm;                               ///< its quadrature, from Convolve
  TimeCurve ResponseRe, ResponseIm;                 ///< excitation response, analytic
  TimeCurve ImpulseSpec, ExciteSpec, ResponseSpec;  ///< dB, index 0 = the bin at ConvLoIdx
  TimeCurve TmpWorkIm;  ///< with draft.TmpExciteWfm: the impulse's spectrum

  std::int32_t ConvLoIdx = 0;  ///< transform bins of the sweep's band
  std::int32_t ConvHiIdx = 0;
  double ConvLoFreq = 0;  ///< Hz
  double ConvHiFreq = 0;  ///< Hz
  bool WaveformInvalid = false;
  std::int32_t WaveIndex = 0;  ///< shared loop index

  double TimeStart = 0;       ///< s
  std::string FreqStartText;  ///< sweep limits in FreqUnit
  std::string FreqStopText;

  TimeCurve TwiddleCos, TwiddleSin;  ///< kept from one transform to the next of its kind
  std::int32_t TwiddleLength = 0;    ///< their kind: n of an inverse transform, -n of a forward one
};

extern Wave wave;

}  // namespace halvorne
