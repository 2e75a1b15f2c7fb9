#include "support/program_state.h"

#include "engine/acoustic_sections.h"
#include "engine/piezo_section.h"
#include "engine/two_port.h"
#include "platform/numbers.h"
#include "plot/held_designs.h"
#include "plot/plot_state.h"
#include "timedomain/sample_rate.h"

namespace halvorne::testing {

void ResetProgram() {
  Reset(design);
  Reset(curves);
  Reset(draft);
  Reset(sweep);
  Reset(view);
  Reset(points);
  Reset(wave);
  Reset(setup);
  Reset(plot);
  Reset(scale);
  Reset(measured);
  Reset(comparison);
  for (int slot = 0; slot < kHeldSlots; ++slot) {
    Drop(slot);
  }
}

void MakeSimpleDesign(int intervals, int timePoints) {
  design.NoPiezo = 1;
  PiezoMaterial& matl = design.PZMatl(1);
  matl.Name = "Test ceramic";
  matl.Velocity = 4000;
  matl.ShearVelocity = 2000;
  matl.Density = 7500;
  matl.Ks = 800;
  matl.Kt = 0.5;
  matl.TanDe = 1e-9;
  matl.TanDm = 0;
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
  design.NoTimePts = timePoints;
  design.DesignFreq = 5e6;
  design.FreqScale = 1e6F;
  design.FreqUnit = "MHz";
  design.AttenFreq = 1e6F;
  for (int slot = 0; slot < kDispersionSlots; ++slot) {
    for (int point = 0; point <= kLastFreqPoint; ++point) {
      design.VelDisp(slot, point) = 1;
    }
    design.VelDispNames(slot, 0) = "blank";
    design.VelDispNames(slot, 1) = "blank";
  }
  view.CurrentPlot = 11;
  view.AmplAuto = view.FreqAuto = view.TimeAuto = true;
  view.TimeWindowPercent = 50;
  setup.ReportDetails = 1;
  setup.LogRange = 60;
  setup.AmplWindowPercent = 100;
  StartSession();
  CmplxLoad();
  SampleRate();
  PiezoConstants();
  PiezoLayers();
}

}  // namespace halvorne::testing
