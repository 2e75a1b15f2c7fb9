#pragma once

#include "engine/acoustic_sections.h"
#include "engine/design_model.h"

namespace halvorne::tools {

/// The sample that the tutorial of the help improves, without folder and extension.
inline constexpr const char* kTutorialDesign = "imaging_5mhz_two_layer";

/// The first change of the tutorial: thinner matching plates.
inline void ThinTutorialPlates() {
  design.FrontThick(1) = 0.125e-3;
  design.FrontThick(2) = 0.115e-3;
}

/// The second change: a heavier backing.
inline void BackTutorialLoad() {
  design.ZBackLoad = 8e6;
  CmplxLoad();
}

}  // namespace halvorne::tools
