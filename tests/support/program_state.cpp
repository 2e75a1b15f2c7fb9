#include "support/program_state.h"

#include "engine/acoustic_sections.h"
#include "engine/piezo_section.h"
#include "engine/two_port.h"
#include "platform/numbers.h"
#include "plot/held_designs.h"
#include "plot/plot_state.h"
#include "support/plain_design.h"
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
  Reset(reading);
  for (int slot = 0; slot < kHeldSlots; ++slot) {
    Drop(slot);
  }
}

void MakeSimpleDesign(int intervals, int timePoints) {
  MakePlainDesign(intervals);
  design.PZMatl(1).ShearVelocity = 2000;
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
