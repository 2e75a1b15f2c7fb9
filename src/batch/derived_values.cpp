#include "batch/derived_values.h"

#include <algorithm>
#include <cstdio>
#include <string>

#include "batch/stops.h"
#include "engine/acoustic_sections.h"
#include "engine/design_model.h"
#include "engine/piezo_section.h"
#include "timedomain/excitation.h"
#include "timedomain/sample_rate.h"
#include "timedomain/wave_state.h"

namespace halvorne::batch {
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
    throw CommandFailed("the design's ExcitePoints, " + std::to_string(draft.TmpExcitePoints) +
                        ", must be from 0 to " + std::to_string(kLastTimePoint));
  }
  CalcExciteWfm();
  design.ExciteLength = draft.TmpExcitePoints;
  const std::int32_t behind = design.ExciteLength + 1;
  std::copy_n(draft.TmpExciteWfm.begin(), behind, wave.ExciteRe.begin());
  std::fill(wave.ExciteRe.begin() + behind, wave.ExciteRe.end(), 0.0);
}

void FlattenLoads() {
  ComplexLoad();
  if (design.ZFrontComplex || design.ZBackComplex) {
    std::fputs(
        "halvorne-batch: note: the frequencies have changed, so the complex acoustic loads are "
        "taken as flat until the design is read again\n",
        stderr);
  }
}

}  // namespace

void MakeDerivedValues(unsigned which) {
  if ((which & kPiezo) != 0) {
    PiezoConstants();
    PiezoLayers();
  }
  if ((which & (kSampling | kLimits)) != 0) {
    SampleRate();
  }
  if ((which & kLimits) != 0) {
    FlattenLoads();
  }
  if ((which & kLoads) != 0) {
    CmplxLoad();
  }
  const bool burstMoved = (which & (kSampling | kLimits)) != 0 && design.ExciteType == kToneBurst;
  if ((which & kExcitation) != 0 || burstMoved) {
    MakeExcitation();
  }
}

}  // namespace halvorne::batch
