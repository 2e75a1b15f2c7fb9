#include "support/plain_design.h"

#include "engine/design_model.h"

namespace halvorne::testing {

void NeutralDispersion() {
  for (int slot = 0; slot < kDispersionSlots; ++slot) {
    for (int point = 0; point <= design.NoFreqPts; ++point) {
      design.VelDisp(slot, point) = 1;
    }
  }
}

void MakePlainDesign(int intervals) {
  design.NoPiezo = 1;
  PiezoMaterial& matl = design.PZMatl(1);
  matl.Name = "Test ceramic";
  matl.Velocity = 4000;
  matl.Density = 7500;
  matl.Ks = 800;
  matl.Kt = 0.5;
  matl.TanDe = 1e-9;
  design.PZThick(1) = 0.0004;
  design.PZPolarity(1) = 1;
  design.ElementArea = 1e-4;
  design.ZFrontLoad = 1.5e6;
  design.ZBackLoad = 3e6;
  design.TermTx = 50;
  design.TermRx = 50;
  design.FreqStart = 1e6;
  design.FreqStop = 9e6;
  design.NoFreqPts = intervals;
  NeutralDispersion();
}

}  // namespace halvorne::testing
