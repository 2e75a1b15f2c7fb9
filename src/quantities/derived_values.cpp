#include "quantities/derived_values.h"

#include <algorithm>
#include <string>

#include "engine/acoustic_sections.h"
#include "engine/design_model.h"
#include "engine/piezo_section.h"
#include "quantities/refusals.h"
#include "timedomain/excitation.h"
#include "timedomain/sample_rate.h"
#include "timedomain/wave_state.h"

namespace halvorne {
namespace {

constexpr int kToneBurst = 1;

/// Samples the tone burst as the excitation dialog does; without an excitation there is none.
void MakeExcitation() {
  if (design.ExciteType > kToneBurst) {
    return;  // samples of a file stay as they are
  }
  CopyExciteToTemp();
  if (design.ExciteType < kToneBurst) {
    draft.TmpExcitePoints = -1;
  }
  if (draft.TmpExcitePoints < -1 || draft.TmpExcitePoints > kLastTimePoint) {
    throw NotPossible("the design's ExcitePoints, " + std::to_string(draft.TmpExcitePoints) +
                      ", must be from 0 to " + std::to_string(kLastTimePoint));
  }
  CalcExciteWfm();
  design.ExciteLength = draft.TmpExcitePoints;
  const std::int32_t behind = design.ExciteLength + 1;
  std::copy_n(draft.TmpExciteWfm.begin(), behind, wave.ExciteRe.begin());
  std::fill(wave.ExciteRe.begin() + behind, wave.ExciteRe.end(), 0.0);
}

}  // namespace

bool MakeDerivedValues(unsigned which) {
  if ((which & kPiezo) != 0) {
    PiezoConstants();
    PiezoLayers();
  }
  if ((which & (kSampling | kLimits)) != 0) {
    SampleRate();
  }
  if ((which & kLimits) != 0) {
    ComplexLoad();
  }
  if ((which & kLoads) != 0) {
    CmplxLoad();
  }
  const bool burstMoved = (which & (kSampling | kLimits)) != 0 && design.ExciteType == kToneBurst;
  if ((which & kExcitation) != 0 || burstMoved) {
    MakeExcitation();
  }
  return (which & kLimits) != 0 && (design.ZFrontComplex || design.ZBackComplex);
}

}  // namespace halvorne
