#include "engine/sweep_plan.h"

#include "engine/acoustic_chain.h"
#include "engine/piezo_section.h"

namespace halvorne {

namespace {

/// Index of the law in the plan, which takes it in when it is new.
int LawOf(SweepPlan& plan, double lossFreq, double lossExp) {
  int index = 0;
  while (index < plan.lawCount &&
         (plan.laws[index].lossFreq != lossFreq || plan.laws[index].lossExp != lossExp)) {
    ++index;
  }
  if (index == plan.lawCount) {
    plan.laws[plan.lawCount++] = {lossFreq, lossExp};
  }
  return index;
}

void PlanChain(const Chain& chain, int plates, SweepPlan& plan, PlannedChain& planned) {
  planned.plates = plates;
  for (int k = 0; k <= plates; ++k) {
    planned.lines[k] = {chain.Z(k), chain.Delay(k), chain.Loss(k),
                        LawOf(plan, chain.LossFreq(k), chain.LossExp(k)),
                        design.VelDisp.rows(chain.firstSlot + k).data()};
  }
}

/// @return false when a row's code is unknown
bool PlanNetwork(SweepPlan& plan) {
  plan.elementCount = 0;
  for (int row = 1; row <= kNetworkRows && design.ElNet(row, 1) != 0; ++row) {
    PlannedElement& element = plan.elements[plan.elementCount++];
    element.kind = KindOf(design.ElNet(row, 1));
    for (int value = 0; value < 4; ++value) {
      element.values[value] = design.ElNet(row, value + 2);
    }
    if (element.kind == ElementKind::kUnknown) {
      return false;
    }
  }
  return true;
}

bool IsPlateCount(int count) {
  return count >= 0 && count <= kMaxPlates;
}

}  // namespace

bool PlanSweep(double step, SweepPlan& plan) {
  const bool oneLayer = design.NoPiezo == 1;
  const bool joined = design.NoPiezo == 2 && (design.PZConnect == 1 || design.PZConnect == 2);
  if (!(oneLayer || joined) || !IsPlateCount(design.NoFace) || !IsPlateCount(design.NoBack) ||
      design.NoFreqPts > kLastFreqPoint || !PlanNetwork(plan)) {
    return false;
  }
  plan.start = design.FreqStart;
  plan.step = step;
  plan.last = design.NoFreqPts;
  plan.lawCount = 0;
  PlanChain(FrontChain(), design.NoFace, plan, plan.front);
  PlanChain(BackChain(), design.NoBack, plan, plan.back);
  plan.twoLayers = joined;
  plan.inSeries = design.PZConnect == 1;
  for (std::int16_t layer = 1; layer <= design.NoPiezo; ++layer) {
    plan.layers[layer - 1] = ConstantsOf(layer);
  }
  plan.ends = {design.TermTx, design.TermRx, design.FrontLoadArea};
  plan.backArea = design.BackLoadArea;
  plan.frontLoad = {design.ZFrontRe.data(), design.ZFrontIm.data()};
  plan.backLoad = {design.ZBackRe.data(), design.ZBackIm.data()};
  return true;
}

}  // namespace halvorne
