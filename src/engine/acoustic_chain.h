#pragma once

#include "engine/design_model.h"

namespace halvorne {

/// One side's chain: index 0 is half a piezoelectric layer, then the plates outward.
struct Chain {
  const ChainValues& Thick;
  const ChainValues& Area;
  ChainValues& Loss;
  ChainValues& Delay;
  ChainValues& LossFreq;
  Bounded<float, 0, 25>& LossExp;
  ChainValues& Z;
  int firstSlot;  ///< dispersion slot of index 0
};

/// The chains of the design.
Chain FrontChain();
Chain BackChain();

}  // namespace halvorne
