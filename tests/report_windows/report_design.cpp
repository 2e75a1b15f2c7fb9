#include "report_windows/report_design.h"

#include <cstdlib>

#include "engine/frequency_sweep.h"
#include "plot/plot_select.h"
#include "plot/plot_state.h"

namespace halvorne::testing {

ReportDesign::ReportDesign() {
  ::setenv("SOURCE_DATE_EPOCH", "1000000000", 1);  // a page drawn again has the same stamp
  MakeSimpleDesign(80, 1024);
  design.DesignTitle = "A probe";
  design.DataFileName = "probe.dat";
  PrelimCalc();
  MainCalc();
  view.CurrentPlot = 14;
  PlotSelect(14);
}

ReportDesign::~ReportDesign() {
  ::unsetenv("SOURCE_DATE_EPOCH");
}

void ReportDesign::MakeLong() {
  AcousticMaterial plate;
  plate.Name = "Plate";
  plate.Velocity = 2500;
  plate.ShearVelocity = 1200;
  plate.Density = 1500;
  design.NoFace = design.NoBack = 10;
  for (int i = 1; i <= 10; ++i) {
    design.FaceMatl(i) = design.BackMatl(i) = plate;
    design.FrontThick(i) = design.BackThick(i) = 0.0001;
  }
}

}  // namespace halvorne::testing
