#include "engine/acoustic_chain.h"

namespace halvorne {

Chain FrontChain() {
  return {design.FrontThick,    design.FrontArea,    design.FrontLoss, design.FrontDelay,
          design.FrontLossFreq, design.FrontLossExp, design.FrontZ,    0};
}

Chain BackChain() {
  return {design.BackThick,    design.BackArea,    design.BackLoss, design.BackDelay,
          design.BackLossFreq, design.BackLossExp, design.BackZ,    kBackSlot};
}

}  // namespace halvorne
