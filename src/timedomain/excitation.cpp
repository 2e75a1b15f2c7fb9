#include "timedomain/excitation.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "engine/design_model.h"
#include "platform/failure.h"
#include "platform/main_window.h"
#include "platform/numbers.h"
#include "platform/vector_registers.h"
#include "timedomain/view.h"
#include "timedomain/zero.h"

namespace halvorne {
namespace {

constexpr std::int16_t kCalculatedBurst = 1;
constexpr std::int16_t kSquareWave = 2;

/// A number of samples, cut to the points of the waveform.
float CutToPoints(double samples) {
  return std::min(ToSingle(samples), ToSingle(draft.TmpExcitePoints));
}

}  // namespace

void CopyExciteToTemp() try {
  draft.TmpExciteType = design.ExciteType;
  draft.TmpExciteWave = design.ExciteWave;
  draft.TmpExciteFreq = design.ExciteFreq;
  draft.TmpExciteCycles = design.ExciteCycles;
  draft.TmpExciteDelay = design.ExciteDelay;
  draft.TmpExcitePhase = design.ExcitePhase;
  if (view.TimeScale == 0) {
    const double shown = static_cast<double>(view.TimeWindowPercent) * design.NoTimePts / 100;
    GetTimeScale(Quotient(Int(shown), design.SampleRateHz));
  }
  if (design.ExciteType == kCalculatedBurst) {
    draft.TmpExcitePoints = design.ExcitePoints;
  }
} catch (...) {
  ReportFailure("CopyExciteToTemp", "frmExcite");
}

void CalcExciteWfm() try {
  CleanVectorRegisters();
  if (draft.TmpExciteType != kCalculatedBurst) {
    return;
  }
  const double rate = design.SampleRateHz;
  const double frequency = draft.TmpExciteFreq;
  // Kept: phase, start and length of the burst are 32-bit floats.
  const float phase = ToSingle(draft.TmpExcitePhase * kPi / 180);
  const float start = CutToPoints(draft.TmpExciteDelay * rate);
  const std::int32_t first = ToInt32(Int(start + 0.5));
  const float length = CutToPoints(Quotient(draft.TmpExciteCycles * rate, frequency));
  const std::int32_t last = ToInt32(Int(static_cast<double>(length) + start + 0.5));
  Zero(0, draft.TmpExcitePoints, draft.TmpExciteWfm);
  for (std::int32_t i = first; i <= last; ++i) {
    const double angle = Quotient((i - static_cast<double>(start)) * kTwoPi * frequency, rate);
    const double sample = std::sin(Finite(angle + phase));
    draft.TmpExciteWfm(i) = draft.TmpExciteWave == kSquareWave ? Sgn(sample) : sample;
  }
} catch (...) {
  ReportFailure("CalcExciteWfm", "frmExcite");
}

void EnableConvolve(std::int16_t on) try {
  constexpr std::array kExcitationItems = {Item::kViewTxExcite, Item::kViewRxExcite,
                                           Item::kView2WayExcite};
  for (const Item item : kExcitationItems) {
    mainWindow().SetEnabled(item, on != 0);
  }
  if (on == 0 && IsExcitationPlot(view.CurrentPlot)) {
    --view.CurrentPlot;
  }
} catch (...) {
  ReportFailure("EnableConvolve", "frmExcite");
}

}  // namespace halvorne
