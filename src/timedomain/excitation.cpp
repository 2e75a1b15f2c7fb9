#include "timedomain/excitation.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

#include "engine/design_model.h"
#include "platform/failure.h"
#include "platform/main_window.h"
#include "platform/numbers.h"
#include "platform/vector_registers.h"
#include "timedomain/view.h"
#include "timedomain/wave_state.h"
#include "timedomain/zero.h"

namespace halvorne {
namespace {

constexpr std::int16_t kCalculatedBurst = 1;
constexpr std::int16_t kDataFile = 2;
constexpr std::int16_t kSquareWave = 2;
constexpr double kFewestPoints = 64;

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

float BurstFreq(double hertz) {
  const double magnitude = std::fabs(hertz);
  return magnitude == 0 ? 1.0F : ToSingle(std::min(magnitude, design.SampleRateHz / 2));
}

std::int32_t BurstPoints(double points) {
  return ToInt32(std::clamp(std::fabs(points), kFewestPoints, static_cast<double>(kLastTimePoint)));
}

// Kept: the working waveform itself becomes the normalised one, and OK commits that.
void NormaliseExcite() {
  if (draft.TmpExcitePoints == 0) {
    draft.TmpExcitePoints = 1;
  }
  double peak = 0;
  for (long i = 0; i <= draft.TmpExcitePoints; ++i) {
    peak = std::max(peak, std::fabs(draft.TmpExciteWfm(i)));
  }
  if (peak == 0) {
    return;
  }
  for (long i = 0; i <= draft.TmpExcitePoints; ++i) {
    draft.TmpExciteWfm(i) /= peak;
  }
}

void PreviewExcite(Surface& picture) try {
  CleanVectorRegisters();
  NormaliseExcite();
  picture.Cls();
  if (draft.TmpExcitePoints < 0) {
    return;
  }
  std::vector<Point> trace;
  trace.reserve(static_cast<std::size_t>(draft.TmpExcitePoints) + 1);
  for (long i = 0; i <= draft.TmpExcitePoints; ++i) {
    trace.push_back({static_cast<double>(i), draft.TmpExciteWfm(i)});
  }
  picture.Scale(0, 1.05, draft.TmpExcitePoints, -1.05);
  picture.SetForeColor(kBlue);
  picture.Polyline(trace);
} catch (...) {
  ReportFailure("PreviewExcite", "frmExcite");
}

void StoreExcite(const std::string& fileName, const std::string& comment) {
  design.ExciteType = draft.TmpExciteType;
  if (design.ExciteType == kCalculatedBurst) {
    design.ExciteWave = draft.TmpExciteWave;
    design.ExciteFreq = draft.TmpExciteFreq;
    design.ExciteCycles = draft.TmpExciteCycles;
    design.ExciteDelay = draft.TmpExciteDelay;
    design.ExcitePhase = draft.TmpExcitePhase;
    design.ExcitePoints = draft.TmpExcitePoints;
  } else if (design.ExciteType == kDataFile) {
    design.ExciteFileName = fileName;
    design.ExciteComment = comment;
  }
  design.ExciteLength = draft.TmpExcitePoints;
  for (long i = 0; i <= design.ExciteLength; ++i) {
    wave.ExciteRe(i) = draft.TmpExciteWfm(i);
  }
  Zero(design.ExciteLength + 1L, TimeCurve::last, wave.ExciteRe);
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
