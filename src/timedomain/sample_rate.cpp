#include "timedomain/sample_rate.h"

#include <cmath>
#include <string>

#include "engine/design_model.h"
#include "platform/failure.h"
#include "platform/messages.h"
#include "platform/number_text.h"
#include "platform/numbers.h"
#include "timedomain/excitation.h"
#include "timedomain/view.h"
#include "timedomain/wave_state.h"
#include "timedomain/zero.h"

namespace halvorne {
namespace {

/// A frequency in the display unit.
double Shown(double frequency) {
  return Quotient(frequency, design.FreqScale);
}

/// The burst was sampled at the old rate.
void MakeExcitationAnew() {
  CopyExciteToTemp();
  CalcExciteWfm();
  for (long i = 0; i <= design.ExciteLength; ++i) {
    wave.ExciteRe(i) = draft.TmpExciteWfm(i);
  }
  Zero(design.ExciteLength + 1L, TimeCurve::last, wave.ExciteRe);
}

std::string AliasingWarning() {
  const double intervals = design.NoFreqPts;
  const double samples = design.NoTimePts;
  std::string text;
  text += "Frequency limits are currently " + NumberText(Shown(design.FreqStart)) + " to " +
          NumberText(Shown(design.FreqStop)) + design.FreqUnit + ".\r\n";
  text += "No. of points in frequency and time domains: " + NumberText(intervals) + "; " +
          NumberText(samples) + ".\r\n";
  text += "The resultant waveform sample rate is " + NumberText(Shown(design.SampleRateHz)) +
          design.FreqUnit + ".\r\n";
  text += "The time waveform will be undersampled, which will result in aliasing.\r\n";
  text += "To avoid undersampling, you must enter an upper frequency limit which is\r\n";
  text += "at least " + NumberText(Roundit(Quotient(samples, samples - 2 * intervals), 3)) +
          " x (lower frequency limit).  Using a factor of 2 x (lower\r\n";
  text += "limit) will result in a more satisfactory waveform plot in most cases.\r\n\r\n";
  text += "Choose OK to continue, Cancel to exit.";
  return text;
}

}  // namespace

void SampleRate() try {
  const double span = Finite(design.FreqStop - design.FreqStart);
  design.FreqStep = Quotient(span, design.NoFreqPts);
  design.SampleRateHz = Quotient(Finite(span * design.NoTimePts), design.NoFreqPts);
  wave.TimeStart = 0;
  design.TimeWindow = Finite(Quotient(design.NoTimePts - 1.0, design.SampleRateHz));
  wave.FreqStartText = Format(Shown(design.FreqStart), "##0.##0");
  wave.FreqStopText = Format(Shown(design.FreqStop), "##0.##0");
  if (IsExcitationPlot(view.CurrentPlot) && design.ExciteType == 1) {
    MakeExcitationAnew();
  }
} catch (...) {
  ReportFailure("SampleRate", "FFT");
}

void ValidIFT(bool& invalid) try {
  invalid = false;
  if (Finite(2 * design.FreqStop) <= design.SampleRateHz) {
    return;
  }
  const Message warning{.title = "WARNING:  ALIASING ERROR",
                        .text = AliasingWarning(),
                        .icon = MessageIcon::kCritical,
                        .buttons = MessageButtons::kOkCancel,
                        .defaultAnswer = MessageAnswer::kCancel};
  invalid = messages().Show(warning) != MessageAnswer::kOk;
} catch (...) {
  ReportFailure("ValidIFT", "FFT");
}

std::int32_t LastSample() {
  return ToInt32(design.NoTimePts - 1.0);
}

double Roundit(double value, std::int32_t digits) try {
  // Kept: the digits are cut off.
  return Finite(std::pow(10.0, -digits) * Fix(Finite(std::pow(10.0, digits) * value)));
} catch (...) {
  ReportFailure("Roundit", "FFT");
  return 0;
}

}  // namespace halvorne
